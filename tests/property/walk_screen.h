// What the random walk looks at on the file's own form: all that a gesture could change, what a
// save keeps of it, lists that go together, and which controls are enabled when.
#pragma once

#include "unit/control_support.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <string>
#include <vector>

namespace vorandine::control_test {

using namespace widgets;

inline const std::set<std::string> TypingRow = {
    "Txt_DatFormAidant", "Cbo_CodFormAidant",    "Txt_HhFormAidant", "Txt_ObsFormAidant",
    "Cbo_DifFormAidant", "Cmd_AjouterFormation", "Cmd_OKForm",       "Cmd_AnnulerForm"};
// What the record keeps of the screen, but for the lists.
inline const std::vector<std::string> KeptFields = {
    "Cbo_EtudeAidant",      "Txt_AnDipAidant",      "Txt_SpecialAidant",    "Txt_ExpProfAidant(0)",
    "Txt_ExpProfAidant(1)", "Txt_ExpProfAidant(2)", "Txt_ExpProfAidant(3)", "Txt_ExpProfAidant(4)",
    "Txt_ExpProfAidant(5)", "Txt_ExpProfAidant(6)", "Cbo_Qualif",           "Txt_DatSaisieAidant",
    "Txt_DatDispoAidant",   "Txt_DatFinDispoAidant"};
// Each of as many lines as the first of them; those of trainings and of the ledger with one line
// selected in all.
inline const std::vector<std::vector<std::string>> InStep = {
    {"Lst_DatFormAidant", "Lst_CodFormAidant", "Lst_HhFormAidant", "Lst_ObsFormAidant",
     "Lst_DifFormAidant", "Lst_CodeForm"},
    {"Lst_SectPossibles", "Lst_CodSectPossibles"},
    {"Lst_SectSelect", "Lst_CodSectSelect"},
    {"Lst_DifEmpl", "Lst_CodeEmplDif", "Lst_ContratDif"},
    {"Lst_DetailDif", "Lst_CodeFormDif"}};

class WalkScreen {
  public:
    // From here on it is this file; its form must outlive the use.
    void look(host::CaregiverForm& form) {
        form_ = &form;
        fresh_ = true;
        byList_ = false;
    }

    template <typename Kind>
    [[nodiscard]] Kind& the(const std::string& name) const {
        return at<Kind>(*form_, name);
    }
    // A line of trainings is open, or one of a ledger.
    [[nodiscard]] bool editing() const { return the<Control>("Cmd_AnnulerForm").Enabled(); }
    [[nodiscard]] bool ledgerLineOpen() const {
        return !editing() && !the<Control>("Lst_DifEmpl").Enabled();
    }
    [[nodiscard]] std::string focus() const {
        const Control* const control = form_->form().focus();
        return control != nullptr ? control->fullName() : std::string();
    }
    [[nodiscard]] TabContainer& tabs() const { return the<TabContainer>("Ong_Vorandine"); }

    // What the record keeps, the labels of trainings aside: they are the table's.
    [[nodiscard]] std::string kept() const {
        std::string all = the<OptionButton>("Opt_Diplome").Value() ? "D" : "N";
        for (const std::string& name : KeptFields)
            all += "\n" + name + "=" + the<TextField>(name).Text();
        for (const char* const name :
             {"Lst_DatFormAidant", "Lst_HhFormAidant", "Lst_ObsFormAidant", "Lst_DifFormAidant",
              "Lst_CodeForm", "Lst_SectSelect", "Lst_CodSectSelect"})
            all += lines(name);
        return all;
    }
    // Everything, the focus included.
    [[nodiscard]] std::string whole() const {
        std::string all = kept() + lines("Lst_CodFormAidant") + "\n" + focus();
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
        return all + std::to_string(the<ScrollBar>("Bdv_FormAidant").Value()) +
               std::to_string(tabs().Tab());
    }
    // The dates of the trainings, in stored form.
    [[nodiscard]] std::vector<std::string> trainings() const {
        std::vector<std::string> dates;
        const auto& list = the<ListBox>("Lst_DatFormAidant");
        for (int i = 0; i < list.ListCount(); ++i) {
            const std::string shown = list.List(i);
            dates.push_back(
                shown.size() < 10 ? "" : shown.substr(6) + shown.substr(3, 2) + shown.substr(0, 2));
        }
        return dates;
    }

    // `origin` is the control on which the gesture was made.
    void follow(bool editingBefore, const std::string& origin) {
        if (!editingBefore && editing())
            byList_ = origin.starts_with("Lst_");
        if (editingBefore && !editing())
            fresh_ = false;
    }
    // Latest first, without a date last; a gesture adds one line or takes one away.
    void checkTrainings(const std::vector<std::string>& before) const {
        const auto inOrder = [](const std::vector<std::string>& dates) {
            return std::is_sorted(dates.begin(), dates.end(), std::greater<>());
        };
        EXPECT_TRUE(inOrder(trainings()) || !inOrder(before)) << "trainings have left their order";
        EXPECT_LE(trainings().size(), before.size() + 1);
        EXPECT_GE(trainings().size() + 1, before.size());
    }
    void checkLists() const {
        for (const auto& names : InStep)
            for (const std::string& name : names) {
                EXPECT_EQ(the<ListBox>(name).ListCount(), the<ListBox>(names[0]).ListCount())
                    << name;
                EXPECT_TRUE(names.size() < 6 ||
                            the<ListBox>(name).ListIndex() == the<ListBox>(names[0]).ListIndex())
                    << name;
            }
        const auto& bar = the<ScrollBar>("Bdv_FormAidant");
        EXPECT_TRUE(bar.Value() >= 0 && bar.Value() <= std::max(0, bar.Max()));
        EXPECT_EQ(bar.Visible(), bar.Max() > 8);
    }
    void checkStates() const {
        const bool open = editing();
        const control::ControlCollection all = form_->control().Controls();
        for (int i = 0; i < all.Count(); ++i)
            if (const std::string& name = all(i).Name(); open || !isOfLedger(all(i))) {
                const bool row = TypingRow.count(name) > 0;
                const bool enabled = open ? row || name == "Ong_Vorandine" ||
                                                (name == "Cmd_SupprimerForm" && byList_)
                                     : name == "Cbo_DifFormAidant" && fresh_ ? true
                                     : name == "Cmd_OK" || name == "Cmd_Retour"
                                         ? !ledgerLineOpen()
                                         : !row && name != "Cmd_SupprimerForm";
                EXPECT_EQ(all(i).Enabled(), enabled) << all(i).fullName();
                if (const auto* const field = dynamic_cast<TextField*>(&all(i));
                    field != nullptr && row && !open && !fresh_) {
                    EXPECT_EQ(field->Text(), "") << name;
                }
            }
        EXPECT_EQ(tabs().TabEnabled(0), !ledgerLineOpen());
        EXPECT_EQ(tabs().TabEnabled(1), !open && !ledgerLineOpen());
        EXPECT_EQ(tabs().TabEnabled(2), !open);
        EXPECT_TRUE(!open || tabs().Tab() == 0);
    }

  private:
    host::CaregiverForm* form_ = nullptr;
    bool fresh_ = true;   // no edit has ended yet: Cbo_DifFormAidant is still enabled
    bool byList_ = false; // the line open was opened from a list

    // Of the frame that a ledger's lines are typed in, or the list above it.
    [[nodiscard]] bool isOfLedger(const Control& control) const {
        return control.Name() == "Lst_DifEmpl" || control.Name() == "Cdr_DetailDif" ||
               control.parent() == &the<Control>("Cdr_DetailDif");
    }
    // Hours left empty are saved as "0", and read back in fixed form.
    [[nodiscard]] std::string lines(const std::string& name) const {
        const auto& list = the<ListBox>(name);
        std::string all = "\n" + name;
        for (int i = 0; i < list.ListCount(); ++i)
            all += "|" + (list.List(i) == "0" ? "   0,00" : list.List(i));
        return all;
    }
};

} // namespace vorandine::control_test
