// Decimal arithmetic on strings of digits: reading, moving the comma, rounding, writing.
#include "text/Decimal.h"

#include "text/Error.h"

#include <algorithm>
#include <cstddef>

namespace vorandine::text {
namespace {

// A written number in pieces.
struct Written {
    bool negative = false;
    std::string_view whole;
    std::string_view decimals; // behind the comma
};

std::optional<Written> piecesOf(std::string_view text) noexcept {
    while (text.starts_with(' '))
        text.remove_prefix(1);
    while (text.ends_with(' '))
        text.remove_suffix(1);
    Written pieces;
    pieces.negative = text.starts_with('-');
    text.remove_prefix(pieces.negative ? 1 : 0);
    const auto digits = [&text] {
        std::size_t count = 0;
        while (count < text.size() && text[count] >= '0' && text[count] <= '9')
            ++count;
        const std::string_view found = text.substr(0, count);
        text.remove_prefix(count);
        return found;
    };
    pieces.whole = digits();
    if (text.starts_with(',')) {
        text.remove_prefix(1);
        pieces.decimals = digits();
    }
    if (!text.empty() || (pieces.whole.empty() && pieces.decimals.empty()))
        return std::nullopt;
    return pieces;
}

} // namespace

bool Decimal::isNumber(std::string_view written) noexcept {
    return piecesOf(written).has_value();
}

std::optional<Decimal> Decimal::parse(std::string_view written) {
    const std::optional<Written> pieces = piecesOf(written);
    if (!pieces)
        return std::nullopt;
    Decimal number;
    number.negative_ = pieces->negative;
    number.digits_.append(pieces->whole).append(pieces->decimals);
    number.decimals_ = static_cast<int>(pieces->decimals.size());
    number.normalise();
    return number;
}

Decimal Decimal::require(std::string_view written) {
    if (const std::optional<Decimal> number = parse(written))
        return *number;
    throw Error(errors::NotANumber, "« " + std::string(written) + " » n'est pas un nombre.");
}

void Decimal::normalise() {
    while (decimals_ > 0 && !digits_.empty() && digits_.back() == '0') {
        digits_.pop_back();
        --decimals_;
    }
    digits_.erase(0, std::min(digits_.find_first_not_of('0'), digits_.size()));
    if (digits_.empty()) {
        decimals_ = 0;
        negative_ = false;
    }
}

Decimal Decimal::shifted(int places) const {
    Decimal moved = *this;
    if (zero())
        return moved;
    moved.decimals_ -= places;
    if (moved.decimals_ < 0) {
        moved.digits_.append(static_cast<std::size_t>(-moved.decimals_), '0');
        moved.decimals_ = 0;
    }
    moved.normalise();
    return moved;
}

// The digits of the absolute value times 10^decimals, rounded half away from zero; at least one
// more digit than there are decimals.
std::string Decimal::roundedDigits(int decimals) const {
    std::string digits = digits_;
    if (decimals >= decimals_) {
        digits.append(static_cast<std::size_t>(decimals - decimals_), '0');
    } else {
        const auto dropped = static_cast<std::size_t>(decimals_ - decimals);
        if (digits.size() < dropped)
            digits.insert(0, dropped - digits.size(), '0');
        const std::size_t kept = digits.size() - dropped;
        const bool up = digits[kept] >= '5';
        digits.resize(kept);
        if (up) {
            std::size_t i = kept;
            while (i > 0 && digits[i - 1] == '9')
                digits[--i] = '0';
            if (i > 0)
                ++digits[i - 1];
            else
                digits.insert(0, 1, '1');
        }
    }
    const auto least = static_cast<std::size_t>(decimals) + 1;
    if (digits.size() < least)
        digits.insert(0, least - digits.size(), '0');
    return digits;
}

std::string Decimal::toText(int decimals) const {
    std::string text = roundedDigits(decimals);
    if (decimals > 0)
        text.insert(text.size() - static_cast<std::size_t>(decimals), 1, ',');
    return negative_ ? "-" + text : text;
}

std::string Decimal::scaledText(int decimals) const {
    std::string digits = roundedDigits(decimals);
    digits.erase(0, std::min(digits.find_first_not_of('0'), digits.size() - 1));
    return negative_ && digits != "0" ? "-" + digits : digits;
}

std::string Decimal::floorText() const {
    const auto decimals = static_cast<std::size_t>(decimals_);
    std::string integer =
        digits_.size() > decimals ? digits_.substr(0, digits_.size() - decimals) : "0";
    if (!negative_)
        return integer;
    if (whole())
        return "-" + integer;
    // One below the integer part: rounding the half below it away from zero gives just that.
    Decimal below;
    below.digits_ = integer + "5";
    below.decimals_ = 1;
    return "-" + below.roundedDigits(0);
}

} // namespace vorandine::text
