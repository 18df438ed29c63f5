// The three recomputations, side by side.
#include "dif/Balances.h"

#include <algorithm>

namespace vorandine::dif::balances {
namespace {

using text::Fixed4;

// The balance after a line on which hours win over rights.
Fixed4 hoursFirst(Fixed4 before, const Figures& line) {
    return line.hours ? before - *line.hours : before + line.rights.value_or(Fixed4());
}

} // namespace

void allLines(Ledger& ledger) {
    for (std::size_t i = 0; i < ledger.size(); ++i) {
        Figures& line = ledger[i];
        if (i == 0)
            line.balance = line.rights.value_or(Fixed4());
        else if (line.rights)
            line.balance = ledger[i - 1].balance + *line.rights;
        else
            line.balance = ledger[i - 1].balance - line.hours.value_or(Fixed4());
    }
}

void afterRemoval(Ledger& ledger) {
    for (std::size_t i = 1; i < ledger.size(); ++i)
        ledger[i].balance = std::max(hoursFirst(ledger[i - 1].balance, ledger[i]), Fixed4());
}

void afterInsertion(Ledger& ledger, std::size_t inserted) {
    for (std::size_t i = inserted; i < ledger.size(); ++i)
        ledger[i].balance = hoursFirst(i > 0 ? ledger[i - 1].balance : Fixed4(), ledger[i]);
}

} // namespace vorandine::dif::balances
