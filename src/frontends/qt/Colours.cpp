// The mixing of colours.
#include "frontends/qt/Colours.h"

#include <cmath>

namespace vorandine::qt {

QColor mixed(const QColor& ink, const QColor& ground, double strength) {
    const auto mix = [strength](int a, int b) {
        return static_cast<int>(std::lround(strength * a + (1 - strength) * b));
    };
    return {mix(ink.red(), ground.red()), mix(ink.green(), ground.green()),
            mix(ink.blue(), ground.blue())};
}

QColor redOn(const QColor& ground) {
    constexpr int Middle = 128;
    return ground.lightness() < Middle ? QColor(255, 138, 128) : QColor(178, 0, 24);
}

QPalette withLegibleClosedText(QPalette palette) {
    constexpr double Text = 0.6;
    constexpr double Selection = 0.3;
    const QColor ink = palette.color(QPalette::Active, QPalette::Text);
    const QColor ground = palette.color(QPalette::Disabled, QPalette::Base);
    palette.setColor(QPalette::Disabled, QPalette::Text, mixed(ink, ground, Text));
    palette.setColor(QPalette::Disabled, QPalette::Highlight, mixed(ink, ground, Selection));
    palette.setColor(QPalette::Disabled, QPalette::HighlightedText, ink);
    return palette;
}

QPalette forNotice(QPalette palette) {
    palette.setColor(QPalette::Window, QColor(255, 206, 84));
    palette.setColor(QPalette::WindowText, QColor(32, 24, 0));
    return palette;
}

} // namespace vorandine::qt
