// The gestures. Each public one is guarded, so that no error is thrown through a front end's event
// loop.
#include "widgets/Gestures.h"

#include "text/Characters.h"
#include "widgets/Kinds.h"

#include <algorithm>
#include <exception>
#include <new>
#include <string>

namespace vorandine::widgets {
namespace {

template <typename Work>
Outcome guarded(Form* form, Work work) {
    const auto tell = [form](const Error& error) {
        if (form != nullptr && form->Failed)
            form->Failed(error);
        return Outcome::Done;
    };
    try {
        return work();
    } catch (const Error& error) {
        return tell(error);
    } catch (const std::bad_alloc&) {
        return tell(Error(errors::Unexpected, "Il n'y a plus assez de mémoire. Fermez d'autres "
                                              "programmes, puis recommencez."));
    } catch (const std::exception& other) {
        return tell(Error(errors::Unexpected, other.what()));
    }
}

// Reach, then focus, then the work.
template <typename Work>
Outcome withFocus(Control& control, bool possible, Work work) {
    if (!possible || control.form() == nullptr || control.form()->unloaded() ||
        !control.reachable() || !control.takesFocus())
        return Outcome::Refused;
    return guarded(control.form(), [&] {
        if (!control.form()->moveFocus(control))
            return Outcome::FocusKept;
        // The leaving rule may have disabled or hidden what was pressed: then nobody hears it.
        if (control.reachable())
            work();
        return Outcome::Done;
    });
}

bool hasLine(const ListBox& list, int line) {
    return line >= 0 && line < list.ListCount();
}

// A press on a list that can be dragged begins a drag; released in the same list, it was a click.
void pressAndRelease(Control& control, int button) {
    MouseEvent event;
    event.button = button;
    if (control.MouseDown)
        control.MouseDown(event);
    if (auto* const list = as<ListBox>(&control))
        list->endDrag();
}

void press(CommandButton& button) {
    if (button.Click)
        button.Click();
}

// Enter: a double click that leaves the selection as it is.
void openSelected(ListBox& list) {
    const int line = list.ListIndex();
    if (line != -1 && list.Selected(line) && list.DblClick)
        list.DblClick();
}

int stepOf(Key key) {
    return key == Key::Up ? -1 : 1;
}

void stepList(ListBox& list, int step) {
    const int line = list.ListIndex() + step;
    if (hasLine(list, line))
        list.click(line, false, false);
}

void stepCombo(ComboBox& combo, int step) {
    const int entry = combo.ListIndex() + step;
    if (!combo.editable() && entry >= 0 && entry < combo.ListCount())
        combo.ListIndex(entry);
}

// What a key means where the focus is, kind by kind.
void onKey(CommandButton& button, Key key) {
    if (key == Key::Enter || key == Key::Space)
        press(button);
}

void onKey(OptionButton& option, Key key) {
    if (key == Key::Space)
        option.Value(true);
}

void onKey(ListBox& list, Key key) {
    if (key == Key::Enter)
        openSelected(list);
    else if (key == Key::Up || key == Key::Down)
        stepList(list, stepOf(key));
}

void onKey(ScrollBar& bar, Key key) {
    if (key == Key::Up || key == Key::Down)
        bar.Value(bar.Value() + stepOf(key));
}

void onKey(TextField& field, Key key) {
    if (!field.editable())
        return;
    if (key == Key::Space)
        field.typeCharacter(U' ');
    else if (key == Key::Backspace)
        field.pressBackspace();
    else if (key == Key::Delete)
        field.pressDelete();
}

void onKey(ComboBox& combo, Key key) {
    if (key == Key::Up || key == Key::Down)
        stepCombo(combo, stepOf(key));
    else
        onKey(static_cast<TextField&>(combo), key);
}

void onKey(TabContainer& /*tabs*/, Key /*key*/) {}
// These never have the focus.
void onKey(Label& /*label*/, Key /*key*/) {}
void onKey(Frame& /*frame*/, Key /*key*/) {}
void onKey(Surface& /*surface*/, Key /*key*/) {}

CommandButton* escapeButton(const Form& form) {
    CommandButton* first = nullptr;
    form.visit([&](Control& control) {
        auto* const button = as<CommandButton>(&control);
        if (button != nullptr && button->cancelRank() > 0 && button->reachable() &&
            (first == nullptr || button->cancelRank() < first->cancelRank()))
            first = button;
    });
    return first;
}

} // namespace

Outcome moveFocus(Control& to) {
    return withFocus(to, true, [] {});
}

Outcome focusField(TextField& field) {
    return withFocus(field, true, [&] { field.caretToEnd(); });
}

Outcome typeText(TextField& field, std::string_view text) {
    return withFocus(field, field.editable(), [&] {
        field.caretToEnd();
        for (const char32_t character : text::Decode(text))
            field.typeCharacter(character);
    });
}

Outcome erase(TextField& field) {
    return withFocus(field, field.editable(), [&] {
        field.selectAll();
        field.pressDelete();
    });
}

Outcome paste(TextField& field, std::string_view text) {
    return withFocus(field, field.editable(), [&] {
        field.selectAll();
        field.paste(text);
    });
}

Outcome edit(Form& form, const std::function<void(TextField&)>& work) {
    auto* const field = as<TextField>(form.focus());
    if (field == nullptr || !field->editable())
        return Outcome::Done;
    return guarded(&form, [&] {
        work(*field);
        return Outcome::Done;
    });
}

Outcome typeKey(Form& form, char32_t character) {
    return edit(form, [&](TextField& field) { field.typeCharacter(character); });
}

Outcome pressKey(Form& form, Key key) {
    if (form.unloaded())
        return Outcome::Done;
    if (key == Key::Tab || key == Key::BackTab) {
        Control* const next = form.nextInOrder(key == Key::BackTab);
        if (next == nullptr)
            return Outcome::Done;
        return guarded(&form, [&] {
            if (!form.moveFocus(*next))
                return Outcome::FocusKept;
            if (auto* const field = as<TextField>(next))
                field->caretToEnd();
            return Outcome::Done;
        });
    }
    if (key == Key::Escape) {
        CommandButton* const button = escapeButton(form);
        return button != nullptr ? click(*button) : Outcome::Done;
    }
    Control* const control = form.focus();
    if (control == nullptr)
        return Outcome::Done;
    return guarded(&form, [&] {
        match(*control, [key](auto& kind) { onKey(kind, key); });
        return Outcome::Done;
    });
}

Outcome click(CommandButton& button) {
    return withFocus(button, true, [&] { press(button); });
}

Outcome click(OptionButton& option) {
    return withFocus(option, true, [&] { option.Value(true); });
}

Outcome clickLine(ListBox& list, int line, Modifiers modifiers) {
    return withFocus(list, hasLine(list, line), [&] {
        pressAndRelease(list, 1);
        list.click(line, modifiers.control, modifiers.shift);
    });
}

Outcome doubleClickLine(ListBox& list, int line) {
    const bool possible = line == -1 ? list.ListCount() == 0 : hasLine(list, line);
    return withFocus(list, possible, [&] {
        pressAndRelease(list, 1);
        if (line != -1)
            list.click(line, false, false);
        if (list.DblClick)
            list.DblClick();
    });
}

Outcome mark(ListBox& list, const std::vector<int>& lines) {
    const bool possible =
        list.multiSelect() &&
        std::all_of(lines.begin(), lines.end(), [&](int line) { return hasLine(list, line); });
    return withFocus(list, possible, [&] {
        for (int line = 0; line < list.ListCount(); ++line)
            if (list.Selected(line))
                list.click(line, true, false);
        for (const int line : lines)
            if (!list.Selected(line))
                list.click(line, true, false);
    });
}

Outcome choose(ComboBox& combo, std::string_view entry) {
    int index = 0;
    while (index < combo.ListCount() && combo.List(index) != entry)
        ++index;
    return withFocus(combo, index < combo.ListCount(), [&] { combo.ListIndex(index); });
}

Outcome scrollTo(ScrollBar& bar, int value) {
    return withFocus(bar, value >= 0 && value <= bar.Max(), [&] { bar.Value(value); });
}

Outcome showTab(TabContainer& tabs, int tab) {
    const bool possible =
        tab >= 0 && static_cast<std::size_t>(tab) < tabs.captions().size() && tabs.TabEnabled(tab);
    return withFocus(tabs, possible, [&] { tabs.Tab(tab); });
}

Outcome drag(ListBox& source, Control& target) {
    int line = 0;
    while (line < source.ListCount() && !source.Selected(line))
        ++line;
    if (line == source.ListCount())
        line = 0;
    const bool possible =
        hasLine(source, line) && source.MouseDown != nullptr && target.reachable();
    return withFocus(source, possible, [&] {
        source.MouseDown(MouseEvent{});
        if (!source.endDrag() || &target == &source) {
            source.click(line, false, false);
            return;
        }
        if (target.reachable() && target.DragDrop)
            target.DragDrop(source);
    });
}

Outcome rightClick(Control& surface) {
    if (surface.form() == nullptr || surface.form()->unloaded() || !surface.reachable())
        return Outcome::Refused;
    return guarded(surface.form(), [&] {
        pressAndRelease(surface, 2);
        return Outcome::Done;
    });
}

Outcome pick(Form& form, Menu& entry) {
    return guarded(&form, [&] {
        if (entry.Click)
            entry.Click();
        return Outcome::Done;
    });
}

Outcome closeForm(Form& form) {
    if (form.unloaded())
        return Outcome::Refused;
    return guarded(&form, [&] {
        if (form.CloseButton)
            return form.CloseButton() ? Outcome::Done : Outcome::Refused;
        form.Unload();
        return form.unloaded() ? Outcome::Done : Outcome::Refused;
    });
}

} // namespace vorandine::widgets
