// What other seats have made of a file that is open here, in words, from the history.
#pragma once

#include "apps/host/News.h"
#include "ports/DateObject.h"

#include <memory>
#include <string>
#include <vector>

namespace vorandine::host {

struct NewsInWords {
    std::string head;               // "SYLVIE, à 10:42"
    std::vector<std::string> lines; // one at least
};

// One for each change, in their order. Throws what the store throws.
[[nodiscard]] std::vector<NewsInWords> newsInWords(const std::shared_ptr<store::Store>& store,
                                                   const std::string& code,
                                                   const std::vector<OtherChange>& changes,
                                                   const ports::DateObject& dates);

} // namespace vorandine::host
