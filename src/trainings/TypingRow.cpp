// The edges of the editing state of a training line.
#include "trainings/TypingRow.h"

#include "rules/FieldRules.h"
#include "rules/Messages.h"

namespace vorandine::trainings {

TypingRow::TypingRow(const TypingWidgets& widgets, TrainingLines& lines, ScreenLock& lock,
                     data::DateObject& Conv_Date, widgets::World& world)
    : w_(widgets), lines_(lines), lock_(lock), world_(world) {
    const char* const badDate = "La date saisie est invalide, veuillez la saisir à nouveau.";
    rules::dateRule(w_.Txt_DatFormAidant, Conv_Date, world_, badDate);
    rules::entryRule(w_.Cbo_CodFormAidant, world_,
                     "Le diplôme saisi n'existe pas, veuillez le ressaisir.");
    rules::hoursRule(w_.Txt_HhFormAidant, world_);
    lines_.onOpen([this] { Afficher_DonneesListe(); });
    w_.Cmd_AjouterForm.Click = [this] { Cmd_AjouterForm_Click(); };
    w_.Cmd_AnnulerForm.Click = [this] { Cmd_AnnulerForm_Click(); };
}

void TypingRow::enableFields(bool enabled) {
    w_.Txt_DatFormAidant.Enabled(enabled);
    w_.Cbo_CodFormAidant.Enabled(enabled);
    w_.Txt_HhFormAidant.Enabled(enabled);
    w_.Txt_ObsFormAidant.Enabled(enabled);
    w_.Cbo_DifFormAidant.Enabled(enabled);
}

void TypingRow::enableButtonsOfOpenLine(bool enabled) {
    w_.Cmd_AjouterForm.Enabled(!enabled);
    w_.Cmd_SupprimerForm.Enabled(enabled);
    w_.Cmd_OKForm.Enabled(enabled);
    w_.Cmd_AnnulerForm.Enabled(enabled);
    w_.Cmd_AjouterFormation.Enabled(enabled);
}

void TypingRow::Afficher_DonneesListe() {
    if (lines_.W_LigneForm() == -1)
        return;
    const TrainingLine line = lines_.line(lines_.W_LigneForm());
    w_.Txt_DatFormAidant.Text(line.date);
    w_.Cbo_CodFormAidant.Text(line.label);
    w_.Txt_HhFormAidant.Text(line.hours);
    w_.Txt_ObsFormAidant.Text(line.observations);
    w_.Cbo_DifFormAidant.Text(line.dif);
    enableFields(true);
    lines_.enable(false);
    lock_.Masquer();
    enableButtonsOfOpenLine(true);
    lock_.openOtherTabs(false);
}

void TypingRow::Effacer_Donnees() {
    W_ModeForm_ = 0;
    w_.Txt_DatFormAidant.Text("");
    w_.Cbo_CodFormAidant.Text("");
    w_.Txt_HhFormAidant.Text("");
    w_.Txt_ObsFormAidant.Text("");
    w_.Cbo_DifFormAidant.ListIndex(-1);
    enableFields(false);
    lines_.enable(true);
    enableButtonsOfOpenLine(false);
    lines_.deselect();
    lock_.Afficher();
    lock_.openOtherTabs(true);
}

void TypingRow::Cmd_AjouterForm_Click() {
    W_ModeForm_ = 1;
    lock_.Masquer();
    lock_.openOtherTabs(false);
    w_.Txt_DatFormAidant.SetFocus();
    w_.Cbo_DifFormAidant.ListIndex(1);
}

void TypingRow::Cmd_AnnulerForm_Click() {
    if (W_ModeForm_ == 0 ||
        rules::confirm(world_, "Etes-vous sûr de vouloir quitter cette création ?"))
        Effacer_Donnees();
}

} // namespace vorandine::trainings
