// Random gestures on the whole control, its modal forms included. After each one holds what must
// hold whatever a user does: lists in step, enabled states, nothing stored but by leaving or by a
// confirmed line, and a saved screen that reads back. What must hold stands in walk_screen (the
// file), dif_watch (the D.I.F.) and walk_modal (the forms); what is done, in walk_hand.
// VORANDINE_WALK_STEPS and VORANDINE_WALK_SEED make longer walks and repeat one.
#include "property/dif_watch.h"
#include "property/walk_hand.h"
#include "property/walk_modal.h"
#include "property/walk_screen.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <iostream>
#include <optional>
#include <utility>

namespace vorandine::control_test {
namespace {

constexpr const char* Keyboard = "a key, or the close button";

unsigned long fromEnvironment(const char* name, unsigned long otherwise) {
    const char* const text = std::getenv(name);
    return text != nullptr ? std::strtoul(text, nullptr, 10) : otherwise;
}

class Walk {
  public:
    explicit Walk(unsigned long seed)
        : hand_(seed), desk_({[this](const Message& message) { return answer(message); },
                              [this](Form& form) { inModal(form); },
                              {},
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
        // The trainings under the D.I.F. are charged, one of them first of all.
        desk_.putText("DIFAIDANT", "00002P0007",
                      "20051219]20051220]20051222]20051225]20051228^]3000]]]^450]]300]150]100^"
                      "-450]2550]2250]2100]2000^MAN]]HYG]ALI]PSC");
        // Lines of pay, all of one pay an hour, and contracts closed, closed long ago, and open.
        for (const std::string code : {"00000", "00002"}) {
            for (int month = 1; month <= 12; ++month)
                desk_.putText("DETAILCALCUL", code + "-" + std::to_string(month),
                              "ADM^^1^" + std::to_string(200500 + month) + "^^" +
                                  std::to_string(2 * month) + "^^^^^^^^^^" +
                                  std::to_string(25 * month));
            desk_.putText("CONTRAT", code + "-1",
                          "^^ADM^A^^^20000101" + std::string(56, '^') + "200603");
        }
        desk_.putText("CONTRAT", "00002-3", "^^GON^C^^^20000101" + std::string(56, '^') + "199913");
        open();
    }

    void step() {
        // Files work again sooner than they begin to fail.
        if (hand_.below(watch_.failing() == DifWatch::Failing::Nothing ? 200 : 40) == 0)
            watch_.fail(hand_.any(std::vector{DifWatch::Failing::Nothing, DifWatch::Failing::Writes,
                                              DifWatch::Failing::Reads}));
        storeBefore_ = watch_.wholeStore();
        const std::string screenBefore = screen_.whole();
        const auto trainingsBefore = screen_.trainings();
        const bool editingBefore = screen_.editing();
        const std::string focusBefore = screen_.focus();
        const int chargedBefore = modal_.tally().charged;
        lastAnswer_.reset();
        modal_.takeLast();
        watch_.before(*form_, editingBefore);
        const Outcome outcome = gesture();
        kept_ = outcome == Outcome::FocusKept;
        const bool stored = watch_.wholeStore() != storeBefore_;
        const bool ledgersStored = watch_.after(*form_, last_, screen_.editing());
        ledgersStored_ += ledgersStored ? 1 : 0;
        if (outcome != Outcome::Done) {
            EXPECT_FALSE(stored || ledgersStored || form_->form().unloaded());
            EXPECT_TRUE(outcome != Outcome::Refused || screen_.whole() == screenBefore)
                << "a refused gesture did something";
        }
        for (const Error& error : desk_.errors)
            EXPECT_TRUE(error.number() == errors::FigureTooWide && !ledgersStored) << error.what();
        desk_.errors.clear();
        EXPECT_EQ(form_->control().MousePointer(), NormalPointer);
        EXPECT_TRUE(form_->control().Enabled());
        EXPECT_EQ(form_->control().W_Sortir, form_->form().unloaded() ? 1 : 0);
        screen_.checkTrainings(trainingsBefore, modal_.tally().charged > chargedBefore);
        if (form_->form().unloaded()) {
            leave(stored);
            return;
        }
        EXPECT_FALSE(stored) << "stored without leaving";
        screen_.follow(editingBefore, last_ == Keyboard ? focusBefore : last_);
        screen_.checkLists();
        screen_.checkStates();
        EXPECT_NE(form_->form().nextInOrder(false), nullptr) << "the keyboard reaches nothing";
    }

    // The last gesture, for whoever reads a failure.
    [[nodiscard]] std::string last() {
        const std::string inForm = modal_.takeLast();
        return last_ + (inForm.empty() ? "" : "; in its form, " + inForm);
    }
    // Whether the walk went everywhere: else it tests too little.
    void checkReach() const {
        EXPECT_GT(saved_, 0);
        EXPECT_GT(ledgersStored_, 0);
        EXPECT_GT(modal_.tally().charged, 0);
        EXPECT_GT(modal_.tally().computed, 0);
        EXPECT_GT(modal_.tally().labelled, 0);
    }

  private:
    WalkHand hand_;
    Desk desk_;
    DifWatch watch_{desk_};
    WalkModal modal_{hand_, watch_};
    WalkScreen screen_{desk_};
    std::unique_ptr<host::CaregiverForm> form_;
    std::string code_;
    std::string last_;
    std::string storeBefore_;
    std::optional<Answer> lastAnswer_;
    bool kept_ = false; // the last gesture ended in a leaving rule
    int saved_ = 0;
    int ledgersStored_ = 0;

    Answer answer(const Message& message) {
        if (message.buttons == Buttons::OK)
            return Answer::OK;
        const int choice = hand_.below(message.buttons == Buttons::YesNo ? 2 : 3);
        return *(lastAnswer_ = choice == 0   ? Answer::Yes
                               : choice == 1 ? Answer::No
                                             : Answer::Cancel);
    }

    void open() {
        // Two of them have no record at first; one is the richest in trainings, ledgers and pay.
        code_ = "0000" + std::to_string(hand_.any(std::vector{0, 0, 1, 2, 2, 2, 3, 4}));
        form_ = desk_.open(code_);
        screen_.look(*form_);
    }

    // A table of labels is stored by its form, not by the gesture that opened that.
    void inModal(Form& form) {
        const int labelled = modal_.tally().labelled;
        modal_.walk(form);
        if (modal_.tally().labelled > labelled)
            storeBefore_ = watch_.wholeStore();
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
            const bool open = screen_.editing() || DifWatch::lineOpen(DifWatch::state(*form_));
            return hand_.key(form_->form(), open ? 20 : 3);
        }
        const std::vector<std::string> sensible = sensibleTargets();
        if (!sensible.empty() && hand_.below(3) > 0) {
            last_ = hand_.any(sensible);
            return hand_.use(at<Control>(*form_, last_));
        }
        std::vector<Control*> all;
        form_->control().visit([&](Control& control) { all.push_back(&control); });
        Control& control = hand_.below(12) == 0 ? screen_.tabs() : anyControl(all);
        last_ = control.fullName();
        return hand_.touch(control, all);
    }

    // What someone would turn to who means to get a line done.
    std::vector<std::string> sensibleTargets() {
        if (screen_.editing() && at<ListBox>(*form_, "Lst_CodeForm").ListIndex() >= 0)
            return {"Cbo_CodFormAidant", "Cbo_DifFormAidant", "Cmd_OKForm", "Cmd_SupprimerForm"};
        if (screen_.editing())
            return {"Txt_DatFormAidant", "Cbo_CodFormAidant", "Cbo_DifFormAidant", "Cmd_OKForm"};
        if (screen_.tabs().Tab() == 0 && hand_.below(2) == 0)
            return {"Cmd_AjouterForm", "Lst_CodFormAidant"};
        if (screen_.tabs().Tab() != 2)
            return {};
        switch (DifWatch::state(*form_)) {
        case DifState::EmployerOpen:
            return {"Cmd_AjoutDif", "Lst_DetailDif", "Cmd_CalculDif"};
        case DifState::NewLine:
            return {"Txt_DateDif", "Txt_DroitDif", "Cmd_OkDif"};
        case DifState::RightsLine:
            return {"Txt_DroitDif", "Cmd_OkDif", "Cmd_SupprDif"};
        case DifState::HoursLine:
            return {"Txt_HreDif", "Cmd_OkDif", "Cmd_SupprDif"};
        default:
            return {"Lst_DifEmpl"};
        }
    }

    // The form has gone: what was saved shows again, to the letter.
    void leave(bool stored) {
        const bool saved = stored && lastAnswer_ != Answer::No;
        if (saved) {
            ++saved_;
            const std::string kept = screen_.kept();
            const std::size_t trainings = screen_.trainings().size();
            const records::DBARecord record =
                store::Store(desk_.engine).OpenFile("FORMVORANDINE")->ReadRecord(code_);
            for (const int attribute : {5, 6, 7, 8, 14})
                EXPECT_TRUE(record(attribute).empty() ||
                            record.DCount(attribute) == record.DCount(6))
                    << attribute;
            EXPECT_EQ(static_cast<std::size_t>(record.DCount(6)), trainings);
            EXPECT_EQ(record(9).empty() ? 7 : record.DCount(9), 7);
            EXPECT_GT(record.DCount(10), 0);
            form_ = desk_.open(code_);
            screen_.look(*form_);
            EXPECT_EQ(screen_.kept(), kept);
        }
        open();
    }
};

TEST(ControlWalk, WhateverAUserDoesTheFileStaysSound) {
    const unsigned long steps = fromEnvironment("VORANDINE_WALK_STEPS", 3000);
    const unsigned long seed = fromEnvironment("VORANDINE_WALK_SEED", 20060615);
    std::cout << "VORANDINE_WALK_SEED=" << seed << " VORANDINE_WALK_STEPS=" << steps << '\n';
    Walk walk(seed);
    for (unsigned long i = 0; i < steps && !testing::Test::HasFailure(); ++i) {
        walk.step();
        if (testing::Test::HasFailure())
            ADD_FAILURE() << "VORANDINE_WALK_SEED=" << seed << ", step " << i << ": "
                          << walk.last();
    }
    if (!testing::Test::HasFailure())
        walk.checkReach();
}

} // namespace
} // namespace vorandine::control_test
