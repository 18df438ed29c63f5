// The words behind a subcommand, told apart: options, their values, and the other words in order.
#pragma once

#include <map>
#include <optional>
#include <span>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace vorandine::dba {

using Arguments = std::vector<std::string>;

// Words that make no sense together; the text says why.
class UsageError : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

struct Option {
    std::string_view name;  // with its dashes: "--json"
    std::string_view value; // what stands for its value in the help; empty if it takes none
    std::string_view help;  // one line
    bool repeatable = false;
};

class CommandLine {
  public:
    // Takes "--name value" and "--name=value"; "--" makes words of all that follows, "-" is a word.
    // Throws UsageError for an option that is unknown, that lacks its value, has one too many or
    // stands twice, and for another number of words than `least` to `most`.
    CommandLine(const Arguments& arguments, std::span<const Option> options, std::size_t least,
                std::size_t most);

    [[nodiscard]] bool has(std::string_view option) const { return given_.contains(option); }
    // The value of an option; none where it was not given.
    [[nodiscard]] std::optional<std::string> value(std::string_view option) const;
    // All values of a repeatable option, in order.
    [[nodiscard]] std::vector<std::string> values(std::string_view option) const;
    [[nodiscard]] const Arguments& words() const noexcept { return words_; }

  private:
    std::map<std::string_view, std::vector<std::string>> given_; // by names in the options' table
    Arguments words_;
};

} // namespace vorandine::dba
