// The form is made afresh at each press; afterwards the table is read again.
#include "trainings/LabelAddition.h"

#include "records/StoredFiles.h"
#include "rules/FieldRules.h"
#include "rules/LongTask.h"
#include "rules/ModalForm.h"
#include "trainings/Frm_ParamFormation.h"

#include <utility>

namespace vorandine::trainings {
LabelAddition::LabelAddition(TypingWidgets& widgets, ports::Variables& variables,
                             const std::shared_ptr<ports::DroitsUtilisateur>& rights,
                             widgets::UserControl& control, widgets::World& world,
                             ports::MakeParameters make)
    : w_(widgets), v_(variables), rights_(rights), control_(control), world_(world),
      make_(std::move(make)) {
    w_.Cmd_AjouterFormation.Click = [this] { Cmd_AjouterFormation_Click(); };
}

void LabelAddition::Cmd_AjouterFormation_Click() {
    rules::LongTask task(control_, world_);
    showForm();
    v_.F_FORMPRO = v_.F_TABLES->ReadRecord(records::table::Trainings);
    refill();
    task.letEventsThrough();
}

void LabelAddition::showForm() {
    Frm_ParamFormation form(make_, world_);
    ports::ParametersControl& Ctr_Galvarde = form.Ctr_Galvarde();
    Ctr_Galvarde.TheDatabase = v_.TheDatabase;
    Ctr_Galvarde.TheClient = v_.TheClient;
    Ctr_Galvarde.Table_Param = records::table::Trainings;
    Ctr_Galvarde.Titre_Param = "FORMATIONS";
    Ctr_Galvarde.DroitsParam = rights_;
    Ctr_Galvarde.Init_Param();
    rules::runModal(form, control_, world_);
}

void LabelAddition::refill() {
    // Put back as it stood, whatever the table now holds: it is checked when the field is left.
    const std::string kept = w_.Cbo_CodFormAidant.Text();
    w_.Cbo_CodFormAidant.Clear();
    const int labels = std::as_const(v_.F_FORMPRO).DCount(records::table::Codes);
    for (int i = 1; i <= labels; ++i)
        rules::addEntry(w_.Cbo_CodFormAidant,
                        std::as_const(v_.F_FORMPRO)(records::table::Labels, i));
    w_.Cbo_CodFormAidant.Text(kept);
}

} // namespace vorandine::trainings
