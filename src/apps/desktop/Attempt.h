// Running what may fail where nothing may be thrown further: at the edge of Qt's event loop.
#pragma once

#include <QString>

#include <functional>

class QWidget;

namespace vorandine::desktop {

// Runs `work`; false if it threw, after a dialog in front of `parent` (may be null) has told the
// user what `failed`, a sentence, and why.
bool attempt(QWidget* parent, const QString& failed, const std::function<void()>& work);

} // namespace vorandine::desktop
