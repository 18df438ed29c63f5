// The database behind a URL: opens an engine and gives it the face that the control and the host
// know (files, records, requests).
#pragma once

#include "ports/Database.h"
#include "store/Changes.h"
#include "store/Engine.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace vorandine::store {

enum class OpenMode {
    Existing, // a missing store is an error
    Create,   // a missing store is made, with all files, empty
};

// Opens the engine of a URL:
//   memory:        a new store, empty, gone with the engine
//   sqlite:PATH    a file; PATH is relative to the working directory or absolute
//   postgresql://USER@HOST,HOST/BASE?OPTIONS#SCHEMA
//                  a schema of a database on a server
// Every engine has all files of records/Layout.h from the start.
// Throws Error: UrlRefused; StoreMissing, NotADatabase, OtherProgram, OtherVersion, Locked,
// Damaged, ReadOnly (only where a new store cannot be made), Unreachable, StoreFailed. The text
// says which.
[[nodiscard]] std::unique_ptr<Engine> openEngine(const std::string& url, OpenMode mode);

class Store : public ports::DBADatabase {
  public:
    // Owns the engine, which files and records given out keep alive. `clock` dates the history.
    explicit Store(std::shared_ptr<Engine> engine, std::function<Moment()> clock = {});

    [[nodiscard]] std::shared_ptr<ports::DBAFile> OpenFile(const std::string& name) override;
    [[nodiscard]] records::DBARecord Select(const std::string& request) override;
    void atomically(const std::function<void()>& work) override;

    [[nodiscard]] std::vector<std::string> files();

    // The history of this store's records, and who makes the changes from here on.
    [[nodiscard]] Changes& changes() noexcept { return *changes_; }

  private:
    std::shared_ptr<Changes> changes_;

    // Null where hosts have no such file.
    [[nodiscard]] EngineFile* find(const std::string& name);
};

} // namespace vorandine::store
