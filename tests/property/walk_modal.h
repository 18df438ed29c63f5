// The random walk goes on in a modal form until that ends, and holds what must hold in it: that
// nothing is stored before it ends, and that the ledgers then hold what its list showed.
#pragma once

#include "dif/Frm_CalculRemu.h"
#include "dif/Frm_DIF.h"
#include "property/dif_watch.h"
#include "property/walk_hand.h"

namespace vorandine::control_test {

class WalkModal {
  public:
    WalkModal(WalkHand& hand, const DifWatch& watch) : hand_(hand), watch_(watch) {}

    void walk(Form& form) {
        auto* const dif = dynamic_cast<dif::Frm_DIF*>(&form);
        auto* const pay = dynamic_cast<dif::Frm_CalculRemu*>(&form);
        const std::string stored = watch_.wholeStore();
        const DifWatch::Ledgers ledgers = watch_.ledgers();
        Charges charged;
        while (!testing::Test::HasFailure()) {
            if (dif != nullptr)
                charged = charges(*dif);
            gesture(form);
            if (form.unloaded())
                break;
            EXPECT_TRUE(form.Enabled() && form.MousePointer() == NormalPointer);
            EXPECT_EQ(watch_.wholeStore(), stored) << "stored before it ended";
            EXPECT_EQ(watch_.ledgers(), ledgers) << "stored before it ended";
            if (pay != nullptr)
                checkPay(*pay);
        }
        if (watch_.ledgers() != ledgers) {
            ++tally_.charged;
            ASSERT_NE(dif, nullptr);
            checkCharged(ledgers, charged);
        }
        if (watch_.wholeStore() != stored) {
            ++tally_.labelled;
            EXPECT_TRUE(dif == nullptr && pay == nullptr);
        }
    }

    struct Tally {
        int charged = 0;  // forms that charged hours
        int computed = 0; // pay that was shown
        int labelled = 0; // forms that changed the table of labels
    };
    [[nodiscard]] const Tally& tally() const noexcept { return tally_; }
    // The last gesture, for whoever reads a failure; "" when none was made since the last call.
    std::string takeLast() { return std::exchange(last_, {}); }

  private:
    // Lines charged and their hours, in hundredths, by key of the ledger.
    using Charges = std::map<std::string, std::pair<int, long>>;

    WalkHand& hand_;
    const DifWatch& watch_;
    Tally tally_;
    std::string last_;

    void gesture(Form& form) {
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
        last_ = form.Name() + ": " + chosen->fullName();
        hand_.touch(*chosen, all);
    }
    [[nodiscard]] static std::vector<std::string> sensibleTargets(Form& form) {
        if (auto* const dif = dynamic_cast<dif::Frm_DIF*>(&form)) {
            if (!in<Control>(form, "Lst_Dif").Enabled())
                return {"Txt_Conso", "Cmd_OKDif"};
            return charges(*dif).empty() ? std::vector<std::string>{"Lst_Dif"}
                                         : std::vector<std::string>{"Lst_Dif", "Cmd_OKDif"};
        }
        if (form.find("Txt_CodeParam") != nullptr)
            return {"Txt_CodeParam", "Txt_LibelleParam", "Cmd_AjouterParam", "Lst_Param",
                    "Cmd_ModifierParam"};
        return {"Cbo_Mois", "Cbo_An", "Cmd_OK"};
    }
    [[nodiscard]] static Charges charges(dif::Frm_DIF& form) {
        const auto& list = in<ListBox>(form, "Lst_Dif");
        const auto& codes = in<ListBox>(form, "Lst_CodeEmpl");
        EXPECT_EQ(codes.ListCount(), list.ListCount());
        Charges charges;
        for (int i = 0; i < list.ListCount(); ++i)
            if (const long hours = shownHundredths(list.List(i), dif::ChargeLine::Columns[2])) {
                EXPECT_GT(hours, 0) << list.List(i);
                auto& [lines, sum] =
                    charges[in<Label>(form, "Etq_CodeDif").Caption() + codes.List(i)];
                ++lines;
                sum += hours;
            }
        return charges;
    }
    // Each ledger has as many lines more as the list showed charges, and as many hours used; the
    // other ledgers are those they were.
    void checkCharged(const DifWatch::Ledgers& before, const Charges& charges) const {
        EXPECT_EQ(watch_.failing(), DifWatch::Failing::Nothing);
        const DifWatch::Ledgers now = watch_.ledgers();
        EXPECT_EQ(now.size(), before.size());
        for (const auto& [key, text] : now) {
            const auto charge = charges.find(key);
            if (charge == charges.end()) {
                EXPECT_EQ(text, before.at(key)) << key;
                continue;
            }
            const auto used = [](const records::DBARecord& ledger) {
                long hours = 0;
                for (int i = 1; i <= ledger.DCount(1); ++i)
                    hours += hundredths(ledger(3, i));
                return hours;
            };
            const records::DBARecord ledger = DifWatch::record(text);
            const records::DBARecord old = DifWatch::record(before.at(key));
            EXPECT_EQ(ledger.DCount(1), old.DCount(1) + charge->second.first) << key;
            EXPECT_EQ(used(ledger), used(old) + charge->second.second) << key;
        }
    }

    // All lines of pay on this desk come to the same pay an hour.
    void checkPay(dif::Frm_CalculRemu& form) {
        const bool computes = !form.W_PeriodeCloture.empty();
        EXPECT_EQ(in<Control>(form, "Cmd_OK").Enabled(), computes);
        const std::string shown = in<TextField>(form, "Txt_Resultat").Text();
        if (last_.ends_with(": Cmd_OK") && computes && !shown.empty()) {
            EXPECT_EQ(shown, "12,50");
            ++tally_.computed;
        }
    }
};

} // namespace vorandine::control_test
