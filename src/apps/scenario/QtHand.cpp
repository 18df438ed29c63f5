// Mouse and keys as the platform sends them: to the window, not to the widget.
#include "apps/scenario/QtHand.h"

#include "apps/scenario/LineError.h"
#include "frontends/qt/FormWindow.h"
#include "frontends/qt/ListView.h"
#include "text/Characters.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QDir>
#include <QMenu>
#include <QMessageBox>
#include <QScrollBar>
#include <QStyleOptionSlider>
#include <QTabBar>
#include <QTest>
#include <QWindow>

#include <utility>

namespace vorandine::scenario {
namespace {

using qt::FormWindow;
using widgets::Outcome;

QString native(const std::string& text) {
    return QString::fromStdString(text);
}

// Where `at` on the widget lies on its window.
QPoint onWindow(const QWidget& widget, const QPoint& at) {
    return widget.mapTo(widget.window(), at);
}

void press(QWidget& widget, const QPoint& at, Qt::MouseButton button = Qt::LeftButton,
           Qt::KeyboardModifiers with = Qt::NoModifier) {
    QTest::mouseClick(widget.window()->windowHandle(), button, with, onWindow(widget, at));
}

void press(QWidget& widget) {
    press(widget, widget.rect().center());
}

void key(QWidget& window, Qt::Key code, Qt::KeyboardModifiers with = Qt::NoModifier) {
    QTest::keyClick(window.windowHandle(), code, with);
}

void typeCharacter(QWidget& window, char32_t character) {
    const QString text = QString::fromUcs4(&character, 1);
    const auto code = character == U' ' ? Qt::Key_Space : Qt::Key_unknown;
    QTest::sendKeyEvent(QTest::Click, window.windowHandle(), code, text, Qt::NoModifier);
}

std::pair<Qt::Key, Qt::KeyboardModifiers> keyFor(widgets::Key key) {
    switch (key) {
    case widgets::Key::Tab:
        return {Qt::Key_Tab, Qt::NoModifier};
    case widgets::Key::BackTab:
        return {Qt::Key_Backtab, Qt::ShiftModifier};
    case widgets::Key::Enter:
        return {Qt::Key_Return, Qt::NoModifier};
    case widgets::Key::Escape:
        return {Qt::Key_Escape, Qt::NoModifier};
    case widgets::Key::Space:
        return {Qt::Key_Space, Qt::NoModifier};
    case widgets::Key::Up:
        return {Qt::Key_Up, Qt::NoModifier};
    case widgets::Key::Down:
        return {Qt::Key_Down, Qt::NoModifier};
    case widgets::Key::Backspace:
        return {Qt::Key_Backspace, Qt::NoModifier};
    default:
        return {Qt::Key_Delete, Qt::NoModifier};
    }
}

QListView* listOf(QWidget* widget) {
    return qobject_cast<QListView*>(widget);
}

} // namespace

QtHand::QtHand(headless::Callbacks callbacks, Stills stills)
    : callbacks_(std::move(callbacks)), stills_(std::move(stills)), world_(callbacks_.today) {
    world_.hooks(hooks());
    world_.tellBy(callbacks_.tell);
}

QtHand::~QtHand() = default;

qt::Hooks QtHand::hooks() {
    qt::Hooks hooks;
    hooks.boxShown = [this](const widgets::Message& message, QMessageBox& box) {
        const widgets::Answer answer = callbacks_.messageBox(message);
        press(*qt::buttonFor(box, answer));
    };
    hooks.modalShown = [this](widgets::Form& form, FormWindow& window) {
        window.setZoom(stills_.zoom);
        callbacks_.runModal(form);
    };
    hooks.menuShown = [this](widgets::Menu& menu, QMenu& /*popup*/) { callbacks_.popupMenu(menu); };
    hooks.helpShown = [this](const widgets::HelpPage& help) { callbacks_.showHelp(help); };
    return hooks;
}

void QtHand::show(widgets::Form& form) {
    host_ = std::make_unique<FormWindow>(form, world_);
    host_->setZoom(stills_.zoom);
    host_->show();
    host_->activateWindow();
    QCoreApplication::processEvents();
}

void QtHand::hide(widgets::Form& /*form*/) {
    host_.reset();
}

Outcome QtHand::act(const std::function<void(FormWindow&)>& gesture) {
    if (QMenu* const menu = world_.openMenu(); menu != nullptr && menu->isVisible())
        QTest::keyClick(menu->windowHandle(), Qt::Key_Escape);
    FormWindow* const window = world_.front();
    if (window == nullptr)
        return Outcome::Refused;
    window->forgetOutcome();
    gesture(*window);
    return window->lastOutcome().value_or(Outcome::Refused);
}

std::optional<QPoint> QtHand::freePlace(const widgets::Control& control) const {
    const FormWindow* const window = world_.front();
    const QWidget* const widget = window != nullptr ? window->widgetFor(control) : nullptr;
    if (widget == nullptr)
        return std::nullopt;
    const QRect rect = widget->rect();
    const QPoint middle = rect.center();
    constexpr int Inside = 3;
    for (const QPoint& at :
         {middle, QPoint(Inside, middle.y()), QPoint(rect.right() - Inside, middle.y()),
          QPoint(middle.x(), Inside), QPoint(middle.x(), rect.bottom() - Inside),
          QPoint(rect.right() - Inside, rect.bottom() - Inside)})
        if (window->controlAt(onWindow(*widget, at)) == &control)
            return at;
    return std::nullopt;
}

QWidget* QtHand::within(widgets::Control& control) const {
    const FormWindow* const window = world_.front();
    QWidget* const widget = window != nullptr ? window->widgetFor(control) : nullptr;
    const bool possible = widget != nullptr && widget->isVisible() && widget->isEnabled();
    return possible && freePlace(control) ? widget : nullptr;
}

Outcome QtHand::inField(widgets::TextField& field, bool types,
                        const std::function<void(FormWindow&)>& work) {
    return act([&](FormWindow& window) {
        QWidget* const widget = within(field);
        auto* const combo = qobject_cast<QComboBox*>(widget);
        if (widget == nullptr || (types && combo != nullptr && !combo->isEditable()))
            return;
        press(*widget, *freePlace(field));
        // Where nothing can be typed, a press opens the entries: closed again, the focus has moved.
        if (combo != nullptr && !combo->isEditable() && combo->view()->isVisible())
            key(*combo->view()->window(), Qt::Key_Escape);
        if (window.lastOutcome() == Outcome::Done && window.form().focus() == &field)
            work(window);
    });
}

Outcome QtHand::focusField(widgets::TextField& field) {
    return inField(field, false, [&](FormWindow& window) {
        if (field.editable())
            key(window, Qt::Key_End);
    });
}

Outcome QtHand::typeText(widgets::TextField& field, const std::string& text) {
    return inField(field, true, [&](FormWindow& window) {
        key(window, Qt::Key_End);
        for (const char32_t character : text::Decode(text))
            typeCharacter(window, character);
    });
}

Outcome QtHand::erase(widgets::TextField& field) {
    return inField(field, true, [](FormWindow& window) {
        key(window, Qt::Key_A, Qt::ControlModifier);
        key(window, Qt::Key_Delete);
    });
}

Outcome QtHand::paste(widgets::TextField& field, const std::string& text) {
    return inField(field, true, [&](FormWindow& window) {
        QApplication::clipboard()->setText(native(text));
        key(window, Qt::Key_A, Qt::ControlModifier);
        key(window, Qt::Key_V, Qt::ControlModifier);
    });
}

Outcome QtHand::pressKey(widgets::Form& /*form*/, widgets::Key pressed) {
    const auto [code, with] = keyFor(pressed);
    // A key that means nothing where the focus is has been pressed all the same.
    const Outcome outcome =
        act([&, code = code, with = with](FormWindow& window) { key(window, code, with); });
    return outcome == Outcome::Refused ? Outcome::Done : outcome;
}

Outcome QtHand::click(widgets::CommandButton& button) {
    return act([&](FormWindow& /*window*/) {
        if (QWidget* const widget = within(button))
            press(*widget, *freePlace(button));
    });
}

Outcome QtHand::click(widgets::OptionButton& option) {
    return act([&](FormWindow& /*window*/) {
        if (QWidget* const widget = within(option))
            press(*widget, *freePlace(option));
    });
}

QWidget* QtHand::lineShown(widgets::ListBox& list, int line, QPoint& at) const {
    QListView* const view = listOf(within(list));
    if (view == nullptr)
        return nullptr;
    const QModelIndex index = view->model()->index(line, 0);
    if (line >= 0 && !index.isValid())
        return nullptr;
    if (index.isValid())
        view->scrollTo(index);
    at = index.isValid() ? view->visualRect(index).intersected(view->viewport()->rect()).center()
                         : view->viewport()->rect().center();
    return view->viewport();
}

Outcome QtHand::clickLine(widgets::ListBox& list, int line) {
    return act([&](FormWindow& /*window*/) {
        QPoint at;
        if (QWidget* const widget = line >= 0 ? lineShown(list, line, at) : nullptr)
            press(*widget, at);
    });
}

// A gesture of several presses ends at the first if the focus is kept where it was: the frame of
// the list is pressed, which changes no line.
bool QtHand::comesTo(const widgets::ListBox& list, FormWindow& window) const {
    press(*window.widgetFor(list), QPoint(0, 0));
    return window.form().focus() == &list;
}

Outcome QtHand::doubleClickLine(widgets::ListBox& list, int line) {
    return act([&](FormWindow& window) {
        QPoint at;
        QWidget* const widget = lineShown(list, line, at);
        const bool possible = line >= 0 || (line == -1 && list.ListCount() == 0);
        if (widget != nullptr && possible && comesTo(list, window))
            QTest::mouseDClick(widget->window()->windowHandle(), Qt::LeftButton, {},
                               onWindow(*widget, at));
    });
}

Outcome QtHand::mark(widgets::ListBox& list, const std::vector<int>& lines) {
    return act([&](FormWindow& window) {
        QPoint at;
        QListView* const view = listOf(within(list));
        if (view == nullptr || view->selectionMode() == QAbstractItemView::SingleSelection)
            return;
        for (const int line : lines)
            if (line < 0 || lineShown(list, line, at) == nullptr)
                return;
        const auto toggle = [&](int line, bool selected) {
            const bool is = view->selectionModel()->isSelected(view->model()->index(line, 0));
            if (QWidget* const widget = is != selected ? lineShown(list, line, at) : nullptr)
                press(*widget, at, Qt::LeftButton, Qt::ControlModifier);
        };
        if (!comesTo(list, window))
            return;
        for (int line = 0; line < view->model()->rowCount(); ++line)
            toggle(line, false);
        for (const int line : lines)
            toggle(line, true);
    });
}

Outcome QtHand::choose(widgets::ComboBox& combo, const std::string& entry) {
    return act([&](FormWindow& window) {
        auto* const widget = qobject_cast<QComboBox*>(within(combo));
        if (widget == nullptr ||
            widget->findText(native(entry), Qt::MatchExactly | Qt::MatchCaseSensitive) < 0)
            return;
        press(*widget, QPoint(widget->width() - 5, widget->height() / 2));
        QAbstractItemView* const list = widget->view();
        if (window.form().focus() != &combo || !list->isVisible())
            return;
        const QModelIndex index = list->model()->index(
            widget->findText(native(entry), Qt::MatchExactly | Qt::MatchCaseSensitive), 0);
        list->scrollTo(index);
        list->setCurrentIndex(index);
        key(*list->window(), Qt::Key_Return);
    });
}

Outcome QtHand::scrollTo(widgets::ScrollBar& bar, int value) {
    return act([&](FormWindow& /*window*/) {
        auto* const widget = qobject_cast<QScrollBar*>(within(bar));
        if (widget == nullptr || value < 0 || value > bar.Max())
            return;
        QStyleOptionSlider option;
        option.initFrom(widget);
        option.orientation = widget->orientation();
        option.minimum = widget->minimum();
        option.maximum = widget->maximum();
        option.sliderPosition = option.sliderValue = widget->value();
        option.pageStep = widget->pageStep();
        const QRect handle = widget->style()->subControlRect(QStyle::CC_ScrollBar, &option,
                                                             QStyle::SC_ScrollBarSlider, widget);
        QWindow* const window = widget->window()->windowHandle();
        QTest::mousePress(window, Qt::LeftButton, {}, onWindow(*widget, handle.center()));
        // A pixel may stand for many values: the last step is told to the handle itself.
        if (widget->isSliderDown())
            widget->setSliderPosition(value);
        QTest::mouseRelease(window, Qt::LeftButton, {}, onWindow(*widget, handle.center()));
    });
}

Outcome QtHand::showTab(widgets::TabContainer& tabs, int tab) {
    return act([&](FormWindow& /*window*/) {
        QWidget* const widget = within(tabs);
        auto* const bar = widget != nullptr ? widget->findChild<QTabBar*>() : nullptr;
        if (bar != nullptr && tab >= 0 && tab < bar->count())
            press(*bar, bar->tabRect(tab).center());
    });
}

Outcome QtHand::drag(widgets::ListBox& source, widgets::Control& target) {
    return act([&](FormWindow& window) {
        QListView* const view = listOf(within(source));
        QWidget* const onto = within(target);
        if (view == nullptr || onto == nullptr || !source.MouseDown)
            return;
        int line = 0;
        while (line < source.ListCount() && !source.Selected(line))
            ++line;
        QPoint at;
        if (line == source.ListCount())
            line = 0;
        if (lineShown(source, line, at) == nullptr)
            return;
        QWindow* const handle = window.windowHandle();
        const QPoint from = onWindow(*view->viewport(), at);
        const QPoint to = onto == view ? from : onWindow(*onto, *freePlace(target));
        QTest::mousePress(handle, Qt::LeftButton, {}, from);
        QTest::mouseMove(handle, (from + to) / 2);
        QTest::mouseMove(handle, to);
        QTest::mouseRelease(handle, Qt::LeftButton, {}, to);
    });
}

Outcome QtHand::rightClick(widgets::Control& surface) {
    return act([&](FormWindow& /*window*/) {
        if (QWidget* const widget = within(surface))
            press(*widget, *freePlace(surface), Qt::RightButton);
    });
}

Outcome QtHand::pick(widgets::Form& /*form*/, widgets::Menu& entry) {
    QMenu* const menu = world_.openMenu();
    QAction* const action = menu != nullptr ? qt::actionFor(*menu, entry) : nullptr;
    FormWindow* const window = world_.front();
    if (action == nullptr || window == nullptr || !menu->isVisible())
        return Outcome::Refused;
    window->forgetOutcome();
    press(*menu, menu->actionGeometry(action).center());
    return window->lastOutcome().value_or(Outcome::Refused);
}

Outcome QtHand::closeForm(widgets::Form& /*form*/) {
    return act([](FormWindow& window) { window.close(); });
}

void QtHand::capture(widgets::Form& /*form*/, const std::string& name) {
    FormWindow* const window = world_.front();
    if (stills_.folder.empty() || window == nullptr)
        return;
    QCoreApplication::processEvents();
    const QString path = native(stills_.folder) + '/' + native(name);
    if (!QDir().mkpath(native(stills_.folder)) || !window->grab().save(path))
        throw LineError("no picture could be written to " + path.toStdString());
}

} // namespace vorandine::scenario
