// How a store lies in an SQLite file, and what a file must be to be one. docs/store.md tells the
// same to people.
#pragma once

#include "store/Store.h"
#include "store/sqlite/SqliteDatabase.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace vorandine::store::sqlite {

// "VRDN", in the header of the SQLite file: the store is ours.
constexpr std::int64_t ApplicationId = 0x5652444E;
constexpr std::int64_t FormatVersion = 2;
constexpr std::int64_t WithoutHistory = 1; // the format before; the history's table is all it lacks
// A record above a quarter of a page is kept apart from its key, and costs a second read.
constexpr int PageBytes = 16384;

// All tables, and the statement that makes one, exactly as SQLite keeps it.
[[nodiscard]] std::vector<std::string> tables();
[[nodiscard]] std::string createTable(std::string_view file);

// Throws Error(number): "La base « path » why".
[[noreturn]] void refuse(std::uint32_t number, const std::string& path, const std::string& why);

// The absolute path, which no spelling of SQLite's own (":memory:", "file:") can hide in, after the
// checks that need no connection; throws as openEngine does.
[[nodiscard]] std::string checkedPath(const std::string& given, OpenMode mode);

// How many names (hard links) the file has; 0 where it is gone.
[[nodiscard]] std::uintmax_t nameCount(const std::string& path) noexcept;

// The type of the file system that `path` lies on, where that is one over a network; else "", also
// where that cannot be found out.
[[nodiscard]] std::string networkFileSystem(const std::string& path);

// Throws Error(NotADatabase) for an empty file, Error(OtherProgram) for one of another program,
// Error(OtherVersion) for a store of a format that this program does not know.
void requireStore(SqliteDatabase& database);

} // namespace vorandine::store::sqlite
