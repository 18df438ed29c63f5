// What the fuzzers share: properties that end the program when they are broken, so that the input
// is kept, inputs taken apart, and the way in. Each fuzzer defines `check`.
#pragma once

#include "text/Characters.h"
#include "text/Error.h"

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>
#include <vector>

namespace vorandine::fuzz {

// Ends the program with `property`, which says what ought to have held, on standard error.
inline void hold(bool holds, const char* property) {
    if (holds)
        return;
    std::fprintf(stderr, "broken: %s\n", property);
    std::abort();
}

inline void same(std::string_view found, std::string_view expected, const char* property) {
    if (found == expected)
        return;
    std::fprintf(stderr, "found <%.*s>, expected <%.*s>\n", static_cast<int>(found.size()),
                 found.data(), static_cast<int>(expected.size()), expected.data());
    hold(false, property);
}

// Errors come before the staff's eyes: of the number expected, with a text that can be shown.
inline void holdError(const Error& error, std::uint32_t number) {
    hold(error.number() == number, "only the error that is documented is thrown");
    hold(text::IsPlain(error.what()) && *error.what() != '\0', "an error says why, in plain text");
}

inline std::vector<std::string_view> split(std::string_view text, char separator) {
    std::vector<std::string_view> pieces;
    for (;;) {
        const std::size_t end = std::min(text.find(separator), text.size());
        pieces.push_back(text.substr(0, end));
        if (end == text.size())
            return pieces;
        text.remove_prefix(end + 1);
    }
}

// The bytes of an input, from the front.
class Input {
  public:
    Input(const std::uint8_t* bytes, std::size_t size)
        : rest_(size > 0 ? reinterpret_cast<const char*>(bytes) : "", size) {}

    [[nodiscard]] std::string_view rest() const noexcept { return rest_; }
    [[nodiscard]] bool empty() const noexcept { return rest_.empty(); }

    // The next byte, 0 past the end.
    std::uint8_t byte() noexcept {
        const std::uint8_t first = rest_.empty() ? 0 : static_cast<std::uint8_t>(rest_.front());
        rest_.remove_prefix(rest_.empty() ? 0 : 1);
        return first;
    }
    // From 0 to `last`.
    int number(int last) noexcept { return byte() % (last + 1); }
    // What stands before the next byte 0xFF, which no text of the system holds.
    std::string_view piece() noexcept {
        const std::string_view before = rest_.substr(0, rest_.find('\xFF'));
        rest_.remove_prefix(std::min(before.size() + 1, rest_.size()));
        return before;
    }

  private:
    std::string_view rest_;
};

void check(Input input);

} // namespace vorandine::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    vorandine::fuzz::check({bytes, size});
    return 0;
}
