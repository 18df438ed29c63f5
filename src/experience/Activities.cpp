// Filling the two pairs of lists and moving activities between them.
#include "experience/Activities.h"

#include "experience/ListPairs.h"
#include "ports/Query.h"
#include "records/StoredFiles.h"
#include "rules/Messages.h"

namespace vorandine::experience {

namespace activity = records::activity;
namespace training_file = records::training_file;

namespace {

// An activity without a label is told by its code, on both sides.
std::string shownLabel(const std::string& label, const std::string& code) {
    return label.empty() ? code : label;
}

} // namespace

Activities::Activities(ActivityWidgets& widgets, ports::Variables& variables,
                       records::DBARecord& W_Params,
                       const std::shared_ptr<ports::DroitsModule>& module, widgets::World& world)
    : w_(widgets), v_(variables), W_Params_(W_Params), module_(module), world_(world) {
    const auto select = [this] { Cmd_SelectSect_Click(); };
    const auto remove = [this] { giveUp(); };
    w_.Lst_SectPossibles.DblClick = [this] { Lst_SectPossibles_DblClick(); };
    w_.Cmd_SelectSect.Click = select;
    w_.Lst_SectSelect.DragDrop = [select](widgets::Control& /*source*/) { select(); };
    w_.Lst_SectSelect.DblClick = remove;
    w_.Cmd_SuppSect.Click = remove;
    w_.Lst_SectPossibles.DragDrop = [remove](widgets::Control& /*source*/) { remove(); };
    w_.Cmd_Tous.Click = [this] { Cmd_Tous_Click(); };
    for (widgets::ListBox* const list : {&w_.Lst_SectPossibles, &w_.Lst_SectSelect})
        list->MouseDown = [list](const widgets::MouseEvent& /*event*/) { list->Drag(); };
}

void Activities::Remplir_Secteurs(Mode mode) {
    W_Activites_ =
        ports::select(*v_.TheDatabase, W_Params_, ports::Query(activity::File).by(activity::Label),
                      {records::Key, activity::Label});
    const int rows = W_Activites_.DCount();
    for (int i = 1; i <= rows; ++i) {
        const std::string code = W_Activites_(i, 1);
        const std::string label = shownLabel(W_Activites_(i, 2), code);
        switch (mode) {
        case Possibles:
            w_.Lst_SectPossibles.AddItem(label);
            w_.Lst_CodSectPossibles.AddItem(code);
            break;
        case Selected:
            w_.Lst_SectSelect.AddItem(label);
            w_.Lst_CodSectSelect.AddItem(code);
            break;
        case Copie:
            v_.Rec_Copie(training_file::Activities, i) = code;
            break;
        }
    }
}

bool Activities::noneChosen() const {
    return w_.Lst_CodSectSelect.ListCount() == 0;
}

bool Activities::allowed(const std::string& code, bool doubleClick) const {
    return module_->DroitSur(code, doubleClick).value_or(false);
}

// One line is asked about, every selected line moves.
void Activities::Lst_SectPossibles_DblClick() {
    const int line = w_.Lst_SectPossibles.ListIndex();
    if (line != -1 && allowed(w_.Lst_CodSectPossibles.List(line), true))
        Transfert_Selection(w_.Lst_SectPossibles, w_.Lst_SectSelect, w_.Lst_CodSectPossibles,
                            w_.Lst_CodSectSelect);
}

void Activities::chooseIfAbsent(int i) {
    const std::string label = w_.Lst_SectPossibles.List(i);
    if (Present_Liste(label, w_.Lst_SectSelect))
        return;
    w_.Lst_SectSelect.AddItem(label);
    w_.Lst_CodSectSelect.AddItem(w_.Lst_CodSectPossibles.List(i));
}

void Activities::Cmd_SelectSect_Click() {
    for (int i = 0; i < w_.Lst_SectPossibles.ListCount(); ++i) {
        const bool right = allowed(w_.Lst_CodSectPossibles.List(i), false);
        if (right && w_.Lst_SectPossibles.Selected(i))
            chooseIfAbsent(i);
        w_.Lst_SectPossibles.Selected(i, false);
    }
}

void Activities::Cmd_Tous_Click() {
    module_->ListeDroits()->InitialiserListe();
    const std::shared_ptr<ports::ListeDroits> W_Liste = module_->ListeDroits();
    if (!module_->AccesTotal() || W_Liste->Count() != 0)
        rules::warn(world_, "Attention : Vous n'avez pas les droits pour accéder à TOUS les "
                            "secteurs disponibles.\r\nLes secteurs pour lesquels vous n'avez aucun "
                            "droit seront exclus de la liste");
    for (int i = 0; i < w_.Lst_CodSectPossibles.ListCount(); ++i)
        if (allowed(w_.Lst_CodSectPossibles.List(i), false))
            chooseIfAbsent(i);
}

void Activities::giveUp() {
    Retrait_Selection(w_.Lst_SectSelect, w_.Lst_CodSectSelect);
}

std::string Activities::labelOf(const std::string& code, rules::StatementByStatement& tries) {
    std::string label;
    tries([&] {
        v_.Rec_ACTIVITES = v_.F_ACTIVITES->ReadRecord(code);
        label = v_.Rec_ACTIVITES(activity::Label);
    });
    return shownLabel(label, code);
}

void Activities::show(const records::DBARecord& rec, rules::StatementByStatement& tries) {
    if (rec(training_file::Activities).empty()) {
        tries([&] { Remplir_Secteurs(Selected); });
        return;
    }
    const int codes = rec.DCount(training_file::Activities);
    for (int i = 1; i <= codes; ++i) {
        // An empty code would end the list for the next save, and lose the codes after it.
        const std::string code = rec(training_file::Activities, i);
        if (code.empty())
            continue;
        tries([&] {
            w_.Lst_SectSelect.AddItem(labelOf(code, tries));
            w_.Lst_CodSectSelect.AddItem(code);
        });
    }
}

void Activities::compose(records::DBARecord& rec) const {
    for (int i = 0; !w_.Lst_CodSectSelect.List(i).empty(); ++i)
        rec(training_file::Activities, i + 1) = w_.Lst_CodSectSelect.List(i);
}

void Activities::ClearListes() {
    w_.Lst_SectPossibles.Clear();
    w_.Lst_SectSelect.Clear();
}

} // namespace vorandine::experience
