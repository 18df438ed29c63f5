// Nothing typed reaches a native edit: its own keys would pass by the rules. Only the moves of the
// caret are its own, and are read back.
#include "frontends/qt/KeyInput.h"

#include "frontends/qt/ContainerViews.h"
#include "frontends/qt/FieldViews.h"
#include "frontends/qt/FormWindow.h"
#include "frontends/qt/ListView.h"
#include "frontends/qt/Scale.h"
#include "widgets/FormTabs.h"
#include "widgets/Kinds.h"

#include <QApplication>
#include <QClipboard>
#include <QKeyEvent>
#include <QScrollBar>

#include <algorithm>
#include <numeric>
#include <optional>
#include <vector>

namespace vorandine::qt {
namespace {

using widgets::Key;

Qt::KeyboardModifiers held(const QKeyEvent& event) {
    return event.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::ShiftModifier);
}

std::optional<Key> plainKey(int key) {
    switch (key) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        return Key::Enter;
    case Qt::Key_Escape:
        return Key::Escape;
    case Qt::Key_Space:
        return Key::Space;
    case Qt::Key_Up:
        return Key::Up;
    case Qt::Key_Down:
        return Key::Down;
    default:
        return std::nullopt;
    }
}

// Ctrl with Alt is how some keyboards send their third level.
bool types(const QKeyEvent& event) {
    const bool control = (event.modifiers() & Qt::ControlModifier) != 0;
    const bool alt = (event.modifiers() & Qt::AltModifier) != 0;
    return control == alt && !event.text().isEmpty() && event.text().front().isPrint();
}

FieldEdit* editOf(const View& view) {
    for (QWidget* const source : view.sources())
        if (auto* const edit = qobject_cast<FieldEdit*>(source))
            return edit;
    return nullptr;
}

} // namespace

void KeyInput::press(Key key) {
    window_.gesture([&] { return widgets::pressKey(window_.form(), key); });
}

bool KeyInput::press(View& view, QKeyEvent& event) {
    if (zoomKey(event) || tabKey(event))
        return true;
    widgets::Control& control = view.control();
    if (auto* const combo = widgets::as<widgets::ComboBox>(&control);
        combo != nullptr && onDropDown(view, *combo, event))
        return true;
    if (const auto key = plainKey(event.key());
        key && (held(event) & (Qt::ControlModifier | Qt::AltModifier)) == 0 &&
        (held(event) == 0 || *key == Key::Space)) {
        press(*key);
        return true;
    }
    return widgets::match(
        control, [&](widgets::TextField& field) { return onField(view, field, event); },
        [&](widgets::ListBox& list) {
            return onList(static_cast<const ListView&>(view), list, event);
        },
        [&](widgets::ScrollBar& bar) { return onBar(bar, event); },
        [&](widgets::TabContainer& tabs) { return onTabs(tabs, event); },
        // The others have no keys but those above, or never have the focus.
        [](widgets::CommandButton&) { return false; }, [](widgets::OptionButton&) { return false; },
        [](widgets::Label&) { return false; }, [](widgets::Frame&) { return false; },
        [](widgets::Surface&) { return false; });
}

bool KeyInput::zoomKey(const QKeyEvent& event) {
    if ((event.modifiers() & (Qt::ControlModifier | Qt::AltModifier)) != Qt::ControlModifier)
        return false;
    // A step never leaves the screen; a window that already does keeps its size.
    const double largest = std::max(window_.largestZoom(), window_.zoom());
    switch (event.key()) {
    case Qt::Key_Plus:
    case Qt::Key_Equal:
        window_.setZoom(std::min(largest, window_.zoom() * ZoomStep));
        return true;
    case Qt::Key_Minus:
        window_.setZoom(window_.zoom() / ZoomStep);
        return true;
    case Qt::Key_0:
        window_.setZoom(1.0);
        return true;
    default:
        return false;
    }
}

// Tab moves the focus; with Ctrl, and as Ctrl with Page, it moves from tab to tab.
bool KeyInput::tabKey(const QKeyEvent& event) {
    const bool tab = event.key() == Qt::Key_Tab;
    const bool backTab =
        event.key() == Qt::Key_Backtab || (tab && (held(event) & Qt::ShiftModifier) != 0);
    const bool control = (held(event) & Qt::ControlModifier) != 0;
    if ((held(event) & Qt::AltModifier) != 0)
        return false;
    if (!control && (tab || backTab)) {
        press(backTab ? Key::BackTab : Key::Tab);
        return true;
    }
    const bool back = backTab || event.key() == Qt::Key_PageUp;
    if (!control || !(tab || back || event.key() == Qt::Key_PageDown))
        return false;
    if (widgets::TabContainer* const tabs = widgets::tabsOf(window_.form()))
        stepTab(*tabs, back ? -1 : 1);
    return true;
}

bool KeyInput::onTabs(widgets::TabContainer& tabs, const QKeyEvent& event) {
    if (event.key() != Qt::Key_Left && event.key() != Qt::Key_Right)
        return false;
    stepTab(tabs, event.key() == Qt::Key_Left ? -1 : 1);
    return true;
}

void KeyInput::stepTab(widgets::TabContainer& tabs, int step) {
    const int count = static_cast<int>(tabs.captions().size());
    int tab = tabs.Tab() + step;
    while (tab >= 0 && tab < count && !tabs.TabEnabled(tab))
        tab += step;
    if (tab >= 0 && tab < count)
        window_.gesture([&] { return widgets::showTab(tabs, tab); });
}

bool KeyInput::onField(View& view, widgets::TextField& field, QKeyEvent& event) {
    FieldEdit* const edit = editOf(view);
    if (edit == nullptr) // entries alone: the native box would pick some by itself
        return true;
    if (types(event)) {
        type(event.text());
        return true;
    }
    if (navigate(*edit, field, event) || editKey(*edit, field, event))
        return true;
    // What is left belongs to the window, save a letter with Alt that is nobody's mnemonic.
    return (held(event) & Qt::AltModifier) != 0 && !event.text().isEmpty();
}

bool KeyInput::navigate(FieldEdit& edit, widgets::TextField& field, const QKeyEvent& event) {
    const bool mark = (held(event) & Qt::ShiftModifier) != 0;
    const bool word = (held(event) & Qt::ControlModifier) != 0;
    switch (event.key()) {
    case Qt::Key_Left:
        word ? edit.cursorWordBackward(mark) : edit.cursorBackward(mark);
        break;
    case Qt::Key_Right:
        word ? edit.cursorWordForward(mark) : edit.cursorForward(mark);
        break;
    case Qt::Key_Home:
        edit.home(mark);
        break;
    case Qt::Key_End:
        edit.end(mark);
        break;
    default:
        return false;
    }
    field.select(edit.nativeAnchor(), edit.nativeCaret());
    return true;
}

bool KeyInput::editKey(FieldEdit& edit, widgets::TextField& field, const QKeyEvent& event) {
    QClipboard* const clipboard = QApplication::clipboard();
    if (event.key() == Qt::Key_Backspace || event.key() == Qt::Key_Delete) {
        const bool back = event.key() == Qt::Key_Backspace;
        if (held(event) == Qt::ControlModifier && !edit.hasSelectedText()) {
            back ? edit.cursorWordBackward(true) : edit.cursorWordForward(true);
            field.select(edit.nativeAnchor(), edit.nativeCaret());
        }
        press(back ? Key::Backspace : Key::Delete);
    } else if (event.matches(QKeySequence::Copy) || event.matches(QKeySequence::Cut)) {
        if (edit.hasSelectedText())
            clipboard->setText(edit.selectedText());
        if (event.matches(QKeySequence::Cut) && edit.hasSelectedText())
            press(Key::Delete);
    } else if (event.matches(QKeySequence::Paste)) {
        paste();
    } else if (event.matches(QKeySequence::SelectAll)) {
        field.selectAll();
        window_.sync();
    } else if (event.matches(QKeySequence::Undo)) {
        window_.gesture([&] {
            return widgets::edit(window_.form(), [](widgets::TextField& one) { one.undo(); });
        });
    } else {
        return false;
    }
    return true;
}

void KeyInput::type(const QString& text) {
    for (const char32_t character : text.toUcs4())
        window_.gesture([&] { return widgets::typeKey(window_.form(), character); });
}

void KeyInput::paste() {
    const std::string text = QApplication::clipboard()->text().toStdString();
    window_.gesture([&] {
        return widgets::edit(window_.form(), [&](widgets::TextField& one) { one.paste(text); });
    });
}

// F4 and Alt with an arrow open the entries; where nothing can be typed, a letter picks the next
// entry that begins with it.
bool KeyInput::onDropDown(View& view, widgets::ComboBox& combo, const QKeyEvent& event) {
    const bool arrow = event.key() == Qt::Key_Down || event.key() == Qt::Key_Up;
    if (event.key() == Qt::Key_F4 || (arrow && (held(event) & Qt::AltModifier) != 0)) {
        static_cast<QComboBox&>(view.widget()).showPopup();
        return true;
    }
    if (combo.editable() || !types(event) || event.key() == Qt::Key_Space)
        return false;
    for (int i = 1; i <= combo.ListCount(); ++i) {
        const std::string entry = combo.List((combo.ListIndex() + i) % combo.ListCount());
        if (!shown(entry).startsWith(event.text(), Qt::CaseInsensitive))
            continue;
        window_.gesture([&] { return widgets::choose(combo, entry); });
        break;
    }
    return true;
}

bool KeyInput::onList(const ListView& view, widgets::ListBox& list, const QKeyEvent& event) {
    const int page = view.list().linesInPage() - 1;
    int line = std::max(0, list.ListIndex());
    switch (event.key()) {
    case Qt::Key_Up:
        --line;
        break;
    case Qt::Key_Down:
        ++line;
        break;
    case Qt::Key_PageUp:
        line -= page;
        break;
    case Qt::Key_PageDown:
        line += page;
        break;
    case Qt::Key_Home:
        line = 0;
        break;
    case Qt::Key_End:
        line = list.ListCount() - 1;
        break;
    default:
        if (event.matches(QKeySequence::SelectAll))
            markAll(list);
        return true; // the native list would select by itself
    }
    line = std::clamp(line, 0, std::max(0, list.ListCount() - 1));
    const widgets::Modifiers with{false, (held(event) & Qt::ShiftModifier) != 0};
    window_.gesture([&] { return widgets::clickLine(list, line, with); });
    return true;
}

void KeyInput::markAll(widgets::ListBox& list) {
    std::vector<int> lines(static_cast<std::size_t>(list.ListCount()));
    std::iota(lines.begin(), lines.end(), 0);
    window_.gesture([&] { return widgets::mark(list, lines); });
}

bool KeyInput::onBar(widgets::ScrollBar& bar, const QKeyEvent& event) {
    const int page = static_cast<const QScrollBar&>(*window_.widgetFor(bar)).pageStep();
    int value = bar.Value();
    switch (event.key()) {
    case Qt::Key_PageUp:
        value -= page;
        break;
    case Qt::Key_PageDown:
        value += page;
        break;
    case Qt::Key_Home:
        value = 0;
        break;
    case Qt::Key_End:
        value = bar.Max();
        break;
    default:
        return types(event);
    }
    if (bar.Max() >= 0)
        window_.gesture([&] { return widgets::scrollTo(bar, std::clamp(value, 0, bar.Max())); });
    return true;
}

bool KeyInput::mnemonic(View& view) {
    widgets::Control& control = view.control();
    const auto click = [this](auto& button) {
        window_.gesture([&] { return widgets::click(button); });
    };
    widgets::match(
        control, [&](widgets::CommandButton& button) { click(button); },
        [&](widgets::OptionButton& option) { click(option); }, [](widgets::Control&) {});
    return true;
}

// Dead and compose keys: what is committed is typed, what is still open is only shown.
bool KeyInput::compose(View& view, const QInputMethodEvent& event) {
    FieldEdit* const edit = editOf(view);
    if (edit == nullptr)
        return true;
    type(event.commitString());
    edit->compose(event);
    return true;
}

} // namespace vorandine::qt
