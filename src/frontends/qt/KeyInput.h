// The keyboard: keys to gestures, by the kind of control that has the focus.
#pragma once

#include "frontends/qt/View.h"
#include "widgets/Gestures.h"

class QInputMethodEvent;
class QKeyEvent;

namespace vorandine::qt {

class FieldEdit;
class FormWindow;
class ListView;

class KeyInput {
  public:
    explicit KeyInput(FormWindow& window) : window_(window) {}

    // Each gives whether the event ends here.
    bool press(View& view, QKeyEvent& event);
    bool mnemonic(View& view);
    bool compose(View& view, const QInputMethodEvent& event);

  private:
    FormWindow& window_;

    bool zoomKey(const QKeyEvent& event);
    bool tabKey(const QKeyEvent& event);
    bool onField(View& view, widgets::TextField& field, QKeyEvent& event);
    bool navigate(FieldEdit& edit, widgets::TextField& field, const QKeyEvent& event);
    bool editKey(FieldEdit& edit, widgets::TextField& field, const QKeyEvent& event);
    bool onDropDown(View& view, widgets::ComboBox& combo, const QKeyEvent& event);
    bool onList(const ListView& view, widgets::ListBox& list, const QKeyEvent& event);
    void markAll(widgets::ListBox& list);
    bool onBar(widgets::ScrollBar& bar, const QKeyEvent& event);
    void type(const QString& text);
    void paste();
    bool onTabs(widgets::TabContainer& tabs, const QKeyEvent& event);
    void stepTab(widgets::TabContainer& tabs, int step);
    void press(widgets::Key key);
};

} // namespace vorandine::qt
