// The 64-bit fixed-point number with 4 decimals in which hours and pay are summed: sums are exact,
// and a result that does not fit is an error instead of a wrong balance.
#pragma once

#include "text/Decimal.h"

#include <compare>
#include <cstdint>
#include <string>

namespace vorandine::text {

// Holds value * 10,000 in 64 bits: from -922 337 203 685 477,5808 to 922 337 203 685 477,5807.
class Fixed4 {
  public:
    Fixed4() = default;

    // Rounds to 4 decimals, a half going away from zero. Throws Error(Overflow) outside the range.
    explicit Fixed4(const Decimal& value);

    // Throw Error(Overflow) if the result does not fit; the operands then keep their values.
    Fixed4& operator+=(Fixed4 other);
    Fixed4& operator-=(Fixed4 other);
    friend Fixed4 operator+(Fixed4 a, Fixed4 b) { return a += b; }
    friend Fixed4 operator-(Fixed4 a, Fixed4 b) { return a -= b; }
    friend auto operator<=>(Fixed4, Fixed4) = default;

    [[nodiscard]] Decimal toDecimal() const;
    [[nodiscard]] double toDouble() const noexcept;

  private:
    std::int64_t tenThousandths_ = 0;
};

} // namespace vorandine::text
