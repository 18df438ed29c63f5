// Tables as spreadsheets write them: cells between separators, in quotes where they hold one.
#pragma once

#include "exchange/LineReader.h"

#include <cstddef>
#include <deque>
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
    CsvReader(std::istream& in, char separator, Encoding encoding);

    // The next row; false at the end. A row of bytes that are not in the encoding, that is longer
    // than a mebibyte, or whose quotes do not close is a faulty one. Cells come as plain text,
    // without blanks around, their line breaks and tabs turned into blanks.
    // A row over several lines is faulty too where a quote too many is likelier: it has another
    // number of cells than the first row, or each line that it goes on with would be a row by
    // itself. Behind one whose quotes are at fault, the next row begins on the next line.
    [[nodiscard]] bool next(CsvRow& row);
    // Whether reading failed before the end.
    [[nodiscard]] bool failed() const { return lines_.failed(); }

  private:
    LineReader lines_;
    char separator_;
    Encoding encoding_;
    std::string text_;              // of the row, lines joined where a quote is open
    std::deque<std::string> ahead_; // lines that were read: those of the row, and those behind
    std::size_t used_ = 0;          // how many of them are the row's
    std::size_t passed_ = 0;        // how many lines stand before them
    std::size_t width_ = 0;         // cells of the first row; 0 where it was not read yet

    // Whether there is a line ahead_[at], which is read if it was not.
    [[nodiscard]] bool have(std::size_t at);
    // Puts the row together out of its lines. Gives what is wrong with its quotes.
    [[nodiscard]] std::optional<std::string> join(CsvRow& row);
    [[nodiscard]] bool takesInRows(const CsvRow& row) const;
    // Adds the cells of text_ from `from` on: 0, or where a quote was open at its end before. False
    // where one is open at its end now.
    [[nodiscard]] bool split(CsvRow& row, std::size_t from) const;
    void finish(CsvRow& row) const;
};

} // namespace vorandine::exchange
