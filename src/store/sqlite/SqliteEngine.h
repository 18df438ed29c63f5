// The engine of one SQLite file, which several processes may use at a time. docs/store.md describes
// its layout.
#pragma once

#include "store/Engine.h"
#include "store/Store.h"
#include "store/Upkeep.h"
#include "store/sqlite/SqliteDatabase.h"

#include <chrono>
#include <map>

namespace vorandine::store {

// How long a lock held by another process is waited for before Error(Locked).
constexpr std::chrono::milliseconds SqlitePatience{5000};

class SqliteEngine : public Engine, public Upkeep {
  public:
    // Opens or makes the store at `path`; throws as openEngine does. A store is made in one
    // transaction: interrupted, it leaves at most an empty file, which OpenMode::Create takes for
    // a missing one and OpenMode::Existing refuses.
    SqliteEngine(const std::string& path, OpenMode mode,
                 std::chrono::milliseconds patience = SqlitePatience);
    ~SqliteEngine() override;

    [[nodiscard]] EngineFile* file(const std::string& name) override;
    [[nodiscard]] std::vector<std::string> files() override;
    void atomically(const std::function<void()>& work) override;
    void consistently(const std::function<void()>& work) override;
    [[nodiscard]] std::unique_ptr<Engine> another() override;
    [[nodiscard]] std::uint64_t writesOfOthers() override;
    [[nodiscard]] std::vector<std::string> faults() override;
    [[nodiscard]] std::vector<std::string> dangers() override;
    void backUp(const std::string& path, const CopyStep& step) override;

  private:
    class File;

    SqliteDatabase database_;
    SqliteStatement dataVersion_{database_, "PRAGMA data_version"};
    std::map<std::string, std::unique_ptr<File>> files_; // their statements go before database_
    bool transaction_ = false;

    void create();
    bool addHistory();
    void verify();
    void requireWritable() const;
    void requireTransaction() const;
    void requireOneName() const;
};

} // namespace vorandine::store
