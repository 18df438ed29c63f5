// A file that a command reads to its end, in a transaction that must not wait for whoever writes
// it.
#pragma once

#include "apps/dba/Console.h"

#include <fstream>
#include <istream>
#include <string>

namespace vorandine::dba {

class Input {
  public:
    // Opens the file `name`, standard input for "-". What is no file on a disk, such as a pipe, is
    // first read to its end into a temporary file, which nobody else sees and which goes with the
    // program. Throws std::runtime_error where that, or the opening, fails.
    Input(const std::string& name, const Console& console);

    [[nodiscard]] std::istream& stream() noexcept { return *stream_; }

  private:
    std::fstream file_;
    std::istream* stream_;

    void keep(std::istream& in, const std::string& name);
};

} // namespace vorandine::dba
