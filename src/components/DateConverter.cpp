// Dates taken apart on their slashes or by their length, and held against the calendar.
#include "components/DateConverter.h"

#include "text/Characters.h"

#include <chrono>
#include <cstddef>
#include <optional>
#include <string_view>
#include <utility>
#include <vector>

namespace vorandine::components {
namespace {

constexpr int YearsBack = 80;
constexpr int FirstYear = 1900;
constexpr int LastYear = 2099;

// The number in `digits`, which must be digits alone, at least `least` and at most `most` of them.
std::optional<int> number(std::string_view digits, std::size_t least, std::size_t most) {
    if (digits.size() < least || digits.size() > most)
        return std::nullopt;
    int value = 0;
    for (const char c : digits) {
        if (c < '0' || c > '9')
            return std::nullopt;
        value = value * 10 + (c - '0');
    }
    return value;
}

std::vector<std::string_view> between(std::string_view text, char separator) {
    std::vector<std::string_view> pieces;
    for (std::size_t from = 0;;) {
        const std::size_t to = text.find(separator, from);
        pieces.push_back(text.substr(from, to == std::string_view::npos ? to : to - from));
        if (to == std::string_view::npos)
            return pieces;
        from = to + 1;
    }
}

// The date if there is one of these numbers. Nobody here has to do with other years: a date of one
// was typed in another order, or is none.
std::optional<widgets::Date> calendarDate(int year, int month, int day) noexcept {
    if (year < FirstYear || year > LastYear)
        return std::nullopt;
    // Most days are in any month, and need no calendar.
    if (month >= 1 && month <= 12 && day >= 1 && day <= 28)
        return widgets::Date{year, month, day};
    const std::chrono::year_month_day date{std::chrono::year(year),
                                           std::chrono::month(static_cast<unsigned>(month)),
                                           std::chrono::day(static_cast<unsigned>(day))};
    if (!date.ok())
        return std::nullopt;
    return widgets::Date{year, month, day};
}

std::optional<widgets::Date> calendarDate(std::optional<int> year, std::optional<int> month,
                                          std::optional<int> day) noexcept {
    return year && month && day ? calendarDate(*year, *month, *day) : std::nullopt;
}

// A year of two or four digits. The two-digit ones name the hundred years around `current`.
std::optional<int> typedYear(std::string_view digits, int current) {
    if (digits.size() == 4)
        return number(digits, 4, 4);
    const std::optional<int> lastTwo = number(digits, 2, 2);
    if (!lastTwo)
        return std::nullopt;
    const int first = current - YearsBack;
    return first + (*lastTwo - first % 100 + 100) % 100;
}

std::optional<widgets::Date> typedDate(std::string_view text,
                                       const std::function<widgets::Date()>& today) {
    const std::vector<std::string_view> pieces = between(text, '/');
    if (pieces.size() == 1) {
        if (text.size() != 6 && text.size() != 8)
            return std::nullopt;
        return calendarDate(typedYear(text.substr(4), today().year),
                            number(text.substr(2, 2), 2, 2), number(text.substr(0, 2), 2, 2));
    }
    if (pieces.size() > 3)
        return std::nullopt;
    const int current = today().year;
    return calendarDate(pieces.size() == 3 ? typedYear(pieces[2], current) : current,
                        number(pieces[1], 1, 2), number(pieces[0], 1, 2));
}

// Without a branch for each digit: a check of a store asks it of every date that there is.
std::optional<widgets::Date> storedDate(std::string_view text) noexcept {
    if (text.size() != 8)
        return std::nullopt;
    const auto digit = [&](std::size_t i) { // above 9 if it is none
        return static_cast<unsigned char>(text[i]) - unsigned{'0'};
    };
    bool others = false;
    for (std::size_t i = 0; i < 8; ++i)
        others |= digit(i) > 9;
    const auto number = [&](std::size_t i) {
        return static_cast<int>(digit(i) * 10 + digit(i + 1));
    };
    return others ? std::nullopt : calendarDate(number(0) * 100 + number(2), number(4), number(6));
}

// `value` in at least `width` digits.
std::string digits(int value, std::size_t width) {
    std::string text = std::to_string(value);
    if (text.size() < width)
        text.insert(0, width - text.size(), '0');
    return text;
}

} // namespace

DateConverter::DateConverter(std::function<widgets::Date()> today) : today_(std::move(today)) {}

std::string DateConverter::Saisie_Date(const std::string& text, std::int16_t& /*option*/) {
    const std::optional<widgets::Date> date = typedDate(text::Trim(text), today_);
    return date ? displayed(*date) : text;
}

std::string DateConverter::stored(std::string_view text) {
    const std::vector<std::string_view> pieces = between(text, '/');
    if (pieces.size() != 3)
        return {};
    const std::optional<widgets::Date> date =
        calendarDate(number(pieces[2], 4, 4), number(pieces[1], 1, 2), number(pieces[0], 1, 2));
    return date ? digits(date->year, 4) + digits(date->month, 2) + digits(date->day, 2)
                : std::string();
}

std::string DateConverter::Date_Affichee(const std::string& stored) const {
    const std::optional<widgets::Date> date = storedDate(stored);
    return date ? displayed(*date) : stored;
}

bool DateConverter::isStored(std::string_view text) noexcept {
    return storedDate(text).has_value();
}

} // namespace vorandine::components
