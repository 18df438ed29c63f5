// Random gestures on the whole control, its modal forms included. After each one holds what must
// hold whatever a user does: lists in step, nothing stored but by leaving or by a confirmed line,
// ledgers that are sound, a file that is saved again the same, a form that can be worked with. What
// is done stands in walk_hand.
// VORANDINE_WALK_STEPS and VORANDINE_WALK_SEED make longer walks and repeat one.
#include "apps/scenario/RehearsalEngine.h"
#include "property/walk_hand.h"
#include "unit/control_support.h"

#include <gtest/gtest.h>

#include <optional>

namespace vorandine::control_test {
namespace {

using namespace widgets;

constexpr const char* Keyboard = "a key, or the close button";

using Ledgers = std::map<std::string, std::string>; // stored texts by key

// Each of as many lines as the first of them; those of trainings with one line selected in all.
const std::vector<std::vector<std::string>> InStep = {
    {"Lst_DatFormAidant", "Lst_CodFormAidant", "Lst_HhFormAidant", "Lst_ObsFormAidant",
     "Lst_DifFormAidant", "Lst_CodeForm"},
    {"Lst_SectPossibles", "Lst_CodSectPossibles"},
    {"Lst_SectSelect", "Lst_CodSectSelect"},
    {"Lst_DifEmpl", "Lst_CodeEmplDif", "Lst_ContratDif"},
    {"Lst_DetailDif", "Lst_CodeFormDif"}};

class Walk {
  public:
    Walk(unsigned long seed, std::int32_t level)
        : hand_(seed), desk_({[this](const Message& message) { return answer(message); },
                              [this](Form& form) { inModal(form); },
                              {},
                              {},
                              {},
                              {}}) {
        // The old activity A9 has left its table; so has the training code ZZZ.
        Content odd = caregiver(12);
        odd[6][4] = "ZZZ";
        odd[10] = {"A9", "A2"};
        odd[16] = {"seize"};
        Content none = caregiver(9);
        none.erase(10);
        desk_.put("FORMVORANDINE", "00001", caregiver(0));
        desk_.put("FORMVORANDINE", "00002", odd);
        desk_.put("FORMVORANDINE", "00003", none);
        desk_.putText("ASSOCIATION", "ADM", "Aide à domicile en Cévennes");
        desk_.putText("CIVILAIDE", "P0007", "^Léa^MÉNARD");
        const std::string gap(56, '^');
        for (const std::string code : {"00000", "00002", "00003"}) {
            desk_.putText("CONTRAT", code + "-1", "^^ADM^A^^^20000101" + gap + "200603");
            desk_.putText("CONTRAT", code + "-2", "^^P0007^B^^^20000101^20071231");
            desk_.putText("CONTRAT", code + "-3", "^^GON^C^^^20000101" + gap + "199913");
            desk_.putText("CONTRAT", code + "-4", "^^ADM^D^^^20060101");
            // Lines of pay, all of one pay an hour.
            for (int month = 1; month <= 12; ++month)
                desk_.putText("DETAILCALCUL", code + "-" + std::to_string(month),
                              "ADM^^1^" + std::to_string(200500 + month) + "^^" +
                                  std::to_string(2 * month) + "^^^^^^^^^^" +
                                  std::to_string(25 * month));
        }
        for (const std::string code : {"00000", "00002"}) {
            desk_.putText("DIFAIDANT", code + "ADM",
                          "20040312]20050601]20060110^2000]]300^]500]^2000]1500]1800^]MAN]^six");
            // A first line of hours, one of a code without label, lists of different lengths.
            desk_.putText("DIFAIDANT", code + "GON",
                          "20050101]20050101]20050102^]1000^500]]250^0]1000^HYG]]ZZZ");
        }
        // The trainings under the D.I.F. are charged, one of them first of all.
        desk_.putText("DIFAIDANT", "00002P0007",
                      "20051219]20051220]20051222]20051225]20051228^]3000]]]^450]]300]150]100^"
                      "-450]2550]2250]2100]2000^MAN]]HYG]ALI]PSC");
        desk_.engine = rehearsal_; // fails on demand
        desk_.level = level;
        open();
    }

    void step() {
        // Files work again sooner than they begin to fail.
        if (hand_.below(failing_ ? 40 : 200) == 0) {
            rehearsal_->failNothing();
            failing_ = hand_.below(3) > 0;
            if (failing_)
                hand_.below(2) == 0 ? rehearsal_->failWrites("DIFAIDANT")
                                    : rehearsal_->failReads("DIFAIDANT");
        }
        storeBefore_ = wholeStore();
        const Ledgers ledgersBefore = ledgers();
        const std::string screenBefore = screen();
        const bool editingBefore = editing();
        const bool ledgerBefore = ledgerLineOpen();
        lastAnswer_.reset();
        const Outcome outcome = gesture();
        kept_ = outcome == Outcome::FocusKept;
        const bool stored = wholeStore() != storeBefore_;
        const bool ledgersStored = ledgers() != ledgersBefore;
        if (outcome != Outcome::Done) {
            EXPECT_FALSE(stored || ledgersStored || form_->form().unloaded());
            EXPECT_TRUE(outcome != Outcome::Refused || screen() == screenBefore)
                << "a refused gesture did something";
        }
        const bool reads = desk_.level != ports::WritingLevel;
        for (const Error& error : desk_.errors) {
            const bool refused = reads && error.number() == errors::MayNotWrite;
            refused_ += refused ? 1 : 0;
            EXPECT_TRUE(refused || (error.number() == errors::FigureTooWide && !ledgersStored))
                << error.what();
        }
        EXPECT_FALSE(reads && (stored || ledgersStored)) << "stored by who may not write";
        desk_.errors.clear();
        EXPECT_EQ(form_->control().MousePointer(), NormalPointer);
        EXPECT_TRUE(form_->control().Enabled());
        EXPECT_EQ(form_->control().W_Sortir, form_->form().unloaded() ? 1 : 0);
        if (ledgersStored) {
            ++ledgersStored_;
            const bool lineEnded = ledgerBefore && !ledgerLineOpen();
            EXPECT_TRUE(lineEnded || (editingBefore && !editing()))
                << "stored without a line that was confirmed";
            EXPECT_FALSE(failing_);
            checkLedgers(ledgersBefore, lineEnded);
        }
        if (form_->form().unloaded()) {
            leave(stored);
            return;
        }
        EXPECT_FALSE(stored) << "stored without leaving";
        checkLists();
        EXPECT_NE(form_->form().nextInOrder(false), nullptr) << "the keyboard reaches nothing";
    }

    // The last gesture, for whoever reads a failure.
    [[nodiscard]] const std::string& last() const { return last_; }
    // Whether the walk went everywhere: else it tests too little.
    void checkReach() const {
        if (desk_.level != ports::WritingLevel) {
            EXPECT_GT(refused_ * computed_, 0);
            return;
        }
        for (const int reached : {saved_, ledgersStored_, charged_, computed_, labelled_})
            EXPECT_GT(reached, 0);
    }

  private:
    WalkHand hand_;
    Desk desk_;
    std::shared_ptr<store::Engine> below_ = desk_.engine;
    std::shared_ptr<scenario::RehearsalEngine> rehearsal_ =
        std::make_shared<scenario::RehearsalEngine>(below_);
    std::unique_ptr<host::CaregiverForm> form_;
    std::string code_;
    std::string last_;
    std::string storeBefore_;
    std::optional<Answer> lastAnswer_;
    bool failing_ = false; // the file of ledgers
    bool kept_ = false;    // the last gesture ended in a leaving rule
    int saved_ = 0;
    int refused_ = 0; // saves of who may not write
    int ledgersStored_ = 0;
    int charged_ = 0;  // forms that charged hours
    int computed_ = 0; // pay that was shown
    int labelled_ = 0; // forms that changed the table of labels

    Answer answer(const Message& message) {
        if (message.buttons == Buttons::OK)
            return Answer::OK;
        const int choice = hand_.below(message.buttons == Buttons::YesNo ? 2 : 3);
        return *(lastAnswer_ = std::vector{Answer::Yes, Answer::No,
                                           Answer::Cancel}[static_cast<std::size_t>(choice)]);
    }

    void open() {
        // Two of them have no record at first; one is the richest in trainings, ledgers and pay.
        code_ = "0000" + std::to_string(hand_.any(std::vector{0, 0, 1, 2, 2, 2, 3, 4}));
        form_ = desk_.open(code_);
    }

    [[nodiscard]] TabContainer& tabs() const { return at<TabContainer>(*form_, "Ong_Vorandine"); }
    // A line of trainings is open, or one of a ledger.
    [[nodiscard]] bool editing() const { return at<Control>(*form_, "Cmd_AnnulerForm").Enabled(); }
    [[nodiscard]] bool ledgerLineOpen() const {
        return !editing() && !at<Control>(*form_, "Lst_DifEmpl").Enabled();
    }
    // All that a gesture could change.
    [[nodiscard]] std::string screen() const {
        const Control* const focus = form_->form().focus();
        std::string all = focus != nullptr ? focus->fullName() : std::string();
        const control::ControlCollection controls = form_->control().Controls();
        for (int i = 0; i < controls.Count(); ++i) {
            all += controls(i).Enabled() ? '+' : '-';
            if (const auto* const list = dynamic_cast<ListBox*>(&controls(i))) {
                all += std::to_string(list->ListIndex());
                for (int line = 0; line < list->ListCount(); ++line)
                    all += (list->Selected(line) ? '#' : '.') + list->List(line);
            } else if (const auto* const field = dynamic_cast<TextField*>(&controls(i))) {
                all += field->Text();
            }
        }
        return all + std::to_string(at<ScrollBar>(*form_, "Bdv_FormAidant").Value()) +
               std::to_string(tabs().Tab());
    }
    void checkLists() const {
        for (const auto& names : InStep) {
            const auto& first = at<ListBox>(*form_, names[0]);
            for (const std::string& name : names) {
                const auto& list = at<ListBox>(*form_, name);
                EXPECT_EQ(list.ListCount(), first.ListCount()) << name;
                EXPECT_TRUE(names.size() < 6 || list.ListIndex() == first.ListIndex()) << name;
            }
        }
        const auto& bar = at<ScrollBar>(*form_, "Bdv_FormAidant");
        EXPECT_TRUE(bar.Value() >= 0 && bar.Value() <= std::max(0, bar.Max()));
        EXPECT_EQ(bar.Visible(), bar.Max() > 8);
        EXPECT_EQ(tabs().TabEnabled(1), !editing() && !ledgerLineOpen());
        EXPECT_TRUE(!editing() || tabs().Tab() == 0);
    }

    // Not disturbed by failures, as what follows.
    [[nodiscard]] Ledgers ledgers() const {
        Ledgers all;
        below_->file("DIFAIDANT")->scan({}, [&](std::string_view key, std::string_view text) {
            all.emplace(key, text);
            return true;
        });
        return all;
    }
    // All that is stored beside the ledgers, told in a text.
    [[nodiscard]] std::string wholeStore() const {
        std::string all;
        for (const std::string& file : below_->files())
            if (file != "DIFAIDANT")
                below_->file(file)->scan({}, [&](std::string_view key, std::string_view text) {
                    all.append(file).append(key).append("=").append(text).append("\n");
                    return true;
                });
        return all;
    }

    // Dates stay in order, lists are no longer than they are. A ledger that the tab stored has its
    // balances worked out anew; the tab stores one at most.
    void checkLedgers(const Ledgers& before, bool byTab) const {
        int changed = 0;
        for (const auto& [key, text] : ledgers()) {
            const auto old = before.find(key);
            if (old != before.end() && old->second == text)
                continue;
            ++changed;
            const records::DBARecord ledger(nullptr, {}, text);
            SCOPED_TRACE("ledger " + key);
            EXPECT_GT(ledger.DCount(1), 0) << "a ledger without lines was left";
            for (int list = 2; list <= 5; ++list)
                EXPECT_TRUE(ledger(list).empty() || ledger.DCount(list) <= ledger.DCount(1));
            long balance = 0;
            for (int i = 1; i <= ledger.DCount(1); ++i) {
                const auto figure = [&](int list) {
                    return std::strtol(std::string(ledger(list, i)).c_str(), nullptr, 10);
                };
                EXPECT_TRUE(i == 1 || ledger(1, i - 1) <= ledger(1, i)) << "dates out of order";
                balance += !ledger(2, i).empty() ? figure(2) : i > 1 ? -figure(3) : 0;
                EXPECT_TRUE(!byTab || ledger(4, i) == std::to_string(balance)) << "balance " << i;
            }
        }
        EXPECT_LE(changed, byTab ? 1 : 3);
    }

    // The walk goes on in a modal form until that ends. Nothing is stored before, and what is then
    // stored is the form's, not that of the gesture that opened it.
    void inModal(Form& form) {
        const bool pay = form.find("Txt_Resultat") != nullptr;
        const std::string stored = wholeStore();
        const Ledgers before = ledgers();
        while (!testing::Test::HasFailure()) {
            modalGesture(form);
            if (form.unloaded())
                break;
            EXPECT_TRUE(form.Enabled() && form.MousePointer() == NormalPointer);
            EXPECT_TRUE(wholeStore() == stored && ledgers() == before) << "stored before it ended";
            // All lines of pay on this desk come to the same pay an hour.
            const std::string shown = pay ? in<TextField>(form, "Txt_Resultat").Text() : "";
            if (!shown.empty() && last_.ends_with(": Cmd_OK")) {
                EXPECT_EQ(shown, "12,50");
                ++computed_;
            }
        }
        charged_ += ledgers() != before ? 1 : 0;
        labelled_ += wholeStore() != stored ? 1 : 0;
        storeBefore_ = wholeStore() != stored ? wholeStore() : storeBefore_;
    }

    void modalGesture(Form& form) {
        std::vector<Control*> all;
        form.visit([&](Control& control) { all.push_back(&control); });
        const std::vector<std::string> sensible =
            form.find("Txt_Conso") != nullptr
                ? in<Control>(form, "Lst_Dif").Enabled()
                      ? std::vector<std::string>{"Lst_Dif", "Lst_Dif", "Cmd_OKDif"}
                      : std::vector<std::string>{"Txt_Conso", "Cmd_OKDif"}
            : form.find("Txt_CodeParam") != nullptr
                ? std::vector<std::string>{"Txt_CodeParam", "Txt_LibelleParam", "Cmd_AjouterParam",
                                           "Lst_Param", "Cmd_ModifierParam"}
                : std::vector<std::string>{"Cbo_Mois", "Cbo_An", "Cmd_OK"};
        if (hand_.below(5) == 0) {
            last_ = form.Name() + ": " + Keyboard;
            hand_.key(form, 10);
        } else if (hand_.below(2) == 0) {
            const std::string name = hand_.any(sensible);
            last_ = form.Name() + ": " + name;
            hand_.use(in<Control>(form, name));
        } else {
            // Seldom a button: one of them ends the form.
            Control* chosen = hand_.any(all);
            while (dynamic_cast<CommandButton*>(chosen) != nullptr && hand_.below(4) > 0)
                chosen = hand_.any(all);
            last_ = form.Name() + ": " + chosen->fullName();
            hand_.touch(*chosen, all);
        }
    }

    // Mostly one that a user could work with, and seldom one of the two buttons that end it all.
    Control& anyControl(const std::vector<Control*>& all) {
        for (;;) {
            Control& control = *hand_.any(all);
            const bool leaves = control.Name() == "Cmd_OK" || control.Name() == "Cmd_Retour";
            const bool sensible = control.reachable() && control.takesFocus();
            if (hand_.below(leaves ? 8 : sensible ? 1 : 40) == 0)
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
        if (hand_.below(4) == 0) {
            last_ = Keyboard;
            // Escape leaves the form, so it comes less often than where it ends an edit.
            const bool open = editing() || ledgerLineOpen();
            return hand_.key(form_->form(), open ? 20 : 3);
        }
        const std::vector<std::string> sensible = sensibleTargets();
        if (!sensible.empty() && hand_.below(3) > 0) {
            last_ = hand_.any(sensible);
            return hand_.use(at<Control>(*form_, last_));
        }
        std::vector<Control*> all;
        form_->control().visit([&](Control& control) { all.push_back(&control); });
        Control& control = hand_.below(12) == 0 ? tabs() : anyControl(all);
        last_ = control.fullName();
        return hand_.touch(control, all);
    }

    // What someone would turn to who means to get a line done.
    std::vector<std::string> sensibleTargets() {
        if (editing() && at<ListBox>(*form_, "Lst_CodeForm").ListIndex() >= 0)
            return {"Cbo_CodFormAidant", "Cbo_DifFormAidant", "Cmd_OKForm", "Cmd_SupprimerForm"};
        if (editing())
            return {"Txt_DatFormAidant", "Cbo_CodFormAidant", "Cbo_DifFormAidant", "Cmd_OKForm"};
        if (tabs().Tab() == 0 && hand_.below(2) == 0)
            return {"Cmd_AjouterForm", "Lst_CodFormAidant"};
        if (tabs().Tab() != 2)
            return {};
        if (ledgerLineOpen())
            return {"Txt_DateDif", "Txt_DroitDif", "Txt_HreDif",
                    "Cmd_OkDif",   "Cmd_OkDif",    "Cmd_SupprDif"};
        return {"Lst_DifEmpl", "Cmd_AjoutDif", "Lst_DetailDif", "Cmd_CalculDif"};
    }

    // The form has gone: what was saved is whole, and is saved again the same.
    void leave(bool stored) {
        if (stored && lastAnswer_ != Answer::No) {
            ++saved_;
            const std::string saved = desk_.stored("FORMVORANDINE", code_);
            const records::DBARecord record(nullptr, {}, saved);
            for (const int attribute : {5, 6, 7, 8, 14})
                EXPECT_TRUE(record(attribute).empty() ||
                            record.DCount(attribute) == record.DCount(6))
                    << attribute;
            EXPECT_EQ(record(9).empty() ? 7 : record.DCount(9), 7);
            EXPECT_GT(record.DCount(10), 0);
            form_ = desk_.open(code_);
            EXPECT_EQ(click(at<CommandButton>(*form_, "Cmd_OK")), Outcome::Done);
            EXPECT_EQ(desk_.stored("FORMVORANDINE", code_), saved);
        }
        open();
    }
};

class ControlWalk : public testing::TestWithParam<std::int32_t> {};

// At every level; below the writing one, nothing is stored at all.
TEST_P(ControlWalk, WhateverAUserDoesTheFileStaysSound) {
    walkOn<Walk>(3000, GetParam());
}

INSTANTIATE_TEST_SUITE_P(Levels, ControlWalk, testing::Values(0, 1, ports::WritingLevel));

} // namespace
} // namespace vorandine::control_test
