// How a date is written on screen.
#include "widgets/World.h"

namespace vorandine::widgets {

std::string displayed(const Date& date) {
    const auto digits = [](int number, std::size_t count) {
        std::string text = std::to_string(number);
        return text.size() < count ? std::string(count - text.size(), '0') + text : text;
    };
    return digits(date.day, 2) + "/" + digits(date.month, 2) + "/" + digits(date.year, 4);
}

} // namespace vorandine::widgets
