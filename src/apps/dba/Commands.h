// The subcommands of vorandine-dba. Each takes the words after its name and gives the exit status;
// a store that cannot be opened or fails leaves as vorandine::Error.
#pragma once

#include <stdexcept>
#include <string>
#include <vector>

namespace vorandine::dba {

enum ExitStatus {
    Done = 0,
    WrongData = 1, // a line of the input is wrong; nothing was stored
    CannotRun = 2, // wrong arguments, a file that cannot be read, a store that fails
};

using Arguments = std::vector<std::string>;

// Words that make no sense together; the text says why.
class UsageError : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

int create(const Arguments& arguments);
int import(const Arguments& arguments);

} // namespace vorandine::dba
