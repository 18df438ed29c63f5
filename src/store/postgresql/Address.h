// The URL of a store on a server: what libpq is given of it, and the schema.
#pragma once

#include <string>

namespace vorandine::store::postgresql {

struct Address {
    std::string server; // for libpq
    std::string schema; // as it is called, unquoted
    std::string shown;  // for errors: no options, which may name files of keys
};

// postgresql://USER@HOST,HOST/BASE?OPTIONS#SCHEMA, where all but the scheme may be missing. Throws
// Error(UrlRefused) where it is malformed, and where it holds a password: URLs are shown, logged
// and kept in the lists of processes.
[[nodiscard]] Address parseAddress(const std::string& url);

// The name between the quotes of SQL.
[[nodiscard]] std::string quotedName(const std::string& name);
// The text as a constant of SQL.
[[nodiscard]] std::string quotedText(const std::string& text);

} // namespace vorandine::store::postgresql
