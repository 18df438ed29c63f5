// What a command reads and writes: the program's own streams, or a test's.
#pragma once

#include <iosfwd>

namespace vorandine::dba {

// The streams are the caller's.
struct Console {
    std::istream& in;
    std::ostream& out; // what was asked for, and nothing else
    std::ostream& err; // what went wrong, questions, progress
    // Whether someone sits there: to answer a question, to watch progress.
    bool inIsTerminal = false;
    bool errIsTerminal = false;
};

} // namespace vorandine::dba
