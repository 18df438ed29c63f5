// Attributes as people name them.
#pragma once

#include <stdexcept>
#include <string>
#include <string_view>

namespace vorandine::exchange {

// What somebody named is not there, or cannot be meant; `what()` says so.
class NamingError : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

// The attribute that `word` names in the file `file`, by its number or by its dictionary name; 0 is
// the key. Throws NamingError.
[[nodiscard]] int attributeOf(std::string_view file, const std::string& word);

} // namespace vorandine::exchange
