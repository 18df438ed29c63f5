// The platform's style with the sizes that belong to text grown in step with it.
#pragma once

#include "frontends/qt/Scale.h"

#include <QProxyStyle>

namespace vorandine::qt {

class ScaledStyle : public QProxyStyle {
    Q_OBJECT

  public:
    // `scale` must outlive the style and may change.
    explicit ScaledStyle(const Scale& scale);

    int pixelMetric(PixelMetric metric, const QStyleOption* option,
                    const QWidget* widget) const override;

  private:
    const Scale& scale_;
};

} // namespace vorandine::qt
