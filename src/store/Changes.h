// Changes of records, and the history that they leave: whoever makes, replaces or deletes a record
// keeps what was there before, in the same transaction. docs/store.md describes how the history is
// stored.
#pragma once

#include "store/Engine.h"

#include <cstddef>
#include <cstdint>
#include <deque>
#include <functional>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace vorandine::store {

// Microseconds since 1970-01-01 00:00 UTC.
using Moment = std::int64_t;

// The machine's clock.
[[nodiscard]] Moment now();
// "2026-11-23T02:03:04.567890Z": in order as texts.
[[nodiscard]] std::string momentText(Moment moment);

// The moment as the user's clock had it: "23/11/2026 à 03:02"; "" where `moment` is no such text.
[[nodiscard]] std::string localTime(const std::string& moment);
// The same, to read on from a sentence: "à 03:02" on that day, "le 23/11/2026 à 03:02" on others.
[[nodiscard]] std::string localTimeInSentence(const std::string& moment);

// What a change left of a record: how it was until then.
struct Version {
    std::string moment; // of the change
    std::string user;   // who made it, and by what role where that is not the same; "" if unknown
    std::optional<std::string> record; // the whole text before; none where the change made it
};

// A change of a record, without what it was until then.
struct Change {
    std::string key;    // of the record
    std::string moment; // of momentText
    std::string user;   // "" if unknown
    bool own = false;   // made by who asks
};

// Whether an entry of the history's file is one: all that it says is plain. The record may have
// been damaged before it was replaced.
[[nodiscard]] bool isPlainVersion(std::string_view key, std::string_view content) noexcept;

// Shared by a store and its files. All members throw what the engine throws.
class Changes {
  public:
    // The history is dated by `clock`; without one by the engine's, else by the machine's.
    explicit Changes(std::shared_ptr<Engine> engine, std::function<Moment()> clock = {});

    [[nodiscard]] Engine& engine() noexcept { return *engine_; }
    // Who makes the changes from here on. Throws Error(TextRefused) where the name is not plain.
    void user(const std::string& name);
    // Whether a record that never was there leaves a version without record, and one that is stored
    // again as it is a version like it. At first both do; for a load of many records that would be
    // as many versions that tell nothing.
    void keepUnchanged(bool keep) noexcept { keepUnchanged_ = keep; }

    // Runs `work`; all its changes take effect together, or none if it throws. Not to be called by
    // `work`: that throws Error(StoreFailed).
    void atomically(const std::function<void()>& work);

    // What must be stored for a change to be made.
    struct Condition {
        std::optional<std::string_view> record; // none: there must be none
        // Gets what is stored instead, and throws.
        std::function<void(const std::optional<std::string>& stored)> refuse;
    };
    // Write and erase a record of `file`, which is called `name`. Erasing one that is not there
    // changes nothing and keeps nothing. On an error neither change nor history is stored.
    void write(EngineFile& file, const std::string& name, const std::string& key,
               std::string_view record, const Condition* condition = nullptr);
    void erase(EngineFile& file, const std::string& name, const std::string& key,
               const Condition* condition = nullptr);

    // What was kept of a record, oldest first; also of one that is no more. What a change has made
    // of the record is in the version after it, or for the last one the record as it is.
    [[nodiscard]] std::vector<Version> history(const std::string& name, const std::string& key);
    // The changes that were kept of all records of `name` whose keys begin with `prefix`, by key,
    // of each the oldest first. Of own ones the last ten thousand are known as such.
    [[nodiscard]] std::vector<Change> changes(const std::string& name, const std::string& prefix);
    // Who changed a record last, and when; none where no change of it was kept.
    [[nodiscard]] std::optional<Change> lastChange(const std::string& name, const std::string& key);
    // The other users who changed a record since its whole text was `read`, before the last one.
    // None where no change from there on was kept.
    [[nodiscard]] std::vector<std::string> othersSince(const std::string& name,
                                                       const std::string& key,
                                                       const std::optional<std::string>& read);
    // Drops all versions that were replaced before `moment`, many of them in a transaction; tells
    // after each how many were dropped so far. How many.
    std::size_t prune(
        Moment moment, const std::function<void(std::size_t dropped)>& step = [](std::size_t) {});

  private:
    std::shared_ptr<Engine> engine_;
    std::function<Moment()> clock_;
    std::string user_;
    bool keepUnchanged_ = true;
    bool transaction_ = false;
    // Keys of the versions kept last.
    std::set<std::string, std::less<>> own_;
    std::deque<std::set<std::string, std::less<>>::iterator> ownInOrder_;
    // Keys between which, as was seen in this transaction, the history has nothing: a load in the
    // order of keys looks once for many records.
    std::optional<KeyRange> gap_;

    // Null where the engine has none: then nothing is kept.
    [[nodiscard]] EngineFile* versions();
    // Makes the change where the engine has a step of its own for it; whether it has.
    [[nodiscard]] bool swap(EngineFile& file, const std::string& name, const std::string& key,
                            std::optional<std::string_view> record, const Condition* condition);
    // Runs `work`, a change and its history, in a transaction, if the condition holds there.
    void together(EngineFile& file, const std::string& key, const Condition* condition,
                  const std::function<void()>& work);
    [[nodiscard]] bool known(const std::string& name, const std::string& key);
    void keep(const std::string& name, const std::string& key,
              const std::optional<std::string>& record);
    void remember(std::string version);
};

} // namespace vorandine::store
