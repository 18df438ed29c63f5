// How a store lies in a schema: tables, functions and the mark of the format. docs/store.md tells
// the same to people.
#pragma once

#include "store/Store.h"
#include "store/postgresql/Connection.h"

#include <string>
#include <vector>

namespace vorandine::store::postgresql {

// A key has its place in a page of the index, with the file's name and a moment in the history.
constexpr std::size_t LongestKey = 2600;

// The files, the history among them.
[[nodiscard]] std::vector<std::string> tables();

// Names with their schema, as statements have them.
[[nodiscard]] std::string tableName(const Address& address, const std::string& file);
[[nodiscard]] std::string writerName(const Address& address, const std::string& file);
[[nodiscard]] std::string sessionName(const Address& address);  // of the function
[[nodiscard]] std::string sessionsName(const Address& address); // of the table
// What a statement calls to write alone until the transaction's end; each writer takes its share.
[[nodiscard]] std::string writeAlone(const Address& address);

// Makes the store where there is nothing yet and `mode` wants it, then checks that there is one;
// throws as openEngine does.
void openSchema(Connection& connection, OpenMode mode);

} // namespace vorandine::store::postgresql
