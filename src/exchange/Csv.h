// Tables as spreadsheets write them: cells between separators, in quotes where they hold one.
#pragma once

#include <cstddef>
#include <istream>
#include <optional>
#include <string>
#include <vector>

namespace vorandine::exchange {

enum class Encoding { Utf8, Windows1252 };

struct CsvRow {
    std::size_t line = 0; // where it begins, from 1
    std::vector<std::string> cells;
    // Why the row cannot be used; its cells are then not to be read.
    std::optional<std::string> fault;
    std::size_t faultColumn = 0; // from 1; 0 where it is of the row

    // Whether no cell holds anything, as in the rows that spreadsheets put at the end.
    [[nodiscard]] bool empty() const;
};

// Reads one row at a time. `in` is the caller's.
class CsvReader {
  public:
    CsvReader(std::istream& in, char separator, Encoding encoding)
        : in_(in), separator_(separator), encoding_(encoding) {}

    // The next row; false at the end. A row of bytes that are not in the encoding, that is longer
    // than a mebibyte, or whose quotes do not close is a faulty one. Cells come as plain text,
    // without blanks around, their line breaks and tabs turned into blanks.
    [[nodiscard]] bool next(CsvRow& row);
    // Whether reading failed before the end.
    [[nodiscard]] bool failed() const { return in_.bad(); }

  private:
    std::istream& in_;
    char separator_;
    Encoding encoding_;
    std::string text_; // of the row, lines joined where a quote is open
    std::size_t line_ = 0;

    [[nodiscard]] bool readLine(std::string& to);
    // Adds the cells of text_ from `from` on: 0, or where a quote was open at its end before. False
    // where one is open at its end now.
    [[nodiscard]] bool split(CsvRow& row, std::size_t from) const;
    void finish(CsvRow& row) const;
};

} // namespace vorandine::exchange
