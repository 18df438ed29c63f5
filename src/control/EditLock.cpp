// Masquer and Afficher: twins, each of which decides the whole screen by itself.
#include "control/EditLock.h"

#include <initializer_list>

namespace vorandine::control {

void EditLock::enableAll(bool enabled) {
    for (widgets::Control* const control : screen_.controls)
        control->Enabled(enabled);
}

void EditLock::enableTypingRow(bool enabled) {
    for (widgets::Control* const control : std::initializer_list<widgets::Control*>{
             &screen_.Txt_DatFormAidant, &screen_.Cbo_CodFormAidant, &screen_.Txt_HhFormAidant,
             &screen_.Txt_ObsFormAidant, &screen_.Cbo_DifFormAidant, &screen_.Cmd_AjouterFormation,
             &screen_.Cmd_OKForm, &screen_.Cmd_AnnulerForm})
        control->Enabled(enabled);
}

void EditLock::Masquer() {
    enableAll(false);
    enableTypingRow(true);
    screen_.Ong_Vorandine.Enabled(true);
}

void EditLock::Afficher() {
    enableAll(true);
    enableTypingRow(false);
    screen_.Cmd_SupprimerForm.Enabled(false);
}

void EditLock::lineOpened(bool stored) {
    Masquer();
    screen_.Cmd_SupprimerForm.Enabled(stored);
    openOtherTabs(false);
}

void EditLock::lineClosed() {
    Afficher();
    openOtherTabs(true);
}

void EditLock::openOtherTabs(bool open) {
    screen_.Ong_Vorandine.TabEnabled(1, open);
    screen_.Ong_Vorandine.TabEnabled(2, open);
}

void EditLock::openWaysOut(bool open) {
    screen_.Lst_DifEmpl.Enabled(open);
    screen_.Ong_Vorandine.TabEnabled(0, open);
    screen_.Ong_Vorandine.TabEnabled(1, open);
    screen_.Cmd_OK.Enabled(open);
    screen_.Cmd_Retour.Enabled(open);
}

} // namespace vorandine::control
