// The fixed-column lines of the D.I.F. tab: where each piece stands in a line is known here and
// nowhere else. Columns count characters, from 1.
#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>

namespace vorandine::dif {

// Where a piece stands in a line: its first column and its width.
struct Piece {
    std::size_t column;
    std::size_t width;
};

// A line of Lst_DifEmpl, 78 columns; 45 for an employer without a ledger.
//   1 to 35   the employer's name, cut or padded
//   36 to 45  the end of the contract, blank while one is open
//   46 to 56  hours acquired     57 to 67  hours consumed     68 to 78  hours remaining
struct SummaryLine {
    static constexpr std::array<Piece, 5> Columns{
        {{1, 35}, {36, 10}, {46, 11}, {57, 11}, {68, 11}}};

    std::string employer;
    std::string end;
    std::string acquired; // the figures as Format_Numerique writes them; all "" without a ledger
    std::string consumed;
    std::string remaining;

    [[nodiscard]] std::string toText() const;
};

// A line of Lst_DetailDif, 79 columns, one blank between the pieces; 69 before its balance is
// known.
//   1 to 10   the date             12 to 21  rights gained, blank if none
//   23 to 57  the training's label, cut or padded, blank on a rights line
//   59 to 68  hours consumed       70 to 79  the balance after this line
struct DetailLine {
    static constexpr std::array<Piece, 5> Columns{
        {{1, 10}, {12, 10}, {23, 35}, {59, 10}, {70, 10}}};

    std::string date;
    std::string rights;
    std::string label;
    std::string hours;
    std::string balance;

    // The label is cut or padded to its columns, the date padded, figures stand at the right of
    // theirs. A date or a figure wider than its columns is not cut, which would make it another
    // one: see requireInColumns().
    [[nodiscard]] std::string toText() const;

    // What stands in the columns of `line`: figures trimmed, date and label as they stand, blanks
    // included.
    [[nodiscard]] static DetailLine parse(std::string_view line);
    // The date alone, for who walks many lines.
    [[nodiscard]] static std::string dateOf(std::string_view line);

    // Throws Error(FigureTooWide) unless `line` has its pieces in their columns: one that was too
    // wide has moved those behind it, which must then not be read back.
    static void requireInColumns(std::string_view line);

    // `line` with another balance in its last columns.
    [[nodiscard]] static std::string withBalance(std::string_view line, std::string_view balance);
};

// A line of Lst_Dif, the employers to whom a training's hours can be charged.
//   1 to 50   the employer's name, cut or padded     51 to 60  the last balance
//   61 to 73  hours charged; nothing before any were, one blank once they were taken back
struct ChargeLine {
    static constexpr std::array<Piece, 3> Columns{{{1, 50}, {51, 10}, {61, 13}}};

    std::string employer;
    std::string balance; // both as Format_Numerique writes them, which may be one blank short
    std::string hours;

    // Columns 1 to 60, to which the hours are added. Throws Error(FigureTooWide) for a balance
    // wider than its columns: its last digits would be read as hours.
    [[nodiscard]] static std::string head(std::string_view employer, std::string_view balance);
    [[nodiscard]] static std::string headOf(std::string_view line);
    // `head` without hours, once some were taken back.
    [[nodiscard]] static std::string cleared(std::string_view head);

    // `line` with another balance. Throws as head().
    [[nodiscard]] static std::string withBalance(std::string_view line, std::string_view balance);

    // Name and figures trimmed.
    [[nodiscard]] static ChargeLine parse(std::string_view line);
    // Whether hours were charged or taken back here.
    [[nodiscard]] static bool touched(std::string_view line);
};

} // namespace vorandine::dif
