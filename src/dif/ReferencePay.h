// The reference net hourly pay as a computation: which months count, and what a year of pay comes
// to for an hour.
#pragma once

#include "ports/Database.h"
#include "text/Decimal.h"

#include <optional>
#include <string>

namespace vorandine::dif {

struct PayPeriod {
    std::string start; // first and last month, yyyymm
    std::string end;
};

// The twelve months that end with `month` (0 is January) of `year`.
[[nodiscard]] PayPeriod twelveMonthsTo(int month, int year);

// Whose pay, from whom, over which months.
struct PaySought {
    std::string caregiver;
    std::string employer;
    PayPeriod period;
};

// The lines of pay that count, one a row: key, hours, net pay. An association, whose code has 3
// characters, stands for all codes that begin with its own, lines under collective agreement "02"
// left out. Throws what the request throws.
[[nodiscard]] records::DBARecord payLines(ports::DBADatabase& database, const PaySought& sought);

// Pay over hours of rows as payLines gives them, in which "" stands for 0; with up to 15
// significant digits. Nothing if there is no hour to divide by. Throws Error(NotANumber) for a
// value that is none, Error(Overflow) for sums beyond all pay.
[[nodiscard]] std::optional<text::Decimal> payOverHours(const records::DBARecord& rows);

} // namespace vorandine::dif
