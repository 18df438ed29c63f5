// Writes that fail are errors, which programs can tell and survive; the system's own answer to some
// of them is to end the program, with whatever is unsaved on its screen.
#pragma once

#include <csignal>

namespace vorandine::store {

// From here on a file that would pass the limit of sizes (ulimit -f) is a full disk, and a reader
// who is gone a failed write. For a host's main, before anything else; holds for the whole process
// and for the programs that it starts.
inline void ignoreWriteSignals() noexcept {
    std::signal(SIGXFSZ, SIG_IGN);
    std::signal(SIGPIPE, SIG_IGN);
}

} // namespace vorandine::store
