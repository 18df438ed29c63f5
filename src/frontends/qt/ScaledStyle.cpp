// Which sizes grow.
#include "frontends/qt/ScaledStyle.h"

#include <QApplication>
#include <QStyleFactory>

#include <algorithm>
#include <cmath>

namespace vorandine::qt {

ScaledStyle::ScaledStyle(const Scale& scale)
    : QProxyStyle(QStyleFactory::create(QApplication::style()->name())), scale_(scale) {}

int ScaledStyle::pixelMetric(PixelMetric metric, const QStyleOption* option,
                             const QWidget* widget) const {
    const int usual = QProxyStyle::pixelMetric(metric, option, widget);
    switch (metric) {
    case PM_ExclusiveIndicatorWidth:
    case PM_ExclusiveIndicatorHeight:
    case PM_RadioButtonLabelSpacing:
    case PM_ScrollBarExtent:
    case PM_TabBarTabHSpace:
    case PM_TabBarTabVSpace:
        return std::max(1, static_cast<int>(std::lround(usual * scale_.factor())));
    default:
        return usual;
    }
}

} // namespace vorandine::qt
