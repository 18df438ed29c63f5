// From twips to pixels, and the fonts that go with them: one factor for a whole window, so that
// everything on it grows together.
#pragma once

#include "widgets/Control.h"

#include <QFont>
#include <QRect>
#include <QString>

namespace vorandine::qt {

// The zooms that people can set, and what one step up multiplies by.
inline constexpr double SmallestZoom = 0.5;
inline constexpr double LargestZoom = 5.0;
inline constexpr double ZoomStep = 1.1;
// What a window manager puts around a window, in pixels.
inline constexpr int Decoration = 40;

class Scale {
  public:
    // `factor` 1 at 96 dots to the inch; `dots` is what the screen has.
    explicit Scale(double factor = 1.0, double dots = 96.0) : factor_(factor), dots_(dots) {}

    [[nodiscard]] double factor() const noexcept { return factor_; }
    // Edges are rounded, not widths: what touches in twips touches on the screen.
    [[nodiscard]] int pixels(int twips) const noexcept;
    [[nodiscard]] QRect rect(const widgets::Place& place) const noexcept;
    // A length given in pixels at factor 1.
    [[nodiscard]] int length(double pixels) const noexcept;

    // A proportional font, narrow enough for the captions' places, or Courier New.
    [[nodiscard]] QFont font(bool fixedPitch) const;

  private:
    double factor_;
    double dots_;
};

// `font`, smaller as far as needed for `text` to be at most `width` pixels wide.
[[nodiscard]] QFont fitted(QFont font, const QString& text, int width);

} // namespace vorandine::qt
