// What the random walk looks at on the file's own form: all that a gesture could change, what a
// save keeps of it, the lists of trainings and activities, and which controls are enabled when.
#pragma once

#include "property/dif_watch.h"

namespace vorandine::control_test {

inline const std::set<std::string> TypingRow = {
    "Txt_DatFormAidant", "Cbo_CodFormAidant",    "Txt_HhFormAidant", "Txt_ObsFormAidant",
    "Cbo_DifFormAidant", "Cmd_AjouterFormation", "Cmd_OKForm",       "Cmd_AnnulerForm"};
inline const std::vector<std::string> TrainingLists = {"Lst_DatFormAidant", "Lst_CodFormAidant",
                                                       "Lst_HhFormAidant",  "Lst_ObsFormAidant",
                                                       "Lst_DifFormAidant", "Lst_CodeForm"};
// What the record keeps of the screen.
inline const std::vector<std::string> KeptFields = {
    "Cbo_EtudeAidant",      "Txt_AnDipAidant",      "Txt_SpecialAidant",    "Txt_ExpProfAidant(0)",
    "Txt_ExpProfAidant(1)", "Txt_ExpProfAidant(2)", "Txt_ExpProfAidant(3)", "Txt_ExpProfAidant(4)",
    "Txt_ExpProfAidant(5)", "Txt_ExpProfAidant(6)", "Cbo_Qualif",           "Txt_DatSaisieAidant",
    "Txt_DatDispoAidant",   "Txt_DatFinDispoAidant"};

// Of dd/mm/yyyy.
inline std::string stored(const std::string& shown) {
    return shown.size() == 10 ? shown.substr(6) + shown.substr(3, 2) + shown.substr(0, 2) : "";
}

// One line of the table of trainings, its date in stored form.
struct Training {
    std::string date;
    std::string dif;
};

// Latest first, without a date last.
inline bool inOrder(const std::vector<Training>& lines) {
    return std::is_sorted(lines.begin(), lines.end(),
                          [](const auto& a, const auto& b) { return a.date > b.date; });
}

inline int underDif(const std::vector<Training>& lines) {
    return static_cast<int>(std::count_if(lines.begin(), lines.end(),
                                          [](const auto& line) { return line.dif == "OUI"; }));
}

class WalkScreen {
  public:
    explicit WalkScreen(Desk& desk) : desk_(desk) {}

    // From here on it is this file; its form must outlive the use.
    void look(host::CaregiverForm& form) {
        form_ = &form;
        fresh_ = true;
        byList_ = false;
    }
    [[nodiscard]] host::CaregiverForm& form() const { return *form_; }

    [[nodiscard]] bool editing() const { return at<Control>(*form_, "Cmd_AnnulerForm").Enabled(); }
    [[nodiscard]] std::string focus() const {
        const Control* const control = form_->form().focus();
        return control != nullptr ? control->fullName() : std::string();
    }
    [[nodiscard]] TabContainer& tabs() const { return at<TabContainer>(*form_, "Ong_Vorandine"); }
    // What the record keeps, the labels of trainings aside: they are the table's.
    [[nodiscard]] std::string kept() const {
        std::string all = at<OptionButton>(*form_, "Opt_Diplome").Value() ? "D" : "N";
        for (const std::string& name : KeptFields)
            all += "\n" + name + "=" + at<TextField>(*form_, name).Text();
        for (const std::string& name : TrainingLists)
            if (name != "Lst_CodFormAidant")
                all += lines(name);
        return all + lines("Lst_SectSelect") + lines("Lst_CodSectSelect");
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
        return all + std::to_string(at<ScrollBar>(*form_, "Bdv_FormAidant").Value()) +
               std::to_string(tabs().Tab());
    }

    [[nodiscard]] std::vector<Training> trainings() const {
        std::vector<Training> lines;
        const auto& dates = at<ListBox>(*form_, "Lst_DatFormAidant");
        const auto& answers = at<ListBox>(*form_, "Lst_DifFormAidant");
        for (int i = 0; i < dates.ListCount(); ++i)
            lines.push_back({stored(dates.List(i)), answers.List(i)});
        return lines;
    }

    // `origin` is the control on which the gesture was made.
    void follow(bool editingBefore, const std::string& origin) {
        if (!editingBefore && editing())
            byList_ = origin.starts_with("Lst_");
        if (editingBefore && !editing())
            fresh_ = false;
    }
    // `charged`: a form that charges hours has just done so.
    void checkTrainings(const std::vector<Training>& before, bool charged) const {
        const std::vector<Training> now = trainings();
        EXPECT_TRUE(inOrder(now) || !inOrder(before)) << "trainings have left their order";
        EXPECT_LE(std::abs(static_cast<int>(now.size()) - static_cast<int>(before.size())), 1);
        // A line comes under the D.I.F. by a form that charged hours, and by nothing else.
        const int more = underDif(now) - underDif(before);
        EXPECT_TRUE(charged ? more == 1 : more <= 0) << more << " more lines under the D.I.F.";
    }
    void checkLists() const {
        const auto& first = at<ListBox>(*form_, TrainingLists[0]);
        for (const std::string& name : TrainingLists) {
            EXPECT_EQ(at<ListBox>(*form_, name).ListCount(), first.ListCount()) << name;
            EXPECT_EQ(at<ListBox>(*form_, name).ListIndex(), first.ListIndex()) << name;
        }
        const auto& bar = at<ScrollBar>(*form_, "Bdv_FormAidant");
        EXPECT_TRUE(bar.Value() >= 0 && bar.Value() <= std::max(0, bar.Max()));
        EXPECT_EQ(bar.Visible(), bar.Max() > 8);
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
    void checkStates() const {
        const bool open = editing();
        const DifState dif = DifWatch::state(*form_);
        const control::ControlCollection all = form_->control().Controls();
        for (int i = 0; i < all.Count(); ++i)
            EXPECT_EQ(all(i).Enabled(), expected(all(i), open, dif)) << all(i).fullName();
        const bool ledgerOpen = !open && DifWatch::lineOpen(dif);
        EXPECT_EQ(tabs().TabEnabled(0), !ledgerOpen);
        EXPECT_EQ(tabs().TabEnabled(1), !open && !ledgerOpen);
        EXPECT_EQ(tabs().TabEnabled(2), !open);
        EXPECT_TRUE(!open || tabs().Tab() == 0);
        if (!open && !fresh_)
            for (const std::string& name : TypingRow)
                if (const auto* const field = dynamic_cast<TextField*>(form_->form().find(name))) {
                    EXPECT_EQ(field->Text(), "") << name;
                }
    }

  private:
    Desk& desk_;
    host::CaregiverForm* form_ = nullptr;
    bool fresh_ = true;   // no edit has ended yet: Cbo_DifFormAidant is still enabled
    bool byList_ = false; // the line open was opened from a list

    // Hours left empty are saved as "0", and read back in fixed form.
    [[nodiscard]] std::string lines(const std::string& name) const {
        const auto& list = at<ListBox>(*form_, name);
        std::string all = "\n" + name;
        for (int i = 0; i < list.ListCount(); ++i)
            all += "|" + (list.List(i) == "0" ? "   0,00" : list.List(i));
        return all;
    }
    [[nodiscard]] bool expected(const Control& control, bool open, DifState dif) const {
        const std::string& name = control.Name();
        if (open)
            return TypingRow.count(name) > 0 || name == "Ong_Vorandine" ||
                   (name == "Cmd_SupprimerForm" && byList_);
        if (const std::optional<bool> enabled = DifWatch::enabled(dif, name))
            return *enabled;
        if (name == "Cbo_DifFormAidant" && fresh_)
            return true;
        if (name == "Lst_DifEmpl" || name == "Cmd_OK" || name == "Cmd_Retour")
            return !DifWatch::lineOpen(dif);
        return TypingRow.count(name) == 0 && name != "Cmd_SupprimerForm";
    }
};

} // namespace vorandine::control_test
