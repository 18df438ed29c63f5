// What a scenario prints on standard output, kept as far as later lines ask for it.
#pragma once

#include "text/Error.h"

#include <ostream>
#include <string>
#include <string_view>
#include <vector>

namespace vorandine::scenario {

class Output {
  public:
    // `stream` must outlive the output.
    explicit Output(std::ostream& stream) : stream_(stream) {}

    // What each line printed from here on begins with: whose it is.
    void speaker(const std::string& mark) { speaker_ = mark; }
    // Each prints one line, at once. `event`: something that the last gesture brought about;
    // `answer`: what a line of the scenario asked to see.
    void event(const std::string& line);
    void answer(const std::string& line);

    void beginGesture() noexcept { events_.clear(); }
    // Nothing is printed or kept any more: what still happens is no part of the scenario.
    void mute() noexcept { muted_ = true; }
    [[nodiscard]] bool muted() const noexcept { return muted_; }

    // The last line, and the events since the last gesture began, as they were printed.
    [[nodiscard]] const std::string& last() const noexcept { return last_; }
    [[nodiscard]] const std::vector<std::string>& events() const noexcept { return events_; }
    // Whether a printed line is `text`. What the speaker's own lines begin with may be left out, so
    // that lines shared by several scenarios hold whoever speaks.
    [[nodiscard]] bool is(const std::string& line, const std::string& text) const;
    [[nodiscard]] bool isError(const std::string& line) const;

  private:
    std::ostream& stream_;
    std::string speaker_;
    std::string last_;
    std::vector<std::string> events_;
    bool muted_ = false;

    // Without what the speaker's lines begin with.
    [[nodiscard]] std::string_view said(std::string_view line) const;
};

// error 0x8004000B "…"
[[nodiscard]] std::string errorLine(const Error& error);

} // namespace vorandine::scenario
