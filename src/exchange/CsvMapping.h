// Which column of a table becomes which attribute, and how its cells are converted.
#pragma once

#include "records/Layout.h"

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace vorandine::exchange {

struct MappedColumn {
    std::size_t column = 0; // from 0
    std::string head;       // as people call it
    int attribute = 0;      // 0 is the key
    records::Kind kind = records::Kind::Text;
    bool list = false; // each row adds a value
};

class CsvMapping {
  public:
    // `key` names a column; each of `maps` is COLUMN=ATTRIBUTE or COLUMN=ATTRIBUTE:CONVERSION, the
    // attribute by number or dictionary name, the conversion date, hours or text, by default what
    // the attribute holds. Columns are named by their head, or by their number where there are no
    // heads. Throws NamingError (exchange/Naming.h).
    CsvMapping(const std::string& file, const std::string& key,
               const std::vector<std::string>& maps,
               const std::optional<std::vector<std::string>>& heads);

    // The key first.
    [[nodiscard]] const std::vector<MappedColumn>& columns() const noexcept { return columns_; }

  private:
    std::vector<MappedColumn> columns_;
};

struct ConvertedCell {
    std::string stored;
    std::string fault; // why the cell cannot be taken; empty if it can
};

// A cell, without blanks around, in the form in which an attribute of that kind is stored. An empty
// cell is empty in every kind.
[[nodiscard]] ConvertedCell convert(const std::string& cell, records::Kind kind);

} // namespace vorandine::exchange
