// Names for assistive tools: a field is named by its label, as the eye finds it.
#pragma once

#include "frontends/qt/View.h"

#include <memory>
#include <span>

namespace vorandine::qt {

// Names every control that has no caption of its own: by the label to its left in its row, else by
// the labels above it, else by what it stands in; elements of an array get their number too.
void nameForAssistance(std::span<const std::unique_ptr<View>> views);

} // namespace vorandine::qt
