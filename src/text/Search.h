// What a user types to find lines of a list: each of the words must be found, anywhere, in any
// order; accents and case do not count.
#pragma once

#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

namespace vorandine::text {

class Search {
  public:
    explicit Search(std::string_view typed);

    // What `finds` takes, made once for a line that is searched again and again. A word is never
    // found across two of the parts.
    [[nodiscard]] static std::string folded(std::initializer_list<std::string_view> parts);
    // Without words everything is found.
    [[nodiscard]] bool finds(std::string_view folded) const;

  private:
    std::vector<std::string> words_;
};

} // namespace vorandine::text
