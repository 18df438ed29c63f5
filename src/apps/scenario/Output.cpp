// Printing line by line.
#include "apps/scenario/Output.h"

#include "apps/scenario/Words.h"
#include "text/Characters.h"

#include <cstdio>

namespace vorandine::scenario {

void Output::answer(const std::string& line) {
    if (muted_)
        return;
    stream_ << text::Printable(line) << '\n' << std::flush;
    last_ = line;
}

void Output::event(const std::string& line) {
    answer(line);
    if (!muted_)
        events_.push_back(line);
}

std::string errorLine(const Error& error) {
    char number[sizeof "0x00000000"];
    std::snprintf(number, sizeof number, "0x%08X", static_cast<unsigned>(error.number()));
    return std::string("error ") + number + " " + toText(error.what());
}

} // namespace vorandine::scenario
