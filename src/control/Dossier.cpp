// Loading, composing, saving and leaving.
#include "control/Dossier.h"

#include "records/StoredFiles.h"
#include "rules/LongTask.h"
#include "rules/Messages.h"
#include "text/Error.h"

#include <algorithm>
#include <string>
#include <utility>

namespace vorandine::control {

namespace attribute = records::training_file;
using experience::Activities;

Dossier::Dossier(Screen& screen, const Subjects& subjects, const dif::Ledgers& ledgers,
                 ports::Variables& variables, widgets::UserControl& control, widgets::World& world,
                 std::int16_t& W_Sortir)
    : s_(screen), on_(subjects), ledgers_(ledgers), v_(variables), control_(control), world_(world),
      W_Sortir_(W_Sortir) {
    s_.Cmd_OK.Click = [this] { Cmd_OK_Click(); };
    s_.Cmd_Retour.Click = [this] { Cmd_Retour_Click(); };
}

void Dossier::Afficher_Donnees() {
    const records::DBARecord& rec = v_.Rec_Dossier;
    rules::StatementByStatement tries;
    on_.studies.showStudies(rec, tries);
    on_.trainings.show(rec, v_.F_FORMPRO, tries);
    on_.studies.showExperience(rec, tries);
    on_.activities.show(rec, tries);
    on_.availability.show(rec, tries);
    on_.studies.showQualification(rec, tries);
}

void Dossier::MAJ_TabDyn() {
    records::DBARecord& rec = v_.Rec_Dossier;
    rec() = "";
    on_.trainings.compose(rec);
    on_.studies.compose(rec);
    on_.activities.compose(rec);
    on_.availability.compose(rec);
}

void Dossier::Ecrire_Donnees() {
    const int lines = std::max(std::as_const(v_.Rec_Copie).DCount(attribute::Training),
                               v_.Rec_Copie.DCount(attribute::Activities));
    if (lines > widgets::MaxLines)
        throw Error(errors::RecordTooLong, "Le dossier enregistré compte " + std::to_string(lines) +
                                               " lignes ; l'écran n'en montre que " +
                                               std::to_string(widgets::MaxLines) +
                                               ". Il n'est pas réécrit, pour ne rien perdre.");
    MAJ_TabDyn();
    v_.Rec_Dossier.DBWrite();
}

void Dossier::Cmd_OK_Click() {
    on_.availability.fillWithToday();
    if (!on_.availability.check())
        return;
    if (on_.activities.noneChosen())
        on_.activities.Remplir_Secteurs(Activities::Selected);
    {
        rules::LongTask task(control_, world_);
        Ecrire_Donnees();
        task.letEventsThrough();
    }
    leave();
}

void Dossier::Cmd_Retour_Click() {
    MAJ_TabDyn();
    if (std::as_const(v_.Rec_Copie)() != std::as_const(v_.Rec_Dossier)()) {
        const widgets::Answer answer = world_.messageBox(
            {.title = rules::MessageTitle,
             .text = "Voulez-vous enregistrer les modifications effectuées ?",
             .icon = widgets::Icon::Question,
             .buttons = widgets::Buttons::YesNoCancel,
             .detail = ledgers_.written() ? "Les heures de D.I.F. déjà enregistrées le "
                                            "restent, quelle que soit votre réponse."
                                          : ""});
        if (answer == widgets::Answer::Yes)
            Cmd_OK_Click();
        if (answer != widgets::Answer::No)
            return;
    }
    if (std::as_const(v_.Rec_Copie)(attribute::Activities).empty()) {
        try {
            storeAllActivities();
        } catch (const Error& error) {
            if (!leavesAfter(error))
                throw;
        }
    }
    leave();
}

void Dossier::storeAllActivities() {
    try {
        on_.activities.Remplir_Secteurs(Activities::Copie);
        v_.Rec_Dossier() = v_.Rec_Copie();
        v_.Rec_Dossier.DBWrite();
    } catch (...) {
        // Else the next press would take the activities for stored.
        v_.Rec_Copie(attribute::Activities) = "";
        throw;
    }
}

// Whoever may not write leaves without it. Others hear of a failure once; then there must be a way
// out while the disk stays full.
bool Dossier::leavesAfter(const Error& error) {
    if (error.number() == errors::MayNotWrite)
        return true;
    return std::exchange(storingFailed_, true) &&
           rules::confirm(world_,
                          "Le dossier, complété de toutes les activités, n'a pas pu être "
                          "enregistré. Voulez-vous quitter sans l'enregistrer ?",
                          error.what());
}

void Dossier::leave() {
    W_Sortir_ = 1;
    if (widgets::Form* const form = control_.form())
        form->Unload();
}

} // namespace vorandine::control
