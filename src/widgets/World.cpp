// How a date is written on screen.
#include "widgets/World.h"

namespace vorandine::widgets {

std::string displayed(const Date& date) {
    std::string text = "00/00/0000";
    const auto put = [&](std::size_t last, int number) {
        for (; number > 0; number /= 10)
            text[last--] = static_cast<char>('0' + number % 10);
    };
    put(1, date.day % 100);
    put(4, date.month % 100);
    put(9, date.year % 10000);
    return text;
}

} // namespace vorandine::widgets
