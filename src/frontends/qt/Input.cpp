// The mouse, and the signals that native widgets give once a press has passed.
#include "frontends/qt/Input.h"

#include "frontends/qt/ContainerViews.h"
#include "frontends/qt/FieldViews.h"
#include "frontends/qt/FormWindow.h"
#include "frontends/qt/ListView.h"
#include "frontends/qt/QtWorld.h"
#include "widgets/Kinds.h"

#include <QAbstractButton>
#include <QApplication>
#include <QMouseEvent>
#include <QScrollBar>
#include <QTabBar>

namespace vorandine::qt {
namespace {

using widgets::Outcome;

widgets::Modifiers modifiers(const QMouseEvent& event) {
    return {(event.modifiers() & Qt::ControlModifier) != 0,
            (event.modifiers() & Qt::ShiftModifier) != 0};
}

int lineAt(const View& view, const QMouseEvent& event) {
    const ListWidget& list = static_cast<const ListView&>(view).list();
    return list.indexAt(list.viewport()->mapFromGlobal(event.globalPosition().toPoint())).row();
}

} // namespace

Input::Input(FormWindow& window) : window_(window), keys_(window) {}

Input::~Input() {
    showDrag(false);
}

void Input::listenTo(View& view) {
    // The window hears the keys where no control has the focus.
    if (&view.control() == &window_.form()) {
        views_[&window_] = &view;
        window_.installEventFilter(this);
    }
    for (QWidget* const source : view.sources()) {
        views_[source] = &view;
        source->installEventFilter(this);
        source->setFocusPolicy(Qt::NoFocus);
    }
    if (view.control().takesFocus())
        view.focusTarget().setFocusPolicy(Qt::TabFocus);
    connectSignals(view);
}

View* Input::viewOf(const QObject* widget) const {
    for (; widget != nullptr && widget != &window_; widget = widget->parent())
        if (const auto found = views_.find(widget); found != views_.end())
            return found->second;
    return nullptr;
}

void Input::connectSignals(View& view) {
    widgets::Control& control = view.control();
    QWidget* const native = &view.widget();
    const auto onClick = [this, native](auto& button) {
        connect(static_cast<QAbstractButton*>(native), &QAbstractButton::clicked, this,
                [this, &button] { window_.gesture([&] { return widgets::click(button); }); });
    };
    widgets::match(
        control, [&](widgets::CommandButton& button) { onClick(button); },
        [&](widgets::OptionButton& option) { onClick(option); },
        [&](widgets::ScrollBar& bar) {
            connect(static_cast<QScrollBar*>(native), &QScrollBar::valueChanged, this,
                    [this, &bar](int value) {
                        window_.gesture([&] { return widgets::scrollTo(bar, value); });
                    });
        },
        [&](widgets::ComboBox& combo) {
            connect(static_cast<QComboBox*>(native), &QComboBox::activated, this,
                    [this, &combo](int entry) {
                        const std::string text = combo.List(entry);
                        window_.gesture([&] { return widgets::choose(combo, text); });
                    });
            followCaret(view, combo);
        },
        [&](widgets::TextBox& box) { followCaret(view, box); },
        // Their presses are caught before they arrive, or mean nothing.
        [](widgets::ListBox&) {}, [](widgets::TabContainer&) {}, [](widgets::Label&) {},
        [](widgets::Frame&) {}, [](widgets::Surface&) {});
}

void Input::followCaret(const View& view, widgets::TextField& field) {
    for (QWidget* const source : view.sources())
        if (auto* const edit = qobject_cast<FieldEdit*>(source))
            connect(edit, &FieldEdit::caretMoved, this,
                    [edit, &field] { field.select(edit->nativeAnchor(), edit->nativeCaret()); });
}

bool Input::eventFilter(QObject* watched, QEvent* event) {
    const auto found = views_.find(watched);
    if (found == views_.end())
        return QObject::eventFilter(watched, event);
    View& view = *found->second;
    switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
        return press(view, static_cast<QMouseEvent&>(*event));
    case QEvent::MouseMove:
        return move(static_cast<QMouseEvent&>(*event));
    case QEvent::MouseButtonRelease:
        return release(static_cast<QMouseEvent&>(*event));
    case QEvent::Wheel:
        return wheel(view, static_cast<QWheelEvent&>(*event));
    case QEvent::KeyPress:
        return keys_.press(view, static_cast<QKeyEvent&>(*event));
    case QEvent::Shortcut:
        return keys_.mnemonic(view);
    case QEvent::InputMethod:
        return keys_.compose(view, static_cast<QInputMethodEvent&>(*event));
    case QEvent::ContextMenu:
        if (static_cast<QContextMenuEvent&>(*event).reason() == QContextMenuEvent::Keyboard)
            menuKey(view);
        return true;
    default:
        return false;
    }
}

bool Input::press(View& view, QMouseEvent& event) {
    swallowing_ = false;
    pressed_ = nullptr;
    widgets::Control& control = view.control();
    if (event.button() == Qt::RightButton)
        return pressRight(view, event);
    if (event.button() != Qt::LeftButton)
        return true;
    if (auto* const tabs = widgets::as<widgets::TabContainer>(&control))
        return pressTab(*tabs, view, event);
    // Labels and surfaces: the press goes no further, nor to what they stand in.
    if (!control.takesFocus())
        return true;
    const Outcome outcome = window_.gesture([&] { return widgets::moveFocus(control); });
    if (outcome != Outcome::Done || !control.reachable()) {
        swallowing_ = true;
        return true;
    }
    if (auto* const list = widgets::as<widgets::ListBox>(&control))
        return pressLine(*list, view, event);
    return false;
}

// A list that can be dragged waits for the release: let go elsewhere, its selection must have
// stayed as it was.
bool Input::pressLine(widgets::ListBox& list, View& view, const QMouseEvent& event) {
    const int line = lineAt(view, event);
    if (event.type() == QEvent::MouseButtonDblClick) {
        swallowing_ = true;
        if (line >= 0 || list.ListCount() == 0)
            window_.gesture([&] { return widgets::doubleClickLine(list, line); });
    } else if (list.MouseDown) {
        pressed_ = &list;
        pressedLine_ = line;
    } else if (line >= 0) {
        window_.gesture([&] { return widgets::clickLine(list, line, modifiers(event)); });
    }
    return true;
}

bool Input::pressTab(widgets::TabContainer& tabs, const View& view, const QMouseEvent& event) {
    const QTabBar& bar = static_cast<const TabsView&>(view).bar();
    const int tab = bar.tabAt(bar.mapFromGlobal(event.globalPosition().toPoint()));
    if (tab >= 0)
        window_.gesture([&] { return widgets::showTab(tabs, tab); });
    return true;
}

// Either button drags.
bool Input::pressRight(View& view, const QMouseEvent& event) {
    auto* const list = widgets::as<widgets::ListBox>(&view.control());
    if (list != nullptr && list->MouseDown && list->reachable()) {
        pressed_ = list;
        pressedLine_ = lineAt(view, event);
    } else {
        window_.gesture([&] { return widgets::rightClick(view.control()); });
    }
    return true;
}

bool Input::move(const QMouseEvent& event) {
    if (pressed_ == nullptr)
        return swallowing_;
    widgets::Control* const target = under(event.globalPosition().toPoint());
    showDrag(target != nullptr && target != pressed_ && target->DragDrop);
    return true;
}

bool Input::release(const QMouseEvent& event) {
    showDrag(false);
    if (pressed_ != nullptr) {
        widgets::ListBox& source = *std::exchange(pressed_, nullptr);
        dropped(source, pressedLine_, event);
        return true;
    }
    return std::exchange(swallowing_, false);
}

void Input::dropped(widgets::ListBox& source, int line, const QMouseEvent& event) {
    widgets::Control* const target = under(event.globalPosition().toPoint());
    if (target == &source && event.button() == Qt::RightButton)
        window_.gesture([&] { return widgets::rightClick(source); });
    else if (target == &source && line >= 0)
        window_.gesture([&] { return widgets::clickLine(source, line, modifiers(event)); });
    else if (target != &source && target != nullptr)
        window_.gesture([&] { return widgets::drag(source, *target); });
}

// The wheel scrolls what it is over and changes no value in passing: above a bar it scrolls the
// list that the bar stands at.
bool Input::wheel(View& view, QWheelEvent& event) {
    if (listIn(view) != nullptr)
        return false;
    if (widgets::as<widgets::ScrollBar>(&view.control()) != nullptr)
        for (const auto& [widget, other] : views_)
            if (ListView* const list = listIn(*other);
                list != nullptr && runsUnder(list->control(), view.control())) {
                QCoreApplication::sendEvent(list->list().viewport(), &event);
                break;
            }
    return true;
}

// The menu of the nearest surface that has one, from where the focus is. Where it is nowhere, the
// window itself has heard the key: then that of what stands on the form.
void Input::menuKey(View& view) {
    widgets::Control* surface = &view.control();
    if (surface == &window_.form() && !surface->MouseDown && !window_.form().children().empty())
        surface = window_.form().children().front();
    while (surface != nullptr && (!surface->MouseDown || surface->takesFocus()))
        surface = surface->parent();
    if (surface == nullptr)
        return;
    const QWidget& at = view.focusTarget();
    window_.world().menuAt(at.mapToGlobal(QPoint(0, at.height())));
    window_.gesture([&] { return widgets::rightClick(*surface); });
    window_.world().menuAt({});
}

void Input::showDrag(bool shown) {
    if (shown == dragShown_)
        return;
    dragShown_ = shown;
    if (shown)
        QApplication::setOverrideCursor(Qt::DragMoveCursor);
    else
        QApplication::restoreOverrideCursor();
}

widgets::Control* Input::under(const QPoint& global) const {
    return window_.controlAt(window_.mapFromGlobal(global));
}

} // namespace vorandine::qt
