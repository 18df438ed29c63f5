// The colours that a palette has none for, or too faint ones. All are made from the palette at
// hand, light or dark.
#pragma once

#include <QColor>
#include <QPalette>

namespace vorandine::qt {

// `ink` as it would look spread on `ground`: 1 is the ink, 0 the ground.
[[nodiscard]] QColor mixed(const QColor& ink, const QColor& ground, double strength);

// A red that is read on `ground`.
[[nodiscard]] QColor redOn(const QColor& ground);

// `palette` with what stands in closed fields and lists faint, but read: the line being changed
// stands in them.
[[nodiscard]] QPalette withLegibleClosedText(QPalette palette);

// `palette` for a text that must be noticed, on a ground of its own, in a closed frame too.
[[nodiscard]] QPalette forNotice(QPalette palette);

} // namespace vorandine::qt
