// Ledgers in the form in which the control writes them, and the way to the tab that shows them.
#pragma once

#include "unit/control_support.h"
#include "widgets/Gestures.h"

#include <string>

namespace vorandine::control_test {

// Rights of one hour on every other line, half an hour of hygiene on those between.
inline Content ledger(int lines) {
    Content content{{6, {"six"}}};
    int balance = 0;
    for (int i = 0; i < lines; ++i) {
        const bool rights = i % 2 == 0;
        balance += rights ? 100 : -50;
        content[1].push_back(
            std::to_string((1900 + i / 336) * 10000 + (i / 28 % 12 + 1) * 100 + i % 28 + 1));
        content[2].emplace_back(rights ? "100" : "");
        content[3].emplace_back(rights ? "" : "50");
        content[4].push_back(std::to_string(balance));
        content[5].emplace_back(rights ? "" : "HYG");
    }
    return content;
}

// An employer of a caregiver, an association, with a contract that is open.
inline void employ(Desk& desk, const std::string& caregiver, const std::string& employer) {
    desk.put("ASSOCIATION", employer, {{1, {"Association " + employer}}});
    desk.put("CONTRAT", caregiver + "-" + employer, {{3, {employer}}, {4, {employer}}});
}

inline std::string storedLedger(Desk& desk, const std::string& key) {
    return desk.engine->file("DIFAIDANT")->read(key).value_or("none");
}

inline void showDif(host::CaregiverForm& form) {
    auto& tabs = at<widgets::TabContainer>(form, "Ong_Vorandine");
    widgets::showTab(tabs, 0);
    widgets::showTab(tabs, 2);
}

inline void openEmployer(host::CaregiverForm& form, int line) {
    widgets::doubleClickLine(at<widgets::ListBox>(form, "Lst_DifEmpl"), line);
}

inline void press(host::CaregiverForm& form, const std::string& button) {
    widgets::click(at<widgets::CommandButton>(form, button));
}

inline void addRights(host::CaregiverForm& form, const std::string& date,
                      const std::string& rights) {
    press(form, "Cmd_AjoutDif");
    widgets::typeText(at<widgets::TextField>(form, "Txt_DateDif"), date);
    widgets::typeText(at<widgets::TextField>(form, "Txt_DroitDif"), rights);
    press(form, "Cmd_OkDif");
}

inline std::string notice(host::CaregiverForm& form) {
    return at<widgets::Label>(form, "Etq_MessageDif").Caption();
}

} // namespace vorandine::control_test
