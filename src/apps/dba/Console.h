// What a command reads and writes: the program's own streams, or a test's.
#pragma once

#include <iosfwd>
#include <string>

namespace vorandine::dba {

// The streams are the caller's.
struct Console {
    std::istream& in;
    std::ostream& out; // what was asked for, and nothing else
    std::ostream& err; // what went wrong, questions, progress
    // Whether someone sits there: to answer a question, to watch progress.
    bool inIsTerminal = false;
    bool errIsTerminal = false;
    bool inIsFile = false; // on a disk: it is read as fast as it can be

    // One line each, what was done on `out`, what went wrong on `err` behind the program's name. It
    // may quote what was typed or stored: a terminal gets no control character of it.
    void tell(const std::string& line) const;
    void complain(const std::string& line) const;
};

} // namespace vorandine::dba
