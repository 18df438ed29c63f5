// Changes of records, and the history that they leave: whoever replaces or deletes a record keeps
// it as it was, in the same transaction. docs/store.md describes how the history is stored.
#pragma once

#include "store/Engine.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace vorandine::store {

// Microseconds since 1970-01-01 00:00 UTC.
using Moment = std::int64_t;

// The machine's clock.
[[nodiscard]] Moment now();
// "2026-11-23T02:03:04.567890Z": in order as texts.
[[nodiscard]] std::string momentText(Moment moment);

// A record as it was until a change replaced or deleted it.
struct Version {
    std::string moment; // of that change
    std::string user;   // who made it; "" if unknown
    std::string record; // the whole text as it was before
};

// Shared by a store and its files. All members throw what the engine throws.
class Changes {
  public:
    explicit Changes(std::shared_ptr<Engine> engine, std::function<Moment()> clock = now);

    [[nodiscard]] Engine& engine() noexcept { return *engine_; }
    // Who makes the changes from here on.
    void user(std::string name) { user_ = std::move(name); }

    // Runs `work`; all its changes take effect together, or none if it throws. Not to be called by
    // `work`: that throws Error(StoreFailed).
    void atomically(const std::function<void()>& work);

    // Write and erase a record of `file`, which is called `name`. A record that was not there
    // leaves nothing to keep. On an error neither the change nor its history is stored.
    void write(EngineFile& file, const std::string& name, const std::string& key,
               std::string_view record);
    void erase(EngineFile& file, const std::string& name, const std::string& key);

    // What was kept of a record, oldest first; also of one that is no more.
    [[nodiscard]] std::vector<Version> history(const std::string& name, const std::string& key);
    // Drops all versions that were replaced before `moment`. How many.
    std::size_t prune(Moment moment);

  private:
    std::shared_ptr<Engine> engine_;
    std::function<Moment()> clock_;
    std::string user_;
    bool transaction_ = false;

    // Null where the engine has none: then nothing is kept.
    [[nodiscard]] EngineFile* versions();
    // `work` makes the change and gives the record as it was.
    void change(const std::string& name, const std::string& key,
                const std::function<std::optional<std::string>()>& work);
    void keep(const std::string& name, const std::string& key, const std::string& record);
};

} // namespace vorandine::store
