// The question before something that cannot be taken back, or not easily.
#pragma once

#include "apps/dba/CommandLine.h"
#include "apps/dba/Console.h"

#include <string>

namespace vorandine::dba {

constexpr Option YesOption{"--yes", "", "do not ask; needed where standard input is no terminal"};

// Whether somebody has said yes: by YesOption, else by an answer to `question`. Throws UsageError
// where nobody is there to be asked.
[[nodiscard]] bool agreed(const CommandLine& line, const Console& console,
                          const std::string& question);

} // namespace vorandine::dba
