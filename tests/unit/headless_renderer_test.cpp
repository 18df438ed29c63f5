// A form as text: what a reader of the terminal sees, and what he must not see.
#include "frontends/headless/TextRenderer.h"
#include "text/Characters.h"
#include "widgets/ListBox.h"
#include "widgets/Simple.h"
#include "widgets/TextField.h"

#include <gtest/gtest.h>

namespace vorandine::headless {
namespace {

using namespace widgets;

class Screen : public testing::Test {
  protected:
    Form form;

    Screen() {
        form.Caption("Fiche");
        form.place({0, 0, 4800, 3000});
    }
    template <typename Kind>
    void put(Kind& control, const Place& place, const char* caption = "") {
        if constexpr (requires { control.Caption(caption); })
            control.Caption(caption);
        control.place(place);
        form.add(control);
    }
    [[nodiscard]] bool shows(const std::string& text) const {
        return render(form).find(text) != std::string::npos;
    }
    void expectShown(std::initializer_list<const char*> texts) const {
        for (const char* const text : texts)
            EXPECT_TRUE(shows(text)) << text << " in\n" << render(form);
    }
};

TEST_F(Screen, EveryKindOfControlHasItsFace) {
    TabContainer tabs;
    Label name;
    TextBox field;
    OptionButton yes;
    CommandButton ok;
    CommandButton cancel;
    tabs.tabs({"Études", "Suite"});
    put(tabs, {0, 0, 4800, 240});
    put(name, {120, 420, 300, 195}, "Prénom, plus long que sa place");
    put(field, {1200, 360, 1800, 285});
    put(yes, {120, 960, 900, 252}, "Été");
    put(ok, {120, 1440, 855, 375}, "OK");
    put(cancel, {1200, 1440, 855, 375}, "Annuler");
    field.Text("Éléonore");
    yes.Value(true);
    cancel.Enabled(false);
    expectShown({"═══ Fiche ══", "[ Études ]─  Suite ", "Prénom, plus long que sa place [Éléonore.",
                 "(•) Été", "< OK > ", " ( Annuler )"});
    field.Enabled(false);
    expectShown({"(Éléonore "});
}

TEST_F(Screen, ListsStandInStepWithColumnsUnderTheirHeads) {
    ListBox dates;
    ListBox labels;
    put(dates, {120, 120, 1575, 1350});
    put(labels, {1320, 120, 3300, 1350}); // the first one runs under it
    labels.multiSelect(true);
    for (int i = 0; i < 30; ++i) {
        dates.AddItem("01/02/20" + std::to_string(10 + i));
        labels.AddItem("ligne " + std::to_string(i));
    }
    dates.ListIndex(0);
    labels.Selected(1, true);
    expectShown({"│>01/02/2010   │ ligne 0 ", "│ 01/02/2011   │>ligne 1 ", "│ ↓ "});
    EXPECT_FALSE(shows("↑"));
    dates.ListIndex(29); // the current line stays in sight
    expectShown({"│>01/02/2039", "↑ "});
    labels.Enabled(false);
    expectShown({"┊ ligne 0"});

    Label day;
    Label sum;
    ListBox list;
    put(day, {300, 1560, 600, 195}, "Jour");
    put(sum, {3900, 1560, 600, 195}, "Somme");
    list.columns({{1, 10, 60, 1200, false}, {11, 8, 3400, 4400, true}});
    put(list, {120, 1800, 4560, 700});
    for (const char* const line :
         {"01/03/2006   12,50", "02/03/2006   -0,50", "03/03/2006 123456789,50"})
        list.AddItem(line);
    const std::string all = render(form);
    const auto column = [&](const char* text) {
        const std::size_t at = all.find(text);
        EXPECT_NE(at, std::string::npos) << text << " in\n" << all;
        const std::size_t line = all.rfind('\n', at) + 1;
        return static_cast<int>(text::Len(all.substr(line, at - line)));
    };
    EXPECT_EQ(column("12,50"), column("-0,50"));
    EXPECT_NEAR(column("12,50"), column("Somme"), 4);
    EXPECT_NEAR(column("01/03"), column("Jour"), 4);
    expectShown({"03/03/2006 123456789,50"}); // too wide for its column, and shown whole
}

} // namespace
} // namespace vorandine::headless
