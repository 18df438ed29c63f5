// Whole numbers are compared as they are written: a stored number may have any length.
#include "store/Comparison.h"

#include <algorithm>

namespace vorandine::store {
namespace {

struct WholeNumber {
    bool negative = false;
    std::string_view digits; // without leading zeros; none for zero
};

bool read(std::string_view text, WholeNumber& number) noexcept {
    const bool sign = text.starts_with('-');
    std::string_view digits = text.substr(sign ? 1 : 0);
    if (digits.empty() ||
        !std::all_of(digits.begin(), digits.end(), [](char c) { return c >= '0' && c <= '9'; }))
        return false;
    digits.remove_prefix(std::min(digits.find_first_not_of('0'), digits.size()));
    number = {sign && !digits.empty(), digits};
    return true;
}

std::strong_ordering compareMagnitudes(std::string_view a, std::string_view b) noexcept {
    return a.size() != b.size() ? a.size() <=> b.size() : a <=> b;
}

} // namespace

std::strong_ordering compareValues(std::string_view a, std::string_view b) noexcept {
    WholeNumber left;
    WholeNumber right;
    if (!read(a, left) || !read(b, right))
        return a <=> b;
    if (left.negative != right.negative)
        return left.negative ? std::strong_ordering::less : std::strong_ordering::greater;
    return left.negative ? compareMagnitudes(right.digits, left.digits)
                         : compareMagnitudes(left.digits, right.digits);
}

bool satisfies(std::string_view value, const Alternative& alternative) noexcept {
    switch (alternative.op) {
    case Operator::Equal:
        return alternative.beginsWith ? value.starts_with(alternative.value)
                                      : value == alternative.value;
    case Operator::NotEqual:
        return alternative.beginsWith ? !value.starts_with(alternative.value)
                                      : value != alternative.value;
    case Operator::AtLeast:
        return compareValues(value, alternative.value) >= 0;
    case Operator::AtMost:
        return compareValues(value, alternative.value) <= 0;
    }
    return false;
}

} // namespace vorandine::store
