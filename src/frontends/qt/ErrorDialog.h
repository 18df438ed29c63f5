// The one dialog in which the user learns of an error that left a handler.
#pragma once

#include "text/Error.h"

class QWidget;

namespace vorandine::qt {

// Shows, in French, what failed, what was kept and what to do, with the error's own text and number
// on demand. Returns when it was read. `parent` may be null.
void showError(QWidget* parent, const Error& error);

} // namespace vorandine::qt
