// How one control is shown: a native widget, and the way from the control's state to it. Nothing
// flows back here; what a person does goes through Input.
#pragma once

#include "frontends/qt/Scale.h"
#include "widgets/Form.h"

#include <QString>
#include <QWidget>

#include <memory>
#include <string>
#include <vector>

namespace vorandine::qt {

[[nodiscard]] inline QString shown(const std::string& text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

class View {
  public:
    // `widget` belongs to its native parent.
    View(widgets::Control& control, QWidget& widget) : control_(control), widget_(widget) {}
    View(const View&) = delete;
    View& operator=(const View&) = delete;
    virtual ~View() = default;

    [[nodiscard]] widgets::Control& control() const noexcept { return control_; }
    [[nodiscard]] QWidget& widget() const noexcept { return widget_; }

    // The widget that has the native focus when the control has the focus.
    [[nodiscard]] virtual QWidget& focusTarget() const { return widget_; }
    // The native widgets that a person's events on this control arrive at.
    [[nodiscard]] virtual std::vector<QWidget*> sources() const { return {&widget_}; }
    // What stands on `page` of the control is made a child of this.
    [[nodiscard]] virtual QWidget& ground(int /*page*/) { return widget_; }

    // Place and font for a new scale.
    virtual void layOut(const Scale& scale);
    // From the control to the widget; changes nothing that is right already.
    virtual void sync();

  private:
    widgets::Control& control_;
    QWidget& widget_;
};

// The view for the kind of `control`, its widget a child of `parent`.
[[nodiscard]] std::unique_ptr<View> makeView(widgets::Control& control, QWidget& parent);

} // namespace vorandine::qt
