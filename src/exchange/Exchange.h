// Records in the exchange format of docs/exchange.md, JSON Lines, one record a line: brought into a
// store, and written out of one. Either way one record at a time is held in memory, and a line of
// more than 16 MiB is a wrong one.
#pragma once

#include "exchange/ImportRun.h"
#include "store/Engine.h"
#include "store/Store.h"

#include <cstddef>
#include <functional>
#include <istream>
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

namespace vorandine::exchange {

// A stream of lines and the name that complaints give it. The stream is the caller's.
struct ImportSource {
    std::string name;
    std::istream& lines;
};

// Stores every record of `sources`, in order, in one transaction; a later record of the same file
// and key replaces the earlier one. Each wrong line is told to watch.complain as
// "NAME:LINE: what is wrong" (LINE from 1).
// Throws Error, with nothing stored, if the store fails or a source cannot be read to its end.
[[nodiscard]] ImportResult importRecords(store::Store& store,
                                         const std::vector<ImportSource>& sources,
                                         const ImportWatch& watch,
                                         BadLines badLines = BadLines::StoreNothing);

struct ExportResult {
    std::size_t written = 0;
    std::size_t damaged = 0; // records left out, since they are no plain text; each was told of
};

// Writes all records of `file`, whose name is `name`, in binary order of their keys. Ends early
// where `out` fails. Throws what the engine throws.
[[nodiscard]] ExportResult exportRecords(store::EngineFile& file, const std::string& name,
                                         std::ostream& out,
                                         const std::function<void(const std::string&)>& complain,
                                         const std::function<void()>& step);

} // namespace vorandine::exchange
