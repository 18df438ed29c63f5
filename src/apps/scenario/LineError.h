// A line of a scenario that could not be run; `what()` says why. It ends the file.
#pragma once

#include <stdexcept>

namespace vorandine::scenario {

class LineError : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

} // namespace vorandine::scenario
