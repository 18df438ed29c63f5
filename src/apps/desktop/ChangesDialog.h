// What other seats have changed of the file that is open, to read.
#pragma once

#include "apps/host/NewsInWords.h"

#include <vector>

class QWidget;

namespace vorandine::desktop {

// Returns when it was read.
void showChanges(QWidget& parent, const std::vector<host::NewsInWords>& changes);

} // namespace vorandine::desktop
