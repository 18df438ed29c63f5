// The running balance of a ledger, recomputed. Three ways, which differ on purpose: balances that
// are stored come from all three, and none may be "mended" to agree with another.
//
//                      allLines            afterRemoval         afterInsertion
//   called when        a line was typed,   a training leaves    a training's hours
//                      changed, deleted    the D.I.F.           are charged
//   works on           all lines           from the second on   from the new line on
//   first line         its rights, or 0    kept as it is        0 less its hours
//   both figures       rights win          hours win            hours win
//   negative balance   kept                becomes 0            kept
#pragma once

#include "text/Fixed4.h"

#include <cstddef>
#include <optional>
#include <vector>

namespace vorandine::dif {

// The figures of one line, all in one unit (hours, or hundredths of an hour). What is not there, or
// is no number, counts nothing.
struct Figures {
    std::optional<text::Fixed4> rights;
    std::optional<text::Fixed4> hours;
    text::Fixed4 balance;
};

using Ledger = std::vector<Figures>; // oldest line first

// All three throw Error(Overflow) where a balance does not fit; the balances before it are then
// set.

namespace balances {

// The first line's hours do not count: before it there is nothing to take them from.
void allLines(Ledger& ledger);

// A line that has become the first keeps its balance.
void afterRemoval(Ledger& ledger);

// `inserted` is the position of the new line, from 0.
void afterInsertion(Ledger& ledger, std::size_t inserted);

} // namespace balances
} // namespace vorandine::dif
