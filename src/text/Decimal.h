// Exact decimal numbers as read from text: every digit is kept and rounding is done on the digits,
// so that 1,005 rounds as it is written and not as the nearest binary fraction would.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace vorandine::text {

class Decimal {
  public:
    // Zero.
    Decimal() = default;

    // The number written in `written`: blanks (U+0020) at both ends are ignored, then an optional
    // "-", digits, and at most one comma. At least one digit is needed, on either side of the
    // comma: "5,", ",5" and "-0,5" are numbers; "", ",", "-", "1 000" and "1.5" are not.
    [[nodiscard]] static std::optional<Decimal> parse(std::string_view written);

    // Whether parse finds a number.
    [[nodiscard]] static bool isNumber(std::string_view written) noexcept;

    // As parse, but what is no number throws Error(NotANumber) with a French text.
    [[nodiscard]] static Decimal require(std::string_view written);

    [[nodiscard]] bool negative() const noexcept { return negative_; } // false for zero
    [[nodiscard]] bool zero() const noexcept { return digits_.empty(); }
    [[nodiscard]] bool whole() const noexcept { return decimals_ == 0; }

    // Multiplied by ten to the power `places`, which may be negative. Exact.
    [[nodiscard]] Decimal shifted(int places) const;

    // The largest whole number not above the value, in digits, with "-" if negative: -9,5 is "-10".
    [[nodiscard]] std::string floorText() const;

    // With a comma and exactly `decimals` decimals (no comma for 0), at least one integer digit,
    // and "-" if the value is negative, also where it rounds to zero. The last decimal is rounded
    // to the nearest, a half going away from zero.
    [[nodiscard]] std::string toText(int decimals) const;

    // With the decimals that the value has, none if it is whole: what a record holds.
    [[nodiscard]] std::string toText() const { return toText(decimals_); }

    // The value as a whole number of 1/10^decimals, rounded as in toText, in digits with "-" if it
    // is not zero and negative: 12,345 in 2 decimals is "1235".
    [[nodiscard]] std::string scaledText(int decimals) const;

  private:
    // The digits of the value times 10^decimals_, without leading zeros; none for zero. The last
    // decimal is never 0, so that one value has one form.
    std::string digits_;
    int decimals_ = 0;
    bool negative_ = false;

    void normalise();
    [[nodiscard]] std::string roundedDigits(int decimals) const;
};

} // namespace vorandine::text
