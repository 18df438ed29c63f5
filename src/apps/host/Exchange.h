// Bringing records into a store from the exchange format of docs/exchange.md: JSON Lines, one
// record a line.
#pragma once

#include "store/Store.h"

#include <cstddef>
#include <functional>
#include <istream>
#include <optional>
#include <string>
#include <vector>

namespace vorandine::host {

// A stream of lines and the name that complaints give it. The stream is the caller's.
struct ImportSource {
    std::string name;
    std::istream& lines;
};

// Stores every record of `sources`, in order, in one transaction; a later record of the same file
// and key replaces the earlier one. Gives the number of records read if all lines were good.
// Otherwise nothing is stored, each wrong line was told to `complain` as "NAME:LINE: what is wrong"
// (LINE from 1), and there is no result.
// Throws Error, with nothing stored, if the store fails or a source cannot be read to its end.
// Holds one record at a time in memory, whatever the number of lines.
[[nodiscard]] std::optional<std::size_t>
importRecords(store::Store& store, const std::vector<ImportSource>& sources,
              const std::function<void(const std::string&)>& complain);

} // namespace vorandine::host
