// Texts of users as tool tips, letter for letter.
#pragma once

#include <QString>
#include <QTextDocument>

namespace vorandine::qt {

// Qt takes a tool tip that looks like marked-up text for one.
[[nodiscard]] inline QString plainToolTip(const QString& text) {
    return Qt::mightBeRichText(text) ? "<qt>" + text.toHtmlEscaped() + "</qt>" : text;
}

} // namespace vorandine::qt
