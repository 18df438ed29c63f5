// The screen inventory, held against what a user would notice: a control out of its frame, a letter
// that reaches two buttons or none.
#include "control/Inventory.h"
#include "unit/control_support.h"

#include <gtest/gtest.h>

#include <cctype>
#include <string_view>

namespace vorandine::control_test {
namespace {

TEST(ControlInventory, EveryControlStandsWithinWhatItStandsIn) {
    Desk desk;
    const auto form = desk.open("00012");
    const control::ControlCollection controls = form->control().Controls();
    ASSERT_EQ(controls.Count(), 90);
    for (int i = 0; i < controls.Count(); ++i) {
        const widgets::Place& inner = controls(i).place();
        const widgets::Place& outer = controls(i).parent()->place();
        EXPECT_TRUE(inner.left >= 0 && inner.top >= 0 && inner.width > 0 && inner.height > 0 &&
                    inner.left + inner.width <= outer.width &&
                    inner.top + inner.height <= outer.height)
            << controls(i).fullName();
    }
    EXPECT_THROW((void)controls(90), Error);
}

TEST(ControlInventory, ALetterReachesOneOfTheControlsShownTogether) {
    Desk desk;
    const auto form = desk.open("00012");
    std::map<std::pair<int, char>, std::string> reached; // by tab and letter
    for (const control::Row& inventoried : control::Inventory()) {
        const widgets::Row& row = inventoried.made;
        EXPECT_TRUE(row.mnemonic != 0 || !std::string_view(row.name).starts_with("Cmd_"))
            << row.name << " has no letter";
        if (row.mnemonic == 0)
            continue;
        auto& control = at<widgets::Control>(*form, row.name);
        // An arrow has no letters: what it is for tells, and its letter with it.
        const char small = static_cast<char>(std::tolower(row.mnemonic));
        EXPECT_TRUE(!control.hint().empty() ||
                    std::string(row.caption).find_first_of({row.mnemonic, small}) !=
                        std::string::npos)
            << row.name << " does not show its letter";
        int page = -1; // what shows on every tab
        for (widgets::Control* each = &control; each != nullptr && page < 0; each = each->parent())
            page = each->page();
        for (int tab = 0; tab < 3; ++tab)
            if (page < 0 || page == tab) {
                EXPECT_TRUE(reached.emplace(std::pair(tab, row.mnemonic), row.name).second)
                    << row.mnemonic << " on tab " << tab << ": " << row.name;
            }
    }
    EXPECT_GE(reached.size(), 6U);
}

} // namespace
} // namespace vorandine::control_test
