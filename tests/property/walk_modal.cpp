// Walks in the three forms, and what is checked after each gesture.
#include "property/walk_modal.h"

#include "dif/Columns.h"
#include "text/Characters.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <set>
#include <utility>

namespace vorandine::control_test {
namespace {

using namespace widgets;

template <typename Kind>
Kind& in(Form& form, const std::string& name) {
    return dynamic_cast<Kind&>(*form.find(name));
}

// Of "7,50", blanks around it.
long hundredths(const std::string& shown) {
    std::string digits = text::Trim(shown);
    const std::size_t comma = digits.find(',');
    if (comma == std::string::npos)
        return 0;
    return std::strtol(digits.erase(comma, 1).c_str(), nullptr, 10);
}

std::string hours(long hundredths) {
    const std::string cents = std::to_string(hundredths % 100);
    return std::to_string(hundredths / 100) + (cents.size() < 2 ? ",0" : ",") + cents;
}

std::string column(const std::string& line, const dif::Piece& piece) {
    return text::Mid(line, piece.column, piece.width);
}

} // namespace

void WalkModal::walk(Form& form) {
    if (auto* const dif = dynamic_cast<dif::Frm_DIF*>(&form))
        return chargeHours(*dif);
    if (auto* const pay = dynamic_cast<dif::Frm_CalculRemu*>(&form))
        return computePay(*pay);
    addLabels(form);
}

std::vector<std::string> WalkModal::sensibleTargets(Form& form) {
    if (auto* const dif = dynamic_cast<dif::Frm_DIF*>(&form)) {
        if (state(*dif) == State::LineOpen)
            return {"Txt_Conso", "Cmd_OKDif"};
        const std::vector<Charge> lines = charges(*dif);
        const bool any = std::any_of(lines.begin(), lines.end(),
                                     [](const Charge& line) { return line.hours > 0; });
        return any ? std::vector<std::string>{"Lst_Dif", "Cmd_OKDif"}
                   : std::vector<std::string>{"Lst_Dif"};
    }
    if (form.find("Txt_CodeParam") != nullptr)
        return {"Txt_CodeParam", "Txt_LibelleParam", "Cmd_AjouterParam", "Lst_Param",
                "Cmd_ModifierParam"};
    return {"Cbo_Mois", "Cbo_An", "Cmd_OK"};
}

void WalkModal::gesture(Form& form) {
    ++tally_.gestures;
    std::vector<Control*> all;
    form.visit([&](Control& control) { all.push_back(&control); });
    if (hand_.below(5) == 0) {
        last_ = form.Name() + ": a key, or the close button";
        hand_.key(form, 10);
        return;
    }
    if (hand_.below(2) == 0) {
        const std::string name = hand_.any(sensibleTargets(form));
        last_ = form.Name() + ": " + name;
        hand_.use(in<Control>(form, name));
        return;
    }
    // Seldom a button: one of them ends the form.
    Control* chosen = hand_.any(all);
    while (dynamic_cast<CommandButton*>(chosen) != nullptr && hand_.below(4) > 0)
        chosen = hand_.any(all);
    Control& control = *chosen;
    last_ = form.Name() + ": " + control.fullName();
    hand_.touch(control, all);
}

WalkModal::State WalkModal::state(dif::Frm_DIF& form) {
    if (!in<Control>(form, "Lst_Dif").Enabled())
        return State::LineOpen;
    return in<Control>(form, "Txt_Conso").Enabled() ? State::Opening : State::Listing;
}

std::vector<WalkModal::Charge> WalkModal::charges(dif::Frm_DIF& form) {
    const auto& list = in<ListBox>(form, "Lst_Dif");
    const auto& codes = in<ListBox>(form, "Lst_CodeEmpl");
    EXPECT_EQ(codes.ListCount(), list.ListCount());
    std::vector<Charge> charges;
    for (int i = 0; i < list.ListCount(); ++i) {
        const std::string charged = column(list.List(i), dif::ChargeLine::Columns[2]);
        charges.push_back(
            {text::Trim(text::Left(list.List(i), 60)), codes.List(i), hundredths(charged)});
        EXPECT_TRUE(text::Trim(charged).empty() || charges.back().hours > 0) << list.List(i);
    }
    return charges;
}

void WalkModal::checkState(dif::Frm_DIF& form, State state) {
    const std::map<std::string, std::set<State>> enabled = {
        {"Lst_Dif", {State::Opening, State::Listing}},
        {"Txt_Employeur", {State::Opening}},
        {"Txt_Conso", {State::Opening, State::LineOpen}},
        {"Cmd_RetourDif", {State::Opening, State::Listing}},
        {"Cmd_AnnuleDif", {State::LineOpen}},
        {"Cmd_OKDif", {State::Opening, State::Listing, State::LineOpen}}};
    for (const auto& [name, states] : enabled)
        EXPECT_EQ(in<Control>(form, name).Enabled(), states.count(state) > 0) << name;
    const auto& list = in<ListBox>(form, "Lst_Dif");
    const std::string employer = in<TextField>(form, "Txt_Employeur").Text();
    if (state == State::Listing) {
        EXPECT_EQ(employer + in<TextField>(form, "Txt_Conso").Text(), "");
    }
    if (state == State::LineOpen) {
        EXPECT_EQ(employer, text::Left(list.List(list.ListIndex()), 60));
        EXPECT_NE(employer, "");
    }
}

// Between two lines the account is that of the list.
void WalkModal::checkAccount(dif::Frm_DIF& form) {
    long sum = 0;
    for (const Charge& charge : charges(form))
        sum += charge.hours;
    const long length = std::max(hundredths(form.W_NbreHre), 0L);
    const std::string account = in<Label>(form, "Etq_RepartitionDif").Caption();
    const std::string rest = sum > length ? "soit " + hours(sum - length) + " h de trop."
                                          : "il en reste " + hours(length - sum) + " h.";
    EXPECT_TRUE(
        account.starts_with(hours(sum) + " h imputées sur " + hours(length) + " h, " + rest))
        << account;
}

void WalkModal::chargeHours(dif::Frm_DIF& form) {
    State now = State::Opening;
    checkState(form, now);
    const DifWatch::Ledgers before = watch_.ledgers();
    std::vector<Charge> charged;
    while (!form.unloaded() && !testing::Test::HasFailure()) {
        charged = charges(form);
        const State past = std::exchange(now, State::Opening);
        gesture(form);
        if (form.unloaded())
            break;
        now = state(form);
        EXPECT_TRUE(now != State::Opening || past == State::Opening) << "back to the opening";
        checkState(form, now);
        if (now != State::LineOpen)
            checkAccount(form);
        EXPECT_EQ(watch_.ledgers(), before) << "stored before it ended";
        const std::vector<Charge> after = charges(form);
        ASSERT_EQ(after.size(), charged.size());
        for (std::size_t i = 0; i < after.size(); ++i) {
            EXPECT_TRUE(after[i].head == charged[i].head && after[i].code == charged[i].code);
            EXPECT_TRUE(after[i].hours == charged[i].hours ||
                        (past == State::LineOpen && now == State::Listing))
                << "changed without being confirmed";
        }
    }
    if (watch_.ledgers() != before) {
        ++tally_.charged;
        checkCharged(form, before, charged);
    }
}

// Each ledger has its new lines, of the day, and from the first of them on balances that follow
// from one another; nothing else has changed.
void WalkModal::checkCharged(dif::Frm_DIF& form, const DifWatch::Ledgers& before,
                             const std::vector<Charge>& charges) const {
    EXPECT_EQ(watch_.failing(), DifWatch::Failing::Nothing);
    std::map<std::string, std::pair<int, long>> expected; // lines and hours by key
    const std::string caregiver = in<Label>(form, "Etq_CodeDif").Caption();
    for (const Charge& charge : charges)
        if (charge.hours > 0) {
            auto& [lines, sum] = expected[caregiver + charge.code];
            ++lines;
            sum += charge.hours;
        }
    const DifWatch::Ledgers now = watch_.ledgers();
    EXPECT_EQ(now.size(), before.size());
    for (const auto& [key, text] : now) {
        SCOPED_TRACE(key);
        const std::string& oldText = before.at(key);
        if (expected.count(key) == 0) {
            EXPECT_EQ(text, oldText);
            continue;
        }
        const records::DBARecord ledger = DifWatch::record(text);
        const records::DBARecord old = DifWatch::record(oldText);
        const auto number = [&](const records::DBARecord& record, int list, int i) {
            return i == 0 ? 0 : std::strtol(std::string(record(list, i)).c_str(), nullptr, 10);
        };
        const auto [lines, sum] = expected[key];
        const int count = ledger.DCount(1);
        EXPECT_EQ(count, old.DCount(1) + lines);
        if (!DifWatch::inOrder(old))
            continue;
        int first = 1;
        while (first <= count && ledger(1, first) < form.W_DateFormation)
            ++first;
        long consumed = 0;
        for (int i = first; i < first + lines; ++i) {
            EXPECT_EQ(ledger(1, i), form.W_DateFormation);
            EXPECT_EQ(ledger(5, i), form.W_CodeForm);
            EXPECT_EQ(ledger(2, i), "");
            consumed += number(ledger, 3, i);
        }
        EXPECT_EQ(consumed, sum);
        for (int list = 1; list <= 5; ++list)
            for (int i = 1; i < first; ++i)
                // A balance that was missing there counts as 0, and is then stored.
                EXPECT_TRUE(ledger(list, i) == old(list, i) || (list == 4 && old(4, i).empty()));
        for (const int list : {1, 2, 3, 5})
            for (int i = first + lines; i <= count; ++i)
                EXPECT_EQ(ledger(list, i), old(list, i - lines)) << list;
        for (int i = first; i <= count; ++i)
            EXPECT_EQ(number(ledger, 4, i),
                      number(ledger, 4, i - 1) +
                          (ledger(3, i).empty() ? number(ledger, 2, i) : -number(ledger, 3, i)))
                << "balance " << i;
    }
}

void WalkModal::computePay(dif::Frm_CalculRemu& form) {
    const std::string stored = watch_.wholeStore();
    const DifWatch::Ledgers ledgers = watch_.ledgers();
    const bool computes = !form.W_PeriodeCloture.empty();
    while (!form.unloaded() && !testing::Test::HasFailure()) {
        gesture(form);
        for (const char* const name : {"Cbo_Mois", "Cbo_An", "Txt_Resultat", "Cmd_OK"})
            EXPECT_EQ(in<Control>(form, name).Enabled(), computes) << name;
        EXPECT_TRUE(in<Control>(form, "Cmd_Retour").Enabled() && form.Enabled());
        EXPECT_EQ(form.MousePointer(), NormalPointer);
        EXPECT_EQ(in<ComboBox>(form, "Cbo_An").ListCount(), computes ? 6 : 0);
        if (last_.ends_with(": Cmd_OK") && computes) {
            // All lines of pay on this desk come to the same pay an hour.
            const std::string shown = in<TextField>(form, "Txt_Resultat").Text();
            EXPECT_TRUE(shown.empty() || shown == "12,50") << shown;
            tally_.computed += shown.empty() ? 0 : 1;
        }
    }
    EXPECT_EQ(watch_.wholeStore(), stored);
    EXPECT_EQ(watch_.ledgers(), ledgers);
}

void WalkModal::addLabels(Form& form) {
    const std::string stored = watch_.wholeStore();
    const DifWatch::Ledgers ledgers = watch_.ledgers();
    while (!form.unloaded() && !testing::Test::HasFailure()) {
        EXPECT_EQ(watch_.wholeStore(), stored) << "stored before it ended";
        gesture(form);
    }
    EXPECT_EQ(watch_.ledgers(), ledgers);
    tally_.labelled += watch_.wholeStore() != stored ? 1 : 0;
}

} // namespace vorandine::control_test
