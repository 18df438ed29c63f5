// Rounding of edges, and fonts by pixels.
#include "frontends/qt/Scale.h"

#include <QFontMetrics>
#include <QStringList>

#include <algorithm>
#include <cmath>

namespace vorandine::qt {
namespace {

constexpr double DotsAtFactorOne = 96.0;
constexpr double TwipsInPixel = 15.0;
constexpr double TextPixels = 11.0;
constexpr int SmallestText = 6;

} // namespace

int Scale::length(double pixels) const noexcept {
    return static_cast<int>(std::lround(pixels * factor_ * dots_ / DotsAtFactorOne));
}

int Scale::pixels(int twips) const noexcept {
    return length(twips / TwipsInPixel);
}

QRect Scale::rect(const widgets::Place& place) const noexcept {
    const QPoint corner(pixels(place.left), pixels(place.top));
    const QPoint end(pixels(place.left + place.width), pixels(place.top + place.height));
    return {corner, QSize(end.x() - corner.x(), end.y() - corner.y())};
}

QFont Scale::font(bool fixedPitch) const {
    QFont font;
    // Metric-compatible families first: the places were measured with these widths.
    if (fixedPitch) {
        font.setFamilies({"Courier New", "Liberation Mono", "Cousine", "monospace"});
        font.setStyleHint(QFont::Monospace);
    } else {
        font.setFamilies({"Arial", "Liberation Sans", "Arimo", "sans-serif"});
        font.setStyleHint(QFont::SansSerif);
    }
    // Rounded down: places were measured for the full size, and a pixel more would not fit.
    const double pixels = TextPixels * factor_ * dots_ / DotsAtFactorOne;
    font.setPixelSize(std::max(SmallestText, static_cast<int>(pixels)));
    // Whole-pixel advances would make text grow in leaps, past its place at some factors.
    font.setHintingPreference(QFont::PreferNoHinting);
    return font;
}

QFont fitted(QFont font, const QString& text, int width) {
    while (font.pixelSize() > SmallestText && QFontMetrics(font).horizontalAdvance(text) > width)
        font.setPixelSize(font.pixelSize() - 1);
    return font;
}

} // namespace vorandine::qt
