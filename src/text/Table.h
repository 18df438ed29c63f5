// Rows of text in columns that line up in characters.
#pragma once

#include <iosfwd>
#include <string>
#include <vector>

namespace vorandine::text {

class Table {
  public:
    explicit Table(std::vector<std::string> heads) : rows_{std::move(heads)} {}

    // As many cells as there are heads.
    void add(std::vector<std::string> cells) { rows_.push_back(std::move(cells)); }
    // A line of its own, whatever the columns are.
    void addLine(std::string text) { rows_.push_back({std::move(text)}); }
    // Two blanks between columns; no blanks at the end of a line, and nothing that a terminal would
    // obey (Printable).
    void print(std::ostream& out) const;

  private:
    std::vector<std::vector<std::string>> rows_; // the heads first; a line alone is one cell
};

} // namespace vorandine::text
