// One line of a scenario, taken apart word by word.
#pragma once

#include <nlohmann/json_fwd.hpp>

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace vorandine::scenario {

// Words are separated by blanks or tabs; a word is bare or a JSON string. Every member throws
// LineError where the line does not hold what is asked for.
class Words {
  public:
    // `line` must outlive the words.
    explicit Words(std::string_view line) : rest_(line) { skipBlanks(); }

    [[nodiscard]] bool atEnd() const noexcept { return rest_.empty(); }
    // The next word; `what` names it where it is missing.
    std::string word(std::string_view what);
    // All words that are left, which may be none.
    std::vector<std::string> words();
    // The rest of the line as one JSON value.
    nlohmann::json json();
    // Throws unless every word was taken.
    void end() const;
    // What is left of the line.
    [[nodiscard]] std::string_view rest() const noexcept { return rest_; }
    // Ends these words before the first bare word `mark`, and gives those behind it; none where it
    // does not stand.
    std::optional<Words> cutAt(std::string_view mark);

  private:
    std::string_view rest_;

    void skipBlanks();
    std::string_view quoted() const;
};

// On one line, no blank after ',' and ':', characters outside ASCII as they are.
[[nodiscard]] std::string toText(const nlohmann::json& value);
[[nodiscard]] std::string toText(const std::string& text);

} // namespace vorandine::scenario
