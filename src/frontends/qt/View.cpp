// What all views share, and which view shows which kind of control.
#include "frontends/qt/View.h"

#include "frontends/qt/ContainerViews.h"
#include "frontends/qt/FieldViews.h"
#include "frontends/qt/ListView.h"
#include "frontends/qt/SimpleViews.h"

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

std::unique_ptr<View> makeView(widgets::Control& control, QWidget& parent) {
    if (auto* const label = dynamic_cast<widgets::Label*>(&control))
        return std::make_unique<LabelView>(*label, parent);
    if (auto* const button = dynamic_cast<widgets::CommandButton*>(&control))
        return std::make_unique<ButtonView>(*button, parent);
    if (auto* const option = dynamic_cast<widgets::OptionButton*>(&control))
        return std::make_unique<OptionView>(*option, parent);
    if (auto* const frame = dynamic_cast<widgets::Frame*>(&control))
        return std::make_unique<FrameView>(*frame, parent);
    if (auto* const box = dynamic_cast<widgets::TextBox*>(&control))
        return std::make_unique<TextBoxView>(*box, parent);
    if (auto* const combo = dynamic_cast<widgets::ComboBox*>(&control))
        return std::make_unique<ComboView>(*combo, parent);
    if (auto* const list = dynamic_cast<widgets::ListBox*>(&control))
        return std::make_unique<ListView>(*list, parent);
    if (auto* const bar = dynamic_cast<widgets::ScrollBar*>(&control))
        return std::make_unique<BarView>(*bar, parent);
    if (auto* const tabs = dynamic_cast<widgets::TabContainer*>(&control))
        return std::make_unique<TabsView>(*tabs, parent);
    return std::make_unique<SurfaceView>(control, parent);
}

} // namespace vorandine::qt
