// What a scenario prints on standard output, kept as far as later lines ask for it.
#pragma once

#include "text/Error.h"

#include <ostream>
#include <string>
#include <vector>

namespace vorandine::scenario {

class Output {
  public:
    // `stream` must outlive the output.
    explicit Output(std::ostream& stream) : stream_(stream) {}

    // Each prints one line, at once. `event`: something that the last gesture brought about;
    // `answer`: what a line of the scenario asked to see.
    void event(const std::string& line);
    void answer(const std::string& line);

    void beginGesture() noexcept { events_.clear(); }
    // Nothing is printed or kept any more: what still happens is no part of the scenario.
    void mute() noexcept { muted_ = true; }
    [[nodiscard]] bool muted() const noexcept { return muted_; }

    [[nodiscard]] const std::string& last() const noexcept { return last_; }
    // The events since the last gesture began.
    [[nodiscard]] const std::vector<std::string>& events() const noexcept { return events_; }

  private:
    std::ostream& stream_;
    std::string last_;
    std::vector<std::string> events_;
    bool muted_ = false;
};

// error 0x8004000B "…"
[[nodiscard]] std::string errorLine(const Error& error);

} // namespace vorandine::scenario
