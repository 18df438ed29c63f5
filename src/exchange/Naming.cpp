// Numbers and dictionary names.
#include "exchange/Naming.h"

#include "records/Layout.h"

#include <charconv>

namespace vorandine::exchange {

int attributeOf(std::string_view file, const std::string& word) {
    if (const auto named = records::dictionaryAttribute(file, word))
        return *named;
    int number = 0;
    const char* const end = word.data() + word.size();
    const auto [rest, error] = std::from_chars(word.data(), end, number);
    if (error != std::errc() || rest != end || number < 0 || number > records::LastAttribute)
        throw NamingError("'" + word + "' is neither the number of an attribute nor a name that " +
                          std::string(file) + " has for one");
    return number;
}

} // namespace vorandine::exchange
