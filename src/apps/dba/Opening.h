// How commands open a store and its files.
#pragma once

#include "apps/dba/CommandLine.h"
#include "store/Engine.h"
#include "store/Store.h"

#include <memory>
#include <string>
#include <vector>

namespace vorandine::dba {

const std::string SqliteScheme = "sqlite:";

// Throws Error as store::openEngine does.
[[nodiscard]] std::shared_ptr<store::Engine>
openStore(const std::string& url, store::OpenMode mode = store::OpenMode::Existing);

// Of the commands that are given the file of a store, by its path or by its URL: the path.
[[nodiscard]] std::string pathOf(const std::string& word);

constexpr Option UserOption{"--user", "NAME", "who makes the change (the system's user)"};

// The changes of `store` are from here on by whom UserOption names.
void sign(store::Store& store, const CommandLine& line);

// Throws UsageError, naming the files that there are, if the store has none of that name.
[[nodiscard]] store::EngineFile& engineFile(store::Engine& engine, const std::string& name);

// The files that words name, or all of them if there are none. Throws as engineFile.
[[nodiscard]] std::vector<std::string> filesOf(store::Engine& engine,
                                               std::vector<std::string> words);

} // namespace vorandine::dba
