// From native events to gestures. The controls own the focus: no native widget takes it by itself,
// and a press reaches its widget only after the leaving rule of the field left has let it.
#pragma once

#include "frontends/qt/KeyInput.h"
#include "frontends/qt/View.h"
#include "widgets/ListBox.h"

#include <QObject>
#include <QPoint>

#include <unordered_map>

class QContextMenuEvent;
class QMouseEvent;
class QWheelEvent;

namespace vorandine::qt {

class FormWindow;

class Input : public QObject {
    Q_OBJECT

  public:
    explicit Input(FormWindow& window);
    Input(const Input&) = delete;
    Input& operator=(const Input&) = delete;
    ~Input() override;

    // From here on what is done to the view's widgets comes as gestures on its control.
    void listenTo(View& view);
    // The view that `widget` belongs to, null if to none.
    [[nodiscard]] View* viewOf(const QObject* widget) const;

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    FormWindow& window_;
    KeyInput keys_;
    std::unordered_map<const QObject*, View*> views_;
    bool swallowing_ = false; // the rest of a press that the focus was kept from
    widgets::ListBox* pressed_ =
        nullptr; // a list that can be dragged, while a button is down on it
    int pressedLine_ = -1;
    bool dragShown_ = false;

    void connectSignals(View& view);
    void followCaret(const View& view, widgets::TextField& field);
    bool press(View& view, QMouseEvent& event);
    bool pressLine(widgets::ListBox& list, View& view, const QMouseEvent& event);
    bool pressTab(widgets::TabContainer& tabs, const View& view, const QMouseEvent& event);
    bool pressRight(View& view, const QMouseEvent& event);
    bool move(const QMouseEvent& event);
    bool release(const QMouseEvent& event);
    void dropped(widgets::ListBox& source, int line, const QMouseEvent& event);
    bool wheel(View& view, QWheelEvent& event);
    void menuKey(View& view);
    void showDrag(bool shown);
    [[nodiscard]] widgets::Control* under(const QPoint& global) const;
};

} // namespace vorandine::qt
