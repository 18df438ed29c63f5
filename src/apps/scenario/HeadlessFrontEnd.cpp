// Captures as text.
#include "apps/scenario/HeadlessFrontEnd.h"

#include "frontends/headless/TextRenderer.h"

namespace vorandine::scenario {

void HeadlessFrontEnd::capture(widgets::Form& form, const std::string& name) {
    if (screens_ != nullptr)
        *screens_ << name << '\n' << headless::render(form) << std::flush;
}

} // namespace vorandine::scenario
