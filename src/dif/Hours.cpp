// One width for all ledgers.
#include "dif/Hours.h"

#include <optional>

namespace vorandine::dif {
namespace {

constexpr std::int16_t WholeDigits = 7;

} // namespace

std::string figureText(const text::Decimal& hours) {
    return rules::Format_Numerique(hours, WholeDigits, Decimals, false);
}

text::Fixed4 hoursOr0(std::string_view shown) {
    const std::optional<text::Decimal> value = text::Decimal::parse(shown);
    return value ? text::Fixed4(*value) : text::Fixed4();
}

std::string plainHours(text::Fixed4 hours) {
    return hours.toDecimal().toText(Decimals);
}

} // namespace vorandine::dif
