// Captures as text.
#include "apps/scenario/HeadlessFrontEnd.h"

#include "frontends/headless/TextRenderer.h"
#include "text/Characters.h"

#include <sstream>

namespace vorandine::scenario {

void HeadlessFrontEnd::capture(widgets::Form& form, const std::string& name) {
    if (screens_ == nullptr)
        return;
    std::istringstream lines(name + '\n' + headless::render(form));
    for (std::string line; std::getline(lines, line);)
        *screens_ << text::Printable(line) << '\n';
    screens_->flush();
}

} // namespace vorandine::scenario
