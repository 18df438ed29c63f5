// A form as text: what a reader of the terminal sees, and what he must not see.
#include "frontends/headless/TextRenderer.h"
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

TEST_F(Screen, ListsStandInStepAndTheCurrentLineInSight) {
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
}

} // namespace
} // namespace vorandine::headless
