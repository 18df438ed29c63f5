// What all views share, and which view shows which kind of control.
#include "frontends/qt/View.h"

#include "frontends/qt/ContainerViews.h"
#include "frontends/qt/FieldViews.h"
#include "frontends/qt/ListView.h"
#include "frontends/qt/SimpleViews.h"
#include "widgets/Kinds.h"

namespace vorandine::qt {

void View::layOut(const Scale& scale) {
    // Most inherit it: setting it all the same would be told to everything that stands in the
    // widget.
    if (const QFont font = scale.font(control_.fixedPitch()); widget_.font() != font)
        widget_.setFont(font);
    widget_.setGeometry(scale.rect(control_.place()));
}

void View::sync() {
    if (const bool enabled = control_.Enabled();
        widget_.testAttribute(Qt::WA_ForceDisabled) == enabled)
        widget_.setEnabled(enabled);
    // What nobody sees is not told to assistive tools either.
    if (const bool visible = control_.Visible() && !control_.covered();
        widget_.isVisibleTo(widget_.parentWidget()) != visible)
        widget_.setVisible(visible);
}

namespace {

template <typename Kind, typename ViewOfKind>
auto shownBy(QWidget& parent) {
    return [&parent](Kind& control) -> std::unique_ptr<View> {
        return std::make_unique<ViewOfKind>(control, parent);
    };
}

} // namespace

std::unique_ptr<View> makeView(widgets::Control& control, QWidget& parent) {
    return widgets::match(control, shownBy<widgets::Label, LabelView>(parent),
                          shownBy<widgets::CommandButton, ButtonView>(parent),
                          shownBy<widgets::OptionButton, OptionView>(parent),
                          shownBy<widgets::ScrollBar, BarView>(parent),
                          shownBy<widgets::TextBox, TextBoxView>(parent),
                          shownBy<widgets::ComboBox, ComboView>(parent),
                          shownBy<widgets::ListBox, ListView>(parent),
                          shownBy<widgets::Frame, FrameView>(parent),
                          shownBy<widgets::TabContainer, TabsView>(parent),
                          shownBy<widgets::Surface, SurfaceView>(parent));
}

} // namespace vorandine::qt
