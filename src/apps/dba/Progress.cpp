// Shows itself from half a second on: short work leaves the screen in peace.
#include "apps/dba/Progress.h"

#include <ostream>
#include <utility>

namespace vorandine::dba {
namespace {

using Clock = std::chrono::steady_clock;
constexpr std::chrono::milliseconds Patience{500};
constexpr std::chrono::milliseconds Interval{100};

} // namespace

Progress::Progress(const Console& console, std::string what, std::string unit)
    : err_(console.err), watched_(console.errIsTerminal), what_(std::move(what)),
      unit_(std::move(unit)), next_(Clock::now() + Patience) {}

Progress::~Progress() {
    clear();
}

void Progress::show() {
    const auto now = Clock::now();
    if (now < next_)
        return;
    next_ = now + Interval;
    shown_ = true;
    err_ << '\r' << what_ << ' ' << count_ << ' ' << unit_ << "\x1B[K" << std::flush;
}

void Progress::clear() noexcept {
    if (!shown_)
        return;
    shown_ = false;
    try {
        err_ << "\r\x1B[K" << std::flush;
    } catch (...) { // a terminal that is gone is told of by whoever writes to it next
    }
}

} // namespace vorandine::dba
