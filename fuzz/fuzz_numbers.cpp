// Numbers as people type them: read to the last digit, rounded as they are written, and put in a
// fixed form that reads back, in records and in sums.
// An input is the width of a form, a number of decimals, and two texts with a byte 0xFF between.
#include "Property.h"
#include "rules/Numbers.h"
#include "text/Fixed4.h"

#include <algorithm>
#include <limits>
#include <optional>

namespace vorandine::fuzz {
namespace {

using text::Decimal;
using text::Fixed4;
__extension__ using Wide = __int128;

// More digits than that are not worked out here.
constexpr std::size_t MostDigits = 24;
constexpr int MostDecimals = 6;

Wide power(int exponent) {
    Wide result = 1;
    for (; exponent > 0; --exponent)
        result *= 10;
    return result;
}

// The number as amount / 10^decimals.
struct Exact {
    Wide amount = 0;
    int decimals = 0;
    bool tooLong = false;

    // Rounded half away from zero to whole numbers of 1/10^places.
    [[nodiscard]] Wide rounded(int places) const {
        const Wide unit = power(decimals - places); // 1 where there are no more decimals
        const Wide half = amount < 0 ? -unit : unit;
        return (amount * power(places - decimals) * 2 + half) / (unit * 2);
    }
    [[nodiscard]] Wide floor() const {
        return amount / power(decimals) - (amount < 0 && amount % power(decimals) != 0 ? 1 : 0);
    }
};

// What a text means, read a second time in the plainest way.
std::optional<Exact> meaning(std::string_view text) {
    const std::string trimmed = text::Trim(text);
    Exact read;
    const std::size_t from = trimmed.starts_with('-') ? 1 : 0;
    std::size_t digits = 0;
    std::size_t commas = 0;
    for (const char c : trimmed.substr(from)) {
        if (c != ',' && (c < '0' || c > '9'))
            return std::nullopt;
        commas += c == ',' ? 1 : 0;
        digits += c == ',' ? 0 : 1;
        if (c == ',' || digits > MostDigits)
            continue;
        read.amount = read.amount * 10 + (c - '0');
        read.decimals += commas > 0 ? 1 : 0;
    }
    if (digits == 0 || commas > 1)
        return std::nullopt;
    read.tooLong = digits > MostDigits;
    read.amount = from == 1 ? -read.amount : read.amount;
    return read;
}

std::string written(Wide number) {
    std::string text;
    for (Wide rest = number < 0 ? -number : number; rest > 0 || text.empty(); rest /= 10)
        text.insert(text.begin(), static_cast<char>('0' + static_cast<int>(rest % 10)));
    return number < 0 ? "-" + text : text;
}

void checkDecimal(const Decimal& value, const Exact& exact, int decimals) {
    const std::string text = value.toText();
    same(Decimal::require(text).toText(), text, "a number reads back");
    hold(value.zero() == (value.scaledText(0) == "0" && value.whole()), "zero is zero");
    for (const int places : {decimals, -decimals})
        same(value.shifted(places).shifted(-places).toText(), text, "the comma moves back");

    const std::string rounded = value.toText(decimals);
    const Decimal again = Decimal::require(rounded);
    same(again.scaledText(decimals), value.scaledText(decimals), "a rounded number reads back");
    same(again.toText(decimals), again.zero() && value.negative() ? rounded.substr(1) : rounded,
         "a rounded number stays");
    const std::size_t comma = rounded.find(',');
    hold(decimals == 0 ? comma == std::string::npos
                       : comma + 1 + static_cast<std::size_t>(decimals) == rounded.size(),
         "there are as many decimals as asked for");
    hold(rounded.starts_with('-') == value.negative(), "the sign is kept");

    if (exact.tooLong)
        return;
    same(value.scaledText(decimals), written(exact.rounded(decimals)), "a half goes up");
    same(value.floorText(), written(exact.floor()), "the floor is below");
    hold(value.negative() == (exact.amount < 0), "zero has no sign");
}

bool fits(Wide amount) {
    return amount >= std::numeric_limits<std::int64_t>::min() &&
           amount <= std::numeric_limits<std::int64_t>::max();
}

std::optional<Fixed4> fixed(const Decimal& value, const Exact& exact) {
    std::optional<Fixed4> made;
    try {
        made.emplace(value);
        same(made->toDecimal().scaledText(4), value.scaledText(4), "a sum keeps four decimals");
        same(made->toDecimal().toText(), Decimal::require(value.toText(4)).toText(),
             "a sum's text reads back");
    } catch (const Error& error) {
        holdError(error, errors::Overflow);
    }
    hold(exact.tooLong || made.has_value() == fits(exact.rounded(4)), "what fits is taken");
    return made;
}

// The sum or the difference of what both hold, or an overflow that leaves the first as it was.
void checkSum(Fixed4 a, Fixed4 b, bool minus) {
    const auto amount = [](Fixed4 number) {
        return meaning(number.toDecimal().toText(4)).value_or(Exact{}).amount;
    };
    const Fixed4 before = a;
    const Wide expected = amount(a) + (minus ? -amount(b) : amount(b));
    try {
        (void)(minus ? a -= b : a += b);
        hold(fits(expected) && amount(a) == expected, "sums are exact");
    } catch (const Error& error) {
        holdError(error, errors::Overflow);
        hold(!fits(expected) && a == before, "a sum that does not fit changes nothing");
    }
}

void checkForm(const std::string& text, const std::optional<Decimal>& value, int wholes,
               int decimals, bool withSign) {
    if (!text::IsPlain(text))
        return; // no record and no field gives such a text, and the refusal would show it
    const auto width = static_cast<std::int16_t>(wholes);
    const auto places = static_cast<std::int16_t>(decimals);
    try {
        const std::string form = rules::Format_Numerique(text, width, places, withSign);
        hold(value.has_value(), "only a number is formatted");
        const std::string number = value->toText(decimals);
        const std::size_t floor = value->floorText().size();
        const std::size_t blanks = form.size() - std::min(form.size(), number.size());
        same(form, std::string(blanks, ' ') + number, "a form is blanks and the number");
        const std::size_t sign = withSign && !value->negative() ? 1 : 0;
        const auto integers = static_cast<std::size_t>(wholes);
        hold(blanks == sign + integers - std::min(integers, floor),
             "commas stand one below another");
        const std::size_t behind = decimals > 0 ? static_cast<std::size_t>(decimals) + 1 : 0;
        if (number.size() - behind == floor && floor <= integers)
            hold(form.size() == integers + behind + sign, "a number that fits fills its form");
    } catch (const Error& error) {
        holdError(error, errors::NotANumber);
        hold(!value, "a number is formatted");
    }
}

} // namespace

void check(Input input) {
    const int form = input.byte();
    const int wholes = 1 + form % 16;
    const int decimals = input.number(MostDecimals);
    const std::string text(input.piece());
    const std::optional<Decimal> value = Decimal::parse(text);
    const std::optional<Exact> exact = meaning(text);
    hold(value.has_value() == exact.has_value(), "what is a number is read, and nothing else");
    hold(Decimal::isNumber(text) == exact.has_value(), "a number is told without reading it");
    checkForm(text, value, wholes, decimals, form >= 128);
    if (!value)
        return;
    checkDecimal(*value, *exact, decimals);
    const std::optional<Fixed4> one = fixed(*value, *exact);
    const std::string_view second = input.rest();
    const std::optional<Decimal> other = Decimal::parse(second);
    if (!one || !other)
        return;
    if (const std::optional<Fixed4> two = fixed(*other, meaning(second).value_or(Exact{}))) {
        checkSum(*one, *two, false);
        checkSum(*one, *two, true);
    }
}

} // namespace vorandine::fuzz
