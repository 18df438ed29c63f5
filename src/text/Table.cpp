// Widths first, then lines.
#include "text/Table.h"

#include "text/Characters.h"

#include <algorithm>
#include <ostream>

namespace vorandine::text {

void Table::print(std::ostream& out) const {
    std::vector<std::size_t> widths(rows_.front().size());
    for (const auto& row : rows_)
        for (std::size_t i = 0; i < row.size() && row.size() > 1; ++i)
            widths[i] = std::max(widths[i], text::Len(row[i]));
    for (const auto& row : rows_) {
        std::string line;
        for (std::size_t i = 0; i < row.size(); ++i)
            line += text::PadRight(row[i], widths[i]) + "  ";
        line.erase(line.find_last_not_of(' ') + 1);
        out << Printable(line) << '\n';
    }
}

} // namespace vorandine::text
