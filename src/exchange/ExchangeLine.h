// A line of the exchange format in the one form that programs write it: read straight into the text
// of a record, some ten times faster than by way of a tree, with which an import would take more
// than twice as long as bench_exchange allows.
#pragma once

#include <string>
#include <string_view>

namespace vorandine::exchange {

struct ExchangeLine {
    std::string_view file; // lies in the line
    std::string_view key;  // likewise
    std::string record;    // whole text
};

// Whether `line` is {"file":…,"key":…,"record":{…}} in that order, without blanks between, its
// attributes ascending and its texts plain, without escapes; `read` is then what any reader of JSON
// would make of it. False says nothing about the line, which then is for that reader; `read` is
// undefined.
[[nodiscard]] bool readExchangeLine(std::string_view line, ExchangeLine& read);

// Puts the line of a record behind what `line` holds, in that form and with its line break. Key and
// record must be plain.
void appendExchangeLine(std::string& line, std::string_view file, std::string_view key,
                        std::string_view record);

} // namespace vorandine::exchange
