// Lists and combo boxes as code sees them: selection kept on its line, bounds, sorted entries.
#include "text/Error.h"
#include "widgets/Form.h"
#include "widgets/ListBox.h"
#include "widgets/Simple.h"
#include "widgets/TextField.h"

#include <gtest/gtest.h>

namespace vorandine::widgets {
namespace {

template <typename Work>
std::uint32_t raisedBy(Work work) {
    try {
        work();
    } catch (const Error& error) {
        return error.number();
    }
    return 0;
}

TEST(WidgetsLists, SelectionStaysOnItsLineAndOnlyAssigningClicks) {
    ListBox list;
    std::string clicks;
    list.Click = [&] { clicks += std::to_string(list.ListIndex()) + " "; };
    for (const char* const line : {"b", "c", "d"})
        list.AddItem(line);
    list.ListIndex(1);
    list.ListIndex(1);
    list.AddItem("a", 0);
    EXPECT_EQ(list.List(list.ListIndex()), "c");
    list.RemoveItem(0);
    EXPECT_EQ(list.List(list.ListIndex()), "c");
    list.RemoveItem(list.ListIndex());
    EXPECT_EQ(list.ListIndex(), -1);
    EXPECT_EQ(clicks, "1 ");
    list.ListIndex(0);
    list.ListIndex(-1);
    list.ListIndex(1);
    list.Clear();
    EXPECT_EQ(list.ListIndex(), -1);
    EXPECT_EQ(clicks, "1 0 -1 1 ");
}

TEST(WidgetsLists, LinesSelectedOneByOneMoveWithTheirLine) {
    ListBox list;
    list.multiSelect(true);
    for (const char* const line : {"a", "b", "c"})
        list.AddItem(line);
    list.Selected(0, true);
    list.Selected(2, true);
    EXPECT_EQ(list.ListIndex(), -1);
    list.RemoveItem(0);
    EXPECT_FALSE(list.Selected(0));
    EXPECT_TRUE(list.Selected(1));
    list.AddItem("z", 0);
    EXPECT_FALSE(list.Selected(0));
    EXPECT_TRUE(list.Selected(2));
}

TEST(WidgetsLists, IndexOutOfRangeIsAnErrorSaveReadingPastTheEnd) {
    ListBox list;
    list.AddItem("a");
    EXPECT_EQ(list.List(1), "");
    const auto outOfRange = [](auto work) { return raisedBy(work) == errors::OutOfRange; };
    EXPECT_TRUE(outOfRange([&] { (void)list.List(-1); }));
    EXPECT_TRUE(outOfRange([&] { list.List(1, "b"); }));
    EXPECT_TRUE(outOfRange([&] { list.AddItem("b", 2); }));
    EXPECT_TRUE(outOfRange([&] { list.RemoveItem(1); }));
    EXPECT_TRUE(outOfRange([&] { list.ListIndex(1); }));
    EXPECT_TRUE(outOfRange([&] { list.Selected(-1, true); }));
    EXPECT_EQ(list.ListCount(), 1);
    EXPECT_EQ(list.List(0), "a");

    TabContainer tabs;
    tabs.tabs({"Un", "Deux"});
    EXPECT_TRUE(outOfRange([&] { tabs.Tab(2); }));
    EXPECT_TRUE(outOfRange([&] { tabs.TabEnabled(-1, true); }));
    ComboBox combo;
    EXPECT_TRUE(outOfRange([&] { combo.ListIndex(0); }));
    EXPECT_TRUE(outOfRange([&] { (void)combo.List(-1); }));
}

TEST(WidgetsLists, ListsEndAtTheLastLineThatA16BitCounterReaches) {
    ListBox list;
    ComboBox combo;
    for (int i = 0; i < MaxLines; ++i) {
        list.AddItem("");
        combo.AddItem("");
    }
    EXPECT_EQ(raisedBy([&] { list.AddItem("x"); }), errors::TooManyLines);
    EXPECT_EQ(raisedBy([&] { combo.AddItem("x"); }), errors::TooManyLines);
    EXPECT_EQ(list.ListCount(), MaxLines);
}

TEST(WidgetsLists, SortedEntriesStandInFrenchOrder) {
    ComboBox combo;
    combo.sorted(true);
    for (const char* const entry : {"zone", "Été", "côté", "cote", "eau", "côte", "eau"})
        combo.AddItem(entry);
    std::string all;
    for (int i = 0; i < combo.ListCount(); ++i)
        all += combo.List(i) + " ";
    EXPECT_EQ(all, "cote côte côté eau eau Été zone ");
    combo.Text("eau");
    EXPECT_EQ(combo.ListIndex(), 3);
}

TEST(WidgetsLists, TextOfACombosListAndOfItsFieldGoTogether) {
    ComboBox combo;
    int clicks = 0;
    combo.Click = [&] { ++clicks; };
    combo.AddItem("OUI");
    combo.AddItem("NON");
    combo.ListIndex(1);
    EXPECT_EQ(combo.Text(), "NON");
    combo.Text("OUI");
    EXPECT_EQ(combo.ListIndex(), 0);
    EXPECT_EQ(clicks, 1);
    combo.dropDownList(true);
    EXPECT_EQ(raisedBy([&] { combo.Text("oui"); }), errors::NotAnEntry);
    EXPECT_EQ(combo.Text(), "OUI");
    combo.Text("");
    EXPECT_EQ(combo.ListIndex(), -1);
    combo.Text("NON");
    combo.Clear();
    EXPECT_EQ(combo.Text(), "");
    EXPECT_EQ(combo.ListCount(), 0);
}

TEST(WidgetsLists, BarHoldsItsValueWithinItsRange) {
    ScrollBar bar;
    std::string changes;
    bar.Change = [&] { changes += std::to_string(bar.Value()) + " "; };
    bar.Max(5);
    bar.Value(9);
    bar.Value(5);
    bar.Max(3);
    bar.Value(-2);
    bar.Max(-1);
    EXPECT_EQ(bar.Max(), -1);
    EXPECT_EQ(bar.Value(), 0);
    EXPECT_EQ(changes, "5 3 0 ");
}

TEST(WidgetsLists, TabFromCodeClicksOnceAndMayShowAClosedTab) {
    TabContainer tabs;
    tabs.tabs({"Un", "Deux"});
    tabs.TabEnabled(1, false);
    std::string clicks;
    tabs.Click = [&](std::int16_t& before) {
        clicks += std::to_string(before) + ">" + std::to_string(tabs.Tab()) + " ";
    };
    tabs.Tab(1);
    tabs.Tab(1);
    tabs.Tab(0);
    EXPECT_EQ(clicks, "0>1 1>0 ");
}

} // namespace
} // namespace vorandine::widgets
