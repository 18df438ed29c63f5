// What a user can do: the one way in for every front end. Here, and nowhere else, stand the rules
// of what can be reached, of the leaving rule, of the focus given back and of the click then
// dropped.
#pragma once

#include "widgets/Form.h"
#include "widgets/ListBox.h"
#include "widgets/Simple.h"
#include "widgets/TextField.h"

#include <functional>
#include <string_view>
#include <vector>

namespace vorandine::widgets {

enum class Outcome {
    Done,
    Refused,   // a user could not do it; nothing has happened
    FocusKept, // the leaving rule of the field left kept the focus; nothing else has happened
};

enum class Key { Tab, BackTab, Enter, Escape, Space, Up, Down, Backspace, Delete };

struct Modifiers {
    bool control = false;
    bool shift = false;
};

// Every gesture first sees whether the control can be reached, then moves the focus to it (the
// leaving rule of the field left runs), then does its work. An Error that leaves a handler goes to
// the form's `Failed`, once, and the gesture counts as done; any other exception does too, as
// Error(Unexpected). Nothing is thrown.

// The bare move of the focus, for a front end whose platform makes it apart from the gesture.
Outcome moveFocus(Control& to);

// A press of the mouse in the field: the caret goes to the end.
Outcome focusField(TextField& field);
// Types `text`, key by key, at the end of what stands there.
Outcome typeText(TextField& field, std::string_view text);
// Selects all, then presses Delete, or pastes.
Outcome erase(TextField& field);
Outcome paste(TextField& field, std::string_view text);
// One key where the focus is; a printable one.
Outcome typeKey(Form& form, char32_t character);
// Any other edit in the field that has the focus, such as pasting at the caret or undoing; nothing
// happens where no field that can be typed in has it.
Outcome edit(Form& form, const std::function<void(TextField&)>& work);
// One key where the focus is; nothing happens (Done) where the key means nothing.
Outcome pressKey(Form& form, Key key);

Outcome click(CommandButton& button);
Outcome click(OptionButton& option);
Outcome clickLine(ListBox& list, int line, Modifiers modifiers = {});
// Line -1: on a list without lines.
Outcome doubleClickLine(ListBox& list, int line);
// In a list where several lines can be selected: selects exactly these. Elsewhere refused.
Outcome mark(ListBox& list, const std::vector<int>& lines);
// Opens the combo box and picks the entry.
Outcome choose(ComboBox& combo, std::string_view entry);
// Drags the bar to `value` and lets go.
Outcome scrollTo(ScrollBar& bar, int value);
Outcome showTab(TabContainer& tabs, int tab);
// Presses on the first selected line of `source` (its first line if none is), lets go over
// `target`. Refused unless `source` can be dragged.
Outcome drag(ListBox& source, Control& target);
// The right button, pressed and released. The focus stays where it is.
Outcome rightClick(Control& surface);
// Picks an entry of the menu that is open.
Outcome pick(Form& form, Menu& entry);
// The window's own close button. Refused where the form does not close that way now.
Outcome closeForm(Form& form);

} // namespace vorandine::widgets
