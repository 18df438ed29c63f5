// The one fixed form of numbers on screen: blanks, integer text, comma, decimals, so that the
// commas of a column stand one under the other.
#pragma once

#include "text/Decimal.h"
#include "widgets/TextField.h"
#include "widgets/World.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace vorandine::rules {

// Records hold hours as whole hundredths: between the two by text::Decimal::shifted.
constexpr int HundredthsPlaces = 2;
// Before the comma, of the hours of a training.
constexpr std::int16_t HoursDigits = 4;

// `W_Texte` written with `W_NbDecimales` decimals, after `W_NbEntiers` less the length of its floor
// blanks: a number of E + 1 + D characters. The floor is what is measured, so -9,50 (floor -10)
// comes one blank short of -7,50. `W_Signe` adds a blank before a number that is not negative.
// Throws Error(NotANumber) for what Decimal does not read. A number wider than E gets no blanks.
[[nodiscard]] std::string Format_Numerique(std::string_view W_Texte, std::int16_t W_NbEntiers,
                                           std::int16_t W_NbDecimales, bool W_Signe);

[[nodiscard]] std::string Format_Numerique(const text::Decimal& value, std::int16_t W_NbEntiers,
                                           std::int16_t W_NbDecimales, bool W_Signe);

// The text that the caller puts in the field `W_Zone`: its number in fixed form. A number too long
// before or after the comma, and a text that is no number, are refused: message, focus back to the
// field, and its text is given back as it stands. A minus sign widens `W_NbEntiers` by 1. A number
// in the form given here is taken again as it stands.
[[nodiscard]] std::string Controle_Numerique(widgets::TextField& W_Zone, std::int16_t& W_NbEntiers,
                                             const std::int16_t& W_NbDecimales,
                                             widgets::World& world);

// The hours of a training: stored hundredths in fixed form (4 integer digits, 2 decimals), and
// back. What is no number stays as it stands.
[[nodiscard]] std::string shownHours(std::string_view stored);
[[nodiscard]] std::string storedHours(std::string_view shown);

} // namespace vorandine::rules
