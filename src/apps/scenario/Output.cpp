// Printing line by line.
#include "apps/scenario/Output.h"

#include "apps/scenario/Words.h"
#include "text/Characters.h"

#include <cstdio>

namespace vorandine::scenario {

void Output::answer(const std::string& line) {
    if (muted_)
        return;
    last_ = speaker_ + line;
    stream_ << text::Printable(last_) << '\n' << std::flush;
}

void Output::event(const std::string& line) {
    answer(line);
    if (!muted_)
        events_.push_back(last_);
}

std::string_view Output::said(std::string_view line) const {
    return line.substr(line.starts_with(speaker_) ? speaker_.size() : 0);
}

bool Output::is(const std::string& line, const std::string& text) const {
    return line == text || said(line) == text;
}

bool Output::isError(const std::string& line) const {
    return said(line).starts_with("error ");
}

std::string errorLine(const Error& error) {
    char number[sizeof "0x00000000"];
    std::snprintf(number, sizeof number, "0x%08X", static_cast<unsigned>(error.number()));
    return std::string("error ") + number + " " + toText(error.what());
}

} // namespace vorandine::scenario
