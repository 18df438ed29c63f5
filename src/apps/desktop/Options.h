// What the command line of vorandine says, and where the demonstration store is.
#pragma once

#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

namespace vorandine::desktop {

struct Options {
    std::string store;               // a URL; "" where none was given
    std::optional<std::string> user; // a login
    std::optional<std::string> open; // a caregiver's code
    bool help = false;
    bool version = false;
};

// In French, for standard error: what is wrong with the arguments.
class UsageError : public std::invalid_argument {
  public:
    using std::invalid_argument::invalid_argument;
};

extern const char* const Help;

// Takes the words behind the program's name. Throws UsageError.
[[nodiscard]] Options parse(const std::vector<std::string>& words);

// The file that ./run fills with the demonstration data, below the user's data folder.
[[nodiscard]] std::string demonstrationFile();

} // namespace vorandine::desktop
