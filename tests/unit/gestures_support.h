// A small form for tests of gestures: two fields, a button, a list, and a record of what happened.
#pragma once

#include "widgets/Gestures.h"

#include <string>
#include <utility>

namespace vorandine::gestures_test {

// Controls stand side by side, 1000 twips apart, in the order in which they are added.
class TestForm {
  public:
    TestForm() {
        form.identify("Frm_Essai");
        form.place({0, 0, 20000, 1000});
        add(first, "Txt_Premier");
        add(second, "Txt_Second");
        add(button, "Cmd_Valider");
        add(list, "Lst_Lignes");
        button.Click = [this] { log += "click "; };
        list.Click = [this] { log += "line" + std::to_string(list.ListIndex()) + " "; };
        list.DblClick = [this] { log += "open" + std::to_string(list.ListIndex()) + " "; };
        for (const char* const line : {"a", "b", "c", "d"})
            list.AddItem(line);
        form.Failed = [this](const Error& error) { log += std::string(error.what()) + " "; };
        form.focusFirst();
    }

    void add(widgets::Control& control, const std::string& name) {
        control.identify(name);
        control.TabIndex(static_cast<int>(form.children().size()));
        control.place({1000 * control.TabIndex(), 0, 900, 300});
        form.add(control);
    }

    // The name of the control that has the focus, "" if none.
    [[nodiscard]] std::string focus() const {
        const widgets::Control* const control = form.focus();
        return control != nullptr ? control->Name() : std::string();
    }

    // What happened since the last call.
    std::string taken() { return std::exchange(log, {}); }

    widgets::Form form;
    widgets::TextBox first;
    widgets::TextBox second;
    widgets::CommandButton button;
    widgets::ListBox list;
    std::string log;
};

} // namespace vorandine::gestures_test
