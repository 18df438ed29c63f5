// The rows of a table brought into one file of a store, as docs/exchange.md tells.
#pragma once

#include "exchange/Csv.h"
#include "exchange/CsvMapping.h"
#include "exchange/ImportRun.h"
#include "store/Store.h"

#include <string>

namespace vorandine::exchange {

struct TableSource {
    std::string name;  // as complaints call the table
    CsvReader& rows;   // those behind the first; the caller's
    CsvRow first;      // read already, sound if it is the heads: its cells are the columns
    bool heads = true; // whether it is
};

// Stores every row of `table` in one transaction; what is not mapped stays as it is in records that
// are there. `mapping` names none but the table's columns. Each wrong row is told to watch.complain
// as "NAME:LINE: what is wrong", each wrong cell as "NAME:LINE:COLUMN: 'HEAD': what is wrong".
// Throws Error, with nothing stored, if the store fails or has no such file, or if the table cannot
// be read to its end.
[[nodiscard]] ImportResult importTable(store::Store& store, const std::string& file,
                                       const TableSource& table, const CsvMapping& mapping,
                                       const ImportWatch& watch,
                                       BadLines badLines = BadLines::StoreNothing);

} // namespace vorandine::exchange
