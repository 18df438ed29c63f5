// The rest is counted, in words that agree with the figure.
#include "text/Listing.h"

#include "text/Characters.h"

#include <algorithm>

namespace vorandine::text {

std::string Listed(const std::vector<std::string>& texts, std::size_t most,
                   const std::string& between, const std::string& beforeRest) {
    std::string all;
    for (std::size_t i = 0; i < std::min(texts.size(), most); ++i)
        all += (i > 0 ? between : "") + texts[i];
    if (texts.size() > most) {
        const std::size_t rest = texts.size() - most;
        all += beforeRest + "et " + std::to_string(rest) + (rest == 1 ? " autre" : " autres");
    }
    return all;
}

std::string Shortened(const std::string& text, std::size_t most) {
    return Len(text) > most ? Left(text, most) + "…" : text;
}

} // namespace vorandine::text
