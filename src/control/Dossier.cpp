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

Dossier::Dossier(Screen& screen, const Subjects& subjects, SaveMerge& saves,
                 const dif::Ledgers& ledgers, ports::Variables& variables,
                 widgets::UserControl& control, widgets::World& world, std::int16_t& W_Sortir)
    : s_(screen), on_(subjects), saves_(saves), ledgers_(ledgers), v_(variables), control_(control),
      world_(world), W_Sortir_(W_Sortir) {
    s_.Cmd_OK.Click = [this] { Cmd_OK_Click(); };
    s_.Cmd_Retour.Click = [this] { Cmd_Retour_Click(); };
}

void Dossier::Afficher_Donnees() {
    on_.show(v_.Rec_Dossier, v_.F_FORMPRO);
}

void Dossier::MAJ_TabDyn() {
    v_.Rec_Dossier() = "";
    on_.compose(v_.Rec_Dossier);
}

void Dossier::Ecrire_Donnees() {
    composeAndStore();
}

bool Dossier::composeAndStore() {
    const int lines = std::max(std::as_const(v_.Rec_Copie).DCount(attribute::Training),
                               v_.Rec_Copie.DCount(attribute::Activities));
    if (lines > widgets::MaxLines)
        throw Error(errors::RecordTooLong, "Le dossier enregistré compte " + std::to_string(lines) +
                                               " lignes ; l'écran n'en montre que " +
                                               std::to_string(widgets::MaxLines) +
                                               ". Il n'est pas réécrit, pour ne rien perdre.");
    MAJ_TabDyn();
    std::vector<int> filled;
    for (const Filled& each : filled_)
        if (std::as_const(v_.Rec_Dossier)(each.attribute) == each.value)
            filled.push_back(each.attribute);
    return saves_.store({.read = std::as_const(v_.Rec_Copie)(),
                         .untouched = {},
                         .origins = on_.trainings.origins(),
                         .filled = std::move(filled),
                         .hoursStored = ledgers_.written()});
}

// What stands in the fields only because the program put it there gives way to what another seat
// has stored.
void Dossier::fillIn(const std::function<void()>& fill) {
    const auto content = [this] {
        records::DBARecord composed;
        on_.availability.compose(composed);
        on_.activities.compose(composed);
        return composed;
    };
    const records::DBARecord before = content();
    fill();
    const records::DBARecord after = content();
    for (const int a : {attribute::EntryDay, attribute::AvailableFrom, attribute::Activities})
        if (before(a) != after(a))
            filled_.push_back({.attribute = a, .value = after(a)});
}

void Dossier::Cmd_OK_Click() {
    fillIn([this] { on_.availability.fillWithToday(); });
    if (!on_.availability.check())
        return;
    if (on_.activities.noneChosen())
        fillIn([this] { on_.activities.Remplir_Secteurs(Activities::Selected); });
    bool stored = false;
    {
        rules::LongTask task(control_, world_);
        stored = composeAndStore();
        task.letEventsThrough();
    }
    if (stored)
        leave();
}

void Dossier::Cmd_Retour_Click() {
    MAJ_TabDyn();
    if (std::as_const(v_.Rec_Copie)() != std::as_const(v_.Rec_Dossier)()) {
        const widgets::Answer answer =
            world_.messageBox({.title = rules::MessageTitle,
                               .text = "Voulez-vous enregistrer les modifications effectuées ?",
                               .icon = widgets::Icon::Question,
                               .buttons = widgets::Buttons::YesNoCancel,
                               .detail = ledgers_.written() ? rules::HoursStay : ""});
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
    std::string read = std::as_const(v_.Rec_Copie)();
    try {
        on_.activities.Remplir_Secteurs(Activities::Copie);
        v_.Rec_Dossier() = v_.Rec_Copie();
        saves_.storeUnasked(
            {.read = read, .untouched = read, .origins = {}, .filled = {attribute::Activities}});
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
