// Words and lines are compared by the letters of the French order.
#include "text/Search.h"

#include "text/Collation.h"

#include <algorithm>

namespace vorandine::text {
namespace {

// The letters of a text without accents and case: the first level of its key.
std::string letters(std::string_view text) {
    std::string key = CollationKey(text);
    key.erase(key.find('\0'));
    return key;
}

} // namespace

Search::Search(std::string_view typed) {
    // Split after folding: what is typed or pasted may hold other blanks than the plain one.
    const std::string blank = letters(" ");
    const std::string folded = letters(typed);
    for (std::size_t from = 0; from < folded.size();) {
        const std::size_t end = std::min(folded.find(blank, from), folded.size());
        if (end > from)
            words_.push_back(folded.substr(from, end - from));
        from = end + blank.size();
    }
}

std::string Search::folded(std::initializer_list<std::string_view> parts) {
    std::string all;
    for (const std::string_view part : parts) {
        all += letters(part);
        all += '\0'; // which no word holds
    }
    return all;
}

bool Search::finds(std::string_view folded) const {
    return std::all_of(words_.begin(), words_.end(), [&](const std::string& word) {
        return folded.find(word) != std::string_view::npos;
    });
}

} // namespace vorandine::text
