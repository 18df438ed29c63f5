// Fixed-point sums with the compiler's overflow checks.
#include "text/Fixed4.h"

#include "text/Error.h"

#include <charconv>

namespace vorandine::text {
namespace {

[[noreturn]] void overflow() {
    throw Error(errors::Overflow, "Le résultat dépasse la capacité de calcul.");
}

} // namespace

Fixed4::Fixed4(const Decimal& value) {
    const std::string digits = value.scaledText(4);
    const char* const end = digits.data() + digits.size();
    const auto [stop, error] = std::from_chars(digits.data(), end, tenThousandths_);
    if (error != std::errc{} || stop != end)
        overflow();
}

Fixed4& Fixed4::operator+=(Fixed4 other) {
    std::int64_t sum = 0;
    if (__builtin_add_overflow(tenThousandths_, other.tenThousandths_, &sum))
        overflow();
    tenThousandths_ = sum;
    return *this;
}

Fixed4& Fixed4::operator-=(Fixed4 other) {
    std::int64_t difference = 0;
    if (__builtin_sub_overflow(tenThousandths_, other.tenThousandths_, &difference))
        overflow();
    tenThousandths_ = difference;
    return *this;
}

Decimal Fixed4::toDecimal() const {
    return Decimal::require(std::to_string(tenThousandths_)).shifted(-4);
}

double Fixed4::toDouble() const noexcept {
    return static_cast<double>(tenThousandths_) / 10000.0;
}

} // namespace vorandine::text
