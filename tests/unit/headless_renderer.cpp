// A form as text: what a reader of the terminal sees, and what he must not see.
#include "frontends/headless/TextRenderer.h"
#include "text/Characters.h"
#include "widgets/ListBox.h"
#include "widgets/Simple.h"
#include "widgets/TextField.h"

#include <gtest/gtest.h>

#include <sstream>

namespace vorandine::headless {
namespace {

using namespace widgets;

class Screen : public testing::Test {
  protected:
    Screen() {
        form.Caption("Fiche");
        form.place({0, 0, 4800, 3000});
    }

    template <typename Kind>
    void put(Kind& control, const Place& place, const char* caption) {
        control.Caption(caption);
        put(control, place);
    }
    void put(Control& control, const Place& place) {
        control.place(place);
        form.add(control);
    }

    // The line of the screen that holds `text`; fails unless it is one.
    std::string line(const std::string& text) {
        std::istringstream lines(render(form));
        std::string found;
        int count = 0;
        for (std::string each; std::getline(lines, each);)
            if (each.find(text) != std::string::npos) {
                found = each;
                ++count;
            }
        EXPECT_EQ(count, 1) << text << " in\n" << render(form);
        return found;
    }
    bool shows(const std::string& text) { return render(form).find(text) != std::string::npos; }

    Form form;
};

TEST_F(Screen, EveryKindOfControlHasItsFace) {
    Label name;
    TextBox field;
    ComboBox combo;
    OptionButton yes;
    OptionButton no;
    CommandButton ok;
    CommandButton cancel;
    put(name, {120, 120, 900, 195}, "Prénom");
    put(field, {1200, 60, 1800, 285});
    put(combo, {1200, 480, 1800, 315});
    put(yes, {120, 960, 900, 252}, "Été");
    put(no, {1200, 960, 900, 252}, "Hiver");
    put(ok, {120, 1440, 855, 375}, "OK");
    put(cancel, {1200, 1440, 855, 375}, "Annuler");
    field.Text("Éléonore");
    combo.Text("un choix bien trop long pour sa place");
    yes.Value(true);
    cancel.Enabled(false);
    EXPECT_EQ(render(form), "═══ Fiche ══════════════════════════════════════════════════\n"
                            "  Prénom       [Éléonore.............]\n"
                            "               [un choix bien trop… v]\n"
                            "  (•) Été      ( ) Hiver\n"
                            "  < OK >       ( Annuler )\n"
                            "════════════════════════════════════════════════════════════\n");
    field.Enabled(false);
    EXPECT_NE(line("Éléonore").find("(Éléonore             )"), std::string::npos);
}

TEST_F(Screen, OnlyTheTabInFrontAndWhatIsNotCoveredIsSeen) {
    TabContainer tabs;
    Frame frame;
    Label inFrame;
    Label other;
    Label hidden;
    ListBox behind;
    ListBox before;
    put(tabs, {0, 0, 4800, 3000});
    tabs.tabs({"Études", "Suite", "Fin"});
    tabs.TabEnabled(2, false);
    frame.Caption("Cadre");
    frame.place({120, 480, 4500, 700});
    tabs.add(frame, 0);
    inFrame.Caption("dedans");
    inFrame.place({120, 300, 900, 195});
    frame.add(inFrame);
    other.Caption("ailleurs");
    other.place({120, 480, 900, 195});
    tabs.add(other, 1);
    hidden.Caption("invisible");
    hidden.place({120, 1300, 900, 195});
    hidden.Visible(false);
    tabs.add(hidden, 0);
    behind.AddItem("derrière");
    behind.place({600, 1500, 900, 900});
    tabs.add(behind, 0);
    before.AddItem("devant");
    before.place({120, 1500, 3000, 900});
    tabs.add(before, 0);

    EXPECT_NE(line("Études").find("[ Études ]─  Suite  ─( Fin )"), std::string::npos);
    EXPECT_NE(line("Cadre").find("┌─ Cadre ─"), std::string::npos);
    EXPECT_TRUE(shows("dedans") && shows("devant"));
    EXPECT_FALSE(shows("ailleurs") || shows("invisible") || shows("derrière"));
    tabs.Tab(1);
    EXPECT_TRUE(shows("ailleurs"));
    EXPECT_FALSE(shows("dedans") || shows("Cadre"));
}

TEST_F(Screen, ListsThatRunUnderTheirNeighbourShowTheirLines) {
    ListBox dates;
    ListBox labels;
    ScrollBar bar;
    dates.place({120, 120, 1575, 1950});
    labels.place({1320, 120, 3300, 1950});
    bar.place({4365, 120, 255, 1950});
    form.add(dates);
    form.add(labels);
    form.add(bar);
    for (int i = 0; i < 30; ++i) {
        dates.AddItem("01/02/20" + std::to_string(10 + i));
        labels.AddItem("ligne " + std::to_string(i));
    }
    dates.ListIndex(0);
    labels.ListIndex(0);
    EXPECT_NE(line("2010").find("│>01/02/2010   │>ligne 0 "), std::string::npos) << line("2010");
    EXPECT_NE(line("↓").find("│ ↓ 21         │ ↓ 21"), std::string::npos) << line("↓");
    EXPECT_FALSE(shows("↑"));

    // The current line stays in sight.
    dates.ListIndex(29);
    labels.ListIndex(29);
    EXPECT_NE(line("2039").find("│>01/02/2039"), std::string::npos);
    EXPECT_TRUE(shows("↑ 21"));
    EXPECT_FALSE(shows("↓"));
}

TEST_F(Screen, ColumnsOfAListStandUnderTheirHeads) {
    Label day;
    Label sum;
    ListBox list;
    CommandButton wide;
    put(day, {300, 60, 600, 195}, "Jour");
    put(sum, {3900, 60, 600, 195}, "Somme");
    list.columns({{1, 10, 60, 1200, false}, {11, 8, 3400, 4400, true}});
    put(list, {120, 300, 4560, 900});
    put(wide, {120, 1300, 2400, 375}, "un bouton très large, qui prend beaucoup de place");
    list.AddItem("01/02/2006   12,50");
    list.AddItem("02/02/2006   -0,50");
    list.AddItem("03/02/2006 123456789,50");
    const auto column = [&](const std::string& text) {
        const std::string whole = line(text);
        return text::Len(whole.substr(0, whole.find(text)));
    };
    EXPECT_EQ(column("12,50"), column("-0,50"));
    EXPECT_NEAR(static_cast<double>(column("12,50")), static_cast<double>(column("Somme")), 4);
    EXPECT_NEAR(static_cast<double>(column("01/02")), static_cast<double>(column("Jour")), 4);
    // What is too wide for its column is shown whole.
    EXPECT_TRUE(shows("03/02/2006 123456789,50"));
}

TEST_F(Screen, ALabelHighEnoughGoesOnBelow) {
    Label account;
    CommandButton ok;
    put(account, {120, 120, 4560, 600}, "");
    put(ok, {120, 900, 975, 375}, "Ok");
    const auto width = [&] { return text::Len(line("═ Fiche ═")); };
    const std::size_t before = width();
    account.Caption("Solde au-dessous de zéro : Aide à domicile en Cévennes (-5,00), Léa MÉNARD "
                    "(-20,00), Relais des Garrigues (-1,50).");
    EXPECT_EQ(width(), before) << "a long text does not make the form wider";
    EXPECT_NE(line("Solde"), line("MÉNARD"));
    EXPECT_TRUE(shows("Solde au-dessous de zéro :"));
    EXPECT_TRUE(shows("Léa MÉNARD"));
    account.Caption("court");
    EXPECT_TRUE(shows("court\n"));
}

TEST_F(Screen, SelectedLinesAreMarkedAndDisabledListsAreDotted) {
    ListBox list;
    list.multiSelect(true);
    put(list, {120, 120, 2400, 900});
    for (const char* item : {"un", "deux", "trois"})
        list.AddItem(item);
    list.Selected(0, true);
    list.Selected(2, true);
    EXPECT_NE(line("un").find("│>un"), std::string::npos);
    EXPECT_NE(line("deux").find("│ deux"), std::string::npos);
    EXPECT_NE(line("trois").find("│>trois"), std::string::npos);
    form.Enabled(false);
    EXPECT_TRUE(shows("┊ deux"));
}

TEST_F(Screen, CaptionsAreNeverCutWhereTheirNeighbourCanMove) {
    Label caption;
    TextBox field;
    put(caption, {120, 120, 300, 195}, "Une légende bien plus longue que sa place");
    put(field, {480, 60, 600, 285});
    field.MaxLength(10);
    EXPECT_NE(line("légende").find("Une légende bien plus longue que sa place ["),
              std::string::npos);
    EXPECT_NE(line("légende").find("[..........]"), std::string::npos);
}

TEST(EmptyScreen, AFormWithNothingOnItHasATitleStill) {
    Form form;
    form.Caption("Vide");
    EXPECT_NE(render(form).find("═══ Vide ═"), std::string::npos);
}

} // namespace
} // namespace vorandine::headless
