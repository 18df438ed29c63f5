// Hours as the D.I.F. tab and its forms write and read them: hundredths in records, hours with a
// comma on screen.
#pragma once

#include "rules/Numbers.h"
#include "text/Decimal.h"
#include "text/Fixed4.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace vorandine::dif {

using rules::HundredthsPlaces;

// Decimals of an hour on screen.
inline constexpr std::int16_t Decimals = 2;

// The fixed form of a figure in a ledger: 7 digits, a comma, 2 decimals, blanks before.
[[nodiscard]] std::string figureText(const text::Decimal& hours);

// A shown number; 0 for a text that is none. Throws Error(Overflow) for one beyond all hours.
[[nodiscard]] text::Fixed4 hoursOr0(std::string_view shown);

// "7,50": in a sentence.
[[nodiscard]] std::string plainHours(text::Fixed4 hours);

} // namespace vorandine::dif
