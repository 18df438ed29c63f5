// The screen inventory, held against what a user would notice: a control out of its frame, a letter
// that reaches two buttons, a scroll bar that shows through.
#include "control/Inventory.h"
#include "unit/control_support.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <string_view>

namespace vorandine::control_test {
namespace {

class ControlInventory : public testing::Test {
  protected:
    Desk desk;
    std::unique_ptr<host::CaregiverForm> form = desk.open("00012");

    [[nodiscard]] const widgets::Place& place(const std::string& name) const {
        return at<widgets::Control>(*form, name).place();
    }

    // -1 for what shows on every tab.
    static int tabOf(const widgets::Control& control) {
        for (const widgets::Control* each = &control; each != nullptr; each = each->parent())
            if (each->page() >= 0)
                return each->page();
        return -1;
    }
};

TEST_F(ControlInventory, EveryControlHasItsOwnNameAndPlaceInTheOrder) {
    const control::ControlCollection controls = form->control().Controls();
    ASSERT_EQ(controls.Count(), 90);
    std::set<std::string> names;
    std::set<int> orders;
    for (int i = 0; i < controls.Count(); ++i) {
        names.insert(controls(i).fullName());
        orders.insert(controls(i).TabIndex());
    }
    EXPECT_EQ(names.size(), 90U);
    EXPECT_EQ(orders.size(), 90U);
    EXPECT_EQ(*orders.begin(), 0);
    EXPECT_EQ(*orders.rbegin(), 89);
    EXPECT_TRUE(names.count("Txt_ExpProfAidant(6)") == 1 && names.count("Mnu_Sommaire") == 0);
    EXPECT_THROW((void)controls(-1), Error);
    EXPECT_THROW((void)controls(90), Error);
}

TEST_F(ControlInventory, EveryControlStandsWithinWhatItStandsIn) {
    const control::ControlCollection controls = form->control().Controls();
    for (int i = 0; i < controls.Count(); ++i) {
        const widgets::Place& inner = controls(i).place();
        const widgets::Place& outer = controls(i).parent()->place();
        EXPECT_TRUE(inner.left >= 0 && inner.top >= 0 && inner.width > 0 && inner.height > 0 &&
                    inner.left + inner.width <= outer.width &&
                    inner.top + inner.height <= outer.height)
            << controls(i).fullName();
    }
}

// Each list runs on under its right neighbour, so that its own scroll bar stays covered.
TEST_F(ControlInventory, TheTrainingListsLookLikeOneTable) {
    const std::vector<std::string> columns = {"Lst_DatFormAidant", "Lst_CodFormAidant",
                                              "Lst_HhFormAidant",  "Lst_ObsFormAidant",
                                              "Lst_DifFormAidant", "Bdv_FormAidant"};
    const std::vector<int> overlaps = {375, 375, 615, 375, 255};
    const auto& drawn = at<widgets::TabContainer>(*form, "Ong_Vorandine").children();
    const auto rank = [&](const std::string& name) {
        return std::find(drawn.begin(), drawn.end(), &at<widgets::Control>(*form, name)) -
               drawn.begin();
    };
    for (std::size_t i = 0; i < overlaps.size(); ++i) {
        const widgets::Place& left = place(columns[i]);
        const widgets::Place& right = place(columns[i + 1]);
        EXPECT_EQ(left.left + left.width - right.left, overlaps[i]) << columns[i];
        EXPECT_TRUE(left.top == right.top && left.height == right.height) << columns[i];
        EXPECT_LT(rank(columns[i]), rank(columns[i + 1])) << columns[i];
    }
    EXPECT_EQ(place("Bdv_FormAidant").left + place("Bdv_FormAidant").width,
              place("Lst_DifFormAidant").left + place("Lst_DifFormAidant").width);
}

TEST_F(ControlInventory, ALetterReachesOneOfTheControlsShownTogether) {
    for (int tab = 0; tab < 3; ++tab) {
        std::map<char, std::string> reached;
        for (const control::Row& inventoried : control::Inventory()) {
            const widgets::Row& row = inventoried.made;
            EXPECT_TRUE(row.mnemonic != 0 || std::string_view(row.name).substr(0, 4) != "Cmd_")
                << row.name << " has no letter";
            if (row.mnemonic == 0)
                continue;
            const auto& control = at<widgets::Control>(*form, row.name);
            const int stands = tabOf(control);
            if (stands != -1 && stands != tab)
                continue;
            EXPECT_TRUE(reached.emplace(row.mnemonic, row.name).second)
                << row.mnemonic << " on tab " << tab << ": " << row.name << " and "
                << reached[row.mnemonic];
            // An arrow has no letters: what it is for tells, and its letter with it.
            EXPECT_TRUE(!control.hint().empty() ||
                        std::string(row.caption)
                                .find_first_of({row.mnemonic,
                                                static_cast<char>(row.mnemonic + ('a' - 'A'))}) !=
                            std::string::npos)
                << row.name << " does not show its letter";
        }
        EXPECT_GE(reached.size(), 2U);
    }
}

TEST_F(ControlInventory, ClearListesEmptiesTheLabelsAndLeavesTheCodes) {
    form->control().ClearListes();
    EXPECT_EQ(at<widgets::ListBox>(*form, "Lst_SectPossibles").ListCount(), 0);
    EXPECT_EQ(at<widgets::ListBox>(*form, "Lst_SectSelect").ListCount(), 0);
    EXPECT_EQ(at<widgets::ListBox>(*form, "Lst_CodSectPossibles").ListCount(), 4);
    EXPECT_EQ(at<widgets::ListBox>(*form, "Lst_CodSectSelect").ListCount(), 4);
}

} // namespace
} // namespace vorandine::control_test
