// Dates as people type them: each is rewritten as the day that is meant, or left as it stands.
// An input is the current year, a day in numbers, and a text.
#include "Property.h"
#include "components/DateConverter.h"

#include <algorithm>
#include <array>

namespace vorandine::fuzz {
namespace {

int currentYear = 2000;
constexpr int Back = 80;
constexpr int Ahead = 19;

bool exists(int day, int month, int year) {
    constexpr std::array<int, 13> Days{0, 31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    const bool leap = year % 4 == 0 && (year % 100 != 0 || year % 400 == 0);
    return year >= 1900 && year <= 2099 && month >= 1 && month <= 12 && day >= 1 &&
           day <= Days[static_cast<std::size_t>(month)] + (month == 2 && leap ? 1 : 0);
}

std::string digits(int number, std::size_t width) {
    std::string text = std::to_string(number);
    return text.insert(0, width - std::min(width, text.size()), '0');
}

std::string shownDay(int day, int month, int year) {
    return digits(day, 2) + '/' + digits(month, 2) + '/' + digits(year, 4);
}

std::string typed(components::DateConverter& dates, const std::string& text) {
    std::int16_t option = 0;
    std::string shown = dates.Saisie_Date(text, option);
    hold(!dates.Erreur_Date(), "dates are refused by their fields");
    return shown;
}

// A text is shown as a date: dd/mm/yyyy of a day that exists.
void checkShown(const components::DateConverter& dates, const std::string& shown) {
    const std::string stored = dates.Date_Stockee(shown);
    hold(stored.size() == 8 && stored.find_first_not_of("0123456789") == std::string::npos,
         "a stored date has eight digits");
    const int number = std::stoi(stored);
    const int year = number / 10000;
    const int month = number / 100 % 100;
    hold(exists(number % 100, month, year), "a date exists");
    same(shown, shownDay(number % 100, month, year), "a date is stored as it is shown");
    same(dates.Date_Affichee(stored), shown, "a stored date is shown as it was");
}

// Any text.
void checkText(components::DateConverter& dates, const std::string& text) {
    const std::string shown = typed(dates, text);
    if (shown != text) {
        checkShown(dates, shown);
        const std::string read = text::Trim(text);
        hold(read.find_first_not_of("0123456789/") == std::string::npos &&
                 std::count(read.begin(), read.end(), '/') <= 2,
             "nothing else is read as a date");
        same(typed(dates, "  " + text + " "), shown, "blanks around do not count");
    }
    same(typed(dates, shown), shown, "a text that was rewritten stays");

    const std::string stored = dates.Date_Stockee(text);
    if (!stored.empty()) {
        checkShown(dates, shown);
        same(dates.Date_Stockee(shown), stored, "what can be stored is read as that day");
    }
    const std::string displayed = dates.Date_Affichee(text);
    hold(components::DateConverter::isStored(text) == (displayed != text),
         "what is a stored date is shown as one");
    if (displayed != text) {
        checkShown(dates, displayed);
        same(dates.Date_Stockee(displayed), text, "only a stored date is shown as one");
    }
}

// Every way of typing one day.
void checkDay(components::DateConverter& dates, int day, int month, int year) {
    const std::string shown = shownDay(day, month, year);
    const bool is = exists(day, month, year);
    const auto reads = [&](const std::string& text) {
        same(typed(dates, text), is ? shown : text, "a day is read where it exists");
    };
    const std::string slashes = std::to_string(day) + '/' + std::to_string(month) + '/';
    const std::string twoDigits = digits(day, 2) + digits(month, 2);
    reads(shown);
    reads(slashes + digits(year, 4));
    reads(twoDigits + digits(year, 4));
    if (year == currentYear)
        reads(digits(day, 2) + '/' + std::to_string(month));
    if (year >= currentYear - Back && year <= currentYear + Ahead) {
        reads(slashes + digits(year % 100, 2));
        reads(twoDigits + digits(year % 100, 2));
    }
    same(dates.Date_Stockee(slashes + digits(year, 4)),
         is ? digits(year, 4) + digits(month, 2) + digits(day, 2) : "",
         "a day is stored where it exists");
}

} // namespace

void check(Input input) {
    static components::DateConverter dates([] { return widgets::Date{currentYear, 10, 15}; });
    currentYear = 1900 + input.byte();
    const int day = input.number(99);
    const int month = input.number(15);
    // Half of the years lie about where those of two digits end.
    const int high = input.byte();
    const int low = input.byte();
    const int year = high % 2 == 0 ? currentYear - Back - 2 + low % (Back + Ahead + 5)
                                   : (high << 8 | low) % 10000;
    checkDay(dates, day, month, year);
    checkText(dates, std::string(input.rest()));
}

} // namespace vorandine::fuzz
