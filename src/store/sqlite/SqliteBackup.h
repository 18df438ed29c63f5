// A copy of an SQLite store made while programs go on using it.
#pragma once

#include "store/Upkeep.h"
#include "store/sqlite/SqliteDatabase.h"

#include <string>

namespace vorandine::store {

// Copies the file of `from` as Upkeep::backUp tells. The copy grows as a PartFile. Writers get
// their turn between two steps; a write by another program makes the copy begin anew, and after
// some of those nobody writes until it is whole.
void backUp(SqliteDatabase& from, const std::string& path, const CopyStep& step);

} // namespace vorandine::store
