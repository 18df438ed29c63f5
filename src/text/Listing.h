// Several texts told in one: no more of them than a person reads.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace vorandine::text {

// The first `most` of `texts` with `between` between them; where there are more, `beforeRest` and
// "et 3 autres" behind.
[[nodiscard]] std::string Listed(const std::vector<std::string>& texts, std::size_t most,
                                 const std::string& between, const std::string& beforeRest);

// `text`, cut behind `most` characters, with "…" there.
[[nodiscard]] std::string Shortened(const std::string& text, std::size_t most);

} // namespace vorandine::text
