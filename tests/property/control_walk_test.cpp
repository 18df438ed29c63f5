// Random gestures on the whole control. After each one holds what must hold whatever a user does:
// lists in step, enabled states, nothing stored but by leaving, and a saved screen that reads back.
// VORANDINE_WALK_STEPS and VORANDINE_WALK_SEED make longer walks and repeat one.
#include "unit/control_support.h"
#include "widgets/Gestures.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <optional>
#include <random>
#include <set>

namespace vorandine::control_test {
namespace {

using namespace widgets;

const std::set<std::string> TypingRow = {
    "Txt_DatFormAidant", "Cbo_CodFormAidant",    "Txt_HhFormAidant", "Txt_ObsFormAidant",
    "Cbo_DifFormAidant", "Cmd_AjouterFormation", "Cmd_OKForm",       "Cmd_AnnulerForm"};
const std::set<std::string> Detail = {"Cdr_DetailDif", "Lst_DetailDif", "Txt_DateDif",
                                      "Txt_DroitDif",  "Txt_FormDif",   "Txt_HreDif",
                                      "Txt_SoldeDif",  "Cmd_AjoutDif",  "Cmd_AnnuleDif",
                                      "Cmd_SupprDif",  "Cmd_OkDif",     "Cmd_CalculDif"};
const std::vector<std::string> TrainingLists = {"Lst_DatFormAidant", "Lst_CodFormAidant",
                                                "Lst_HhFormAidant",  "Lst_ObsFormAidant",
                                                "Lst_DifFormAidant", "Lst_CodeForm"};
// What the record keeps of the screen.
const std::vector<std::string> KeptFields = {
    "Cbo_EtudeAidant",      "Txt_AnDipAidant",      "Txt_SpecialAidant",    "Txt_ExpProfAidant(0)",
    "Txt_ExpProfAidant(1)", "Txt_ExpProfAidant(2)", "Txt_ExpProfAidant(3)", "Txt_ExpProfAidant(4)",
    "Txt_ExpProfAidant(5)", "Txt_ExpProfAidant(6)", "Cbo_Qualif",           "Txt_DatSaisieAidant",
    "Txt_DatDispoAidant",   "Txt_DatFinDispoAidant"};
const std::vector<std::string> Texts = {"",
                                        "7",
                                        "7,5",
                                        "1234",
                                        "12345",
                                        "1,234",
                                        "-12,5",
                                        "     ",
                                        ",",
                                        "12/03/2004",
                                        "1/2/5",
                                        "5/7",
                                        "0101",
                                        "010203",
                                        "31/02/2005",
                                        "2001",
                                        "abc",
                                        "Écoutante",
                                        "Nuit \"et\" jour",
                                        "é\u0001\n\tç",
                                        "Manutention",
                                        "01 BEP sanitaire",
                                        "þýü 😀"};

constexpr const char* Keyboard = "a key, or the close button";

unsigned long fromEnvironment(const char* name, unsigned long otherwise) {
    const char* const text = std::getenv(name);
    return text != nullptr ? std::strtoul(text, nullptr, 10) : otherwise;
}

class Walk {
  public:
    explicit Walk(unsigned long seed)
        : random_(seed), desk_({[this](const Message& message) { return answer(message); },
                                [](Form& form) { form.Unload(); },
                                {},
                                {}}) {
        // The old activity A9 has left its table; so has the training code ZZZ.
        Content odd = caregiver(12);
        odd[6][4] = "ZZZ";
        odd[10] = {"A9", "A2"};
        odd[16] = {"seize"};
        desk_.put("FORMVORANDINE", "00001", caregiver(0));
        desk_.put("FORMVORANDINE", "00002", odd);
        Content none = caregiver(9);
        none.erase(10);
        desk_.put("FORMVORANDINE", "00003", none);
        open();
    }

    void step() {
        const std::string storeBefore = wholeStore();
        const std::string screenBefore = wholeScreen();
        const bool editingBefore = editing();
        const std::string focusBefore = focus();
        lastAnswer_.reset();
        const Outcome outcome = gesture();
        kept_ = outcome == Outcome::FocusKept;
        const bool stored = wholeStore() != storeBefore;
        if (outcome != Outcome::Done) {
            EXPECT_FALSE(stored || form_->form().unloaded());
            EXPECT_TRUE(outcome != Outcome::Refused || wholeScreen() == screenBefore)
                << "a refused gesture did something";
        }
        EXPECT_EQ(desk_.errors.size(), 0U);
        EXPECT_EQ(form_->control().MousePointer(), NormalPointer);
        EXPECT_TRUE(form_->control().Enabled());
        EXPECT_EQ(form_->control().W_Sortir, form_->form().unloaded() ? 1 : 0);
        if (form_->form().unloaded()) {
            leave(stored);
            return;
        }
        EXPECT_FALSE(stored) << "stored without leaving";
        follow(editingBefore, focusBefore);
        checkLists();
        checkStates();
        EXPECT_NE(form_->form().nextInOrder(false), nullptr) << "the keyboard reaches nothing";
    }

    [[nodiscard]] const std::string& last() const { return last_; }
    [[nodiscard]] int saved() const { return saved_; }

  private:
    std::mt19937_64 random_;
    Desk desk_;
    std::unique_ptr<host::CaregiverForm> form_;
    std::string code_;
    std::string last_; // the gesture, for whoever reads a failure
    std::optional<Answer> lastAnswer_;
    bool kept_ = false;        // the last gesture ended in a leaving rule
    bool fresh_ = true;        // no edit has ended yet: Cbo_DifFormAidant is still enabled
    bool detailClosed_ = true; // no edit has ended since tab 2 came to the front
    bool byList_ = false;      // the line open was opened from a list
    int saved_ = 0;

    int below(int end) { return static_cast<int>(random_() % static_cast<unsigned long>(end)); }

    const std::string& text() {
        return Texts[static_cast<std::size_t>(below(static_cast<int>(Texts.size())))];
    }

    Answer answer(const Message& message) {
        if (message.buttons == Buttons::OK)
            return Answer::OK;
        const int choice = below(message.buttons == Buttons::YesNo ? 2 : 3);
        return *(lastAnswer_ = choice == 0   ? Answer::Yes
                               : choice == 1 ? Answer::No
                                             : Answer::Cancel);
    }

    void open() {
        code_ = "0000" + std::to_string(below(5)); // two of them have no record at first
        form_ = desk_.open(code_);
        fresh_ = detailClosed_ = true;
        byList_ = false;
    }

    // Mostly one that a user could work with, and seldom one of the two buttons that end it all.
    Control& anyControl() {
        const control::ControlCollection all = form_->control().Controls();
        for (;;) {
            Control& control = all(below(all.Count()));
            const bool leaves = control.Name() == "Cmd_OK" || control.Name() == "Cmd_Retour";
            if (below(leaves ? 8 : control.reachable() && control.takesFocus() ? 1 : 40) == 0)
                return control;
        }
    }

    Outcome gesture() {
        // A field that keeps the focus is emptied, else the walk would stay in it for long.
        auto* const field = dynamic_cast<TextField*>(form_->form().focus());
        if (std::exchange(kept_, false) && field != nullptr) {
            last_ = field->fullName();
            return erase(*field);
        }
        return below(4) == 0 ? key() : onControl(below(12) == 0 ? tabs() : anyControl());
    }

    Outcome onControl(Control& control) {
        last_ = control.fullName();
        if (auto* const combo = dynamic_cast<ComboBox*>(&control);
            combo != nullptr && below(2) == 0)
            return choose(*combo, combo->List(below(combo->ListCount() + 1)));
        if (auto* const field = dynamic_cast<TextField*>(&control))
            return inField(*field);
        if (auto* const list = dynamic_cast<ListBox*>(&control))
            return inList(*list);
        if (auto* const button = dynamic_cast<CommandButton*>(&control))
            return click(*button);
        if (auto* const option = dynamic_cast<OptionButton*>(&control))
            return click(*option);
        if (auto* const bar = dynamic_cast<ScrollBar*>(&control))
            return scrollTo(*bar, below(bar->Max() + 3) - 1);
        return &control == &tabs() ? showTab(tabs(), below(4)) : moveFocus(control);
    }

    Outcome key() {
        last_ = Keyboard;
        const int chosen = below(60);
        if (chosen == 0)
            return closeForm(form_->form());
        // Escape leaves the form, so it comes less often than where it ends an edit.
        return chosen < (editing() ? 20 : 3)
                   ? pressKey(form_->form(), Key::Escape)
                   : pressKey(form_->form(),
                              std::vector{Key::Tab, Key::BackTab, Key::Enter, Key::Space, Key::Up,
                                          Key::Down, Key::Backspace, Key::Delete}
                                  .at(static_cast<std::size_t>(below(8))));
    }

    Outcome inField(TextField& field) {
        switch (below(4)) {
        case 0:
            return focusField(field);
        case 1:
            return typeText(field, text());
        case 2:
            return erase(field);
        default:
            return paste(field, text());
        }
    }

    Outcome inList(ListBox& list) {
        const int line = below(list.ListCount() + 2) - 1;
        switch (below(4)) {
        case 0:
            return doubleClickLine(list, line);
        case 1:
            return list.multiSelect() ? mark(list, {line, below(list.ListCount() + 1)})
                                      : clickLine(list, line);
        case 2:
            return drag(list, anyControl());
        default:
            return clickLine(list, line, {below(2) == 0, below(3) == 0});
        }
    }

    std::string focus() {
        const Control* const control = form_->form().focus();
        return control != nullptr ? control->fullName() : std::string();
    }

    TabContainer& tabs() { return at<TabContainer>(*form_, "Ong_Vorandine"); }

    bool editing() { return at<Control>(*form_, "Cmd_AnnulerForm").Enabled(); }

    // What the state of the screen should be now follows from where the gesture was made.
    void follow(bool editingBefore, const std::string& focusBefore) {
        if (!editingBefore && editing())
            byList_ = (last_ == Keyboard ? focusBefore : last_).starts_with("Lst_");
        if (editingBefore && !editing()) {
            fresh_ = detailClosed_ = false;
            EXPECT_EQ(at<ListBox>(*form_, "Lst_CodeForm").ListIndex(), -1);
        }
        if (tabs().Tab() == 2)
            detailClosed_ = true;
    }

    [[nodiscard]] bool expected(const Control& control, bool open) const {
        const std::string& name = control.Name();
        if (open)
            return TypingRow.count(name) > 0 || name == "Ong_Vorandine" ||
                   (name == "Cmd_SupprimerForm" && byList_);
        if (name == "Cbo_DifFormAidant" && fresh_)
            return true;
        return TypingRow.count(name) == 0 && name != "Cmd_SupprimerForm" &&
               (Detail.count(name) == 0 || !detailClosed_);
    }

    void checkStates() {
        const bool open = editing();
        const control::ControlCollection all = form_->control().Controls();
        for (int i = 0; i < all.Count(); ++i)
            EXPECT_EQ(all(i).Enabled(), expected(all(i), open)) << all(i).fullName();
        EXPECT_TRUE(tabs().TabEnabled(0));
        EXPECT_EQ(tabs().TabEnabled(1), !open);
        EXPECT_EQ(tabs().TabEnabled(2), !open);
        EXPECT_TRUE(!open || tabs().Tab() == 0);
    }

    void checkLists() {
        const auto& first = at<ListBox>(*form_, TrainingLists[0]);
        for (const std::string& name : TrainingLists) {
            EXPECT_EQ(at<ListBox>(*form_, name).ListCount(), first.ListCount()) << name;
            EXPECT_EQ(at<ListBox>(*form_, name).ListIndex(), first.ListIndex()) << name;
        }
        const auto& bar = at<ScrollBar>(*form_, "Bdv_FormAidant");
        EXPECT_TRUE(bar.Value() >= 0 && bar.Value() <= std::max(0, bar.Max()));
        for (const auto& [labels, codes] : {std::pair{"Lst_SectPossibles", "Lst_CodSectPossibles"},
                                            std::pair{"Lst_SectSelect", "Lst_CodSectSelect"}}) {
            const auto& labelList = at<ListBox>(*form_, labels);
            const auto& codeList = at<ListBox>(*form_, codes);
            ASSERT_EQ(labelList.ListCount(), codeList.ListCount()) << labels;
            for (int i = 0; i < codeList.ListCount(); ++i)
                EXPECT_EQ(desk_.engine->file("ACTIVITES")
                              ->read(codeList.List(i))
                              .value_or(labelList.List(i)),
                          labelList.List(i))
                    << codeList.List(i);
        }
    }

    // The form has gone: what was saved shows again, to the letter.
    void leave(bool stored) {
        const bool saved = stored && lastAnswer_ != Answer::No;
        const std::string kept = keptScreen();
        const std::string code = code_;
        if (saved) {
            ++saved_;
            const data::DBARecord record =
                store::Store(desk_.engine).OpenFile("FORMVORANDINE")->ReadRecord(code);
            for (const int attribute : {5, 6, 7, 8, 14})
                EXPECT_TRUE(record(attribute).empty() ||
                            record.DCount(attribute) == record.DCount(6))
                    << attribute;
            EXPECT_EQ(record.DCount(6), at<ListBox>(*form_, "Lst_CodeForm").ListCount());
            EXPECT_EQ(record(9).empty() ? 7 : record.DCount(9), 7);
            EXPECT_GT(record.DCount(10), 0);
            form_ = desk_.open(code);
            EXPECT_EQ(keptScreen(), kept);
        }
        open();
    }

    std::string keptScreen() {
        std::string all = at<OptionButton>(*form_, "Opt_Diplome").Value() ? "D" : "N";
        for (const std::string& name : KeptFields)
            all += "\n" + name + "=" + at<TextField>(*form_, name).Text();
        for (std::string name : TrainingLists)
            all += lines(name);
        return all + lines("Lst_SectSelect") + lines("Lst_CodSectSelect");
    }

    std::string lines(const std::string& name) {
        const auto& list = at<ListBox>(*form_, name);
        std::string all = "\n" + name;
        for (int i = 0; i < list.ListCount(); ++i)
            all += "|" + list.List(i);
        return all;
    }

    // Everything that a gesture could change, the focus included.
    std::string wholeScreen() {
        std::string all = keptScreen() + "\n" + focus();
        const control::ControlCollection controls = form_->control().Controls();
        for (int i = 0; i < controls.Count(); ++i) {
            all += controls(i).Enabled() ? '+' : '-';
            if (const auto* const list = dynamic_cast<ListBox*>(&controls(i))) {
                all += std::to_string(list->ListIndex());
                for (int line = 0; line < list->ListCount(); ++line)
                    all += list->Selected(line) ? '#' : '.';
            } else if (const auto* const field = dynamic_cast<TextField*>(&controls(i))) {
                all += field->Text();
            }
        }
        return all + std::to_string(at<ScrollBar>(*form_, "Bdv_FormAidant").Value()) +
               std::to_string(tabs().Tab());
    }

    std::string wholeStore() {
        std::string all;
        for (const std::string& file : desk_.engine->files())
            desk_.engine->file(file)->scan({}, [&](std::string_view key, std::string_view record) {
                all.append(file).append(key).append("=").append(record).append("\n");
                return true;
            });
        return all;
    }
};

TEST(ControlWalk, WhateverAUserDoesTheFileStaysSound) {
    const unsigned long steps = fromEnvironment("VORANDINE_WALK_STEPS", 3000);
    const unsigned long seed = fromEnvironment("VORANDINE_WALK_SEED", 20060615);
    Walk walk(seed);
    for (unsigned long i = 0; i < steps && !testing::Test::HasFailure(); ++i) {
        walk.step();
        if (testing::Test::HasFailure())
            ADD_FAILURE() << "VORANDINE_WALK_SEED=" << seed << ", step " << i << ": "
                          << walk.last();
    }
    EXPECT_GT(walk.saved(), 0) << "the walk never saved: it tests too little";
}

} // namespace
} // namespace vorandine::control_test
