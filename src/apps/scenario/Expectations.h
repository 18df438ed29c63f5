// The command `expect`: what should be seen, held against what is.
#pragma once

#include "apps/scenario/Looking.h"
#include "apps/scenario/Output.h"
#include "apps/scenario/Words.h"

#include <optional>
#include <string>
#include <vector>

namespace vorandine::scenario {

class Expectations {
  public:
    // All must outlive this.
    Expectations(const Looking& looking, const widgets::FormStack& forms, const Output& output)
        : looking_(looking), forms_(forms), output_(output) {}

    // `words` is what follows the command. Gives what was expected and what was found, for each
    // thing that is not as expected. Throws LineError or
    // std::invalid_argument where the words are wrong.
    [[nodiscard]] std::vector<std::string> check(Words& words) const;

  private:
    const Looking& looking_;
    const widgets::FormStack& forms_;
    const Output& output_;

    [[nodiscard]] std::vector<std::string> checkControl(const std::string& name,
                                                        Words& words) const;
    [[nodiscard]] std::vector<std::string> checkEach(Words& words) const;
    [[nodiscard]] std::optional<std::string> checkOne(const std::string& what, Words& words) const;
    [[nodiscard]] std::optional<std::string> checkRows(Words& words) const;
    [[nodiscard]] std::optional<std::string> checkOutput(const std::string& text) const;
    [[nodiscard]] std::optional<std::string> checkPrinted(const std::string& text) const;
    [[nodiscard]] std::optional<std::string> checkError() const;
    [[nodiscard]] std::optional<std::string> checkSilence() const;
    [[nodiscard]] std::optional<std::string> checkFlags(Words& words, bool enabled) const;
};

} // namespace vorandine::scenario
