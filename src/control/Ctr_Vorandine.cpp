// The facade: what the control is made of, the start, the end, and one line for each member.
#include "control/Ctr_Vorandine.h"

#include "control/Dossier.h"
#include "control/EditLock.h"
#include "control/HelpMenu.h"
#include "control/Inventory.h"
#include "control/Screen.h"
#include "control/TrainingDif.h"
#include "dif/DetailArea.h"
#include "dif/Employers.h"
#include "dif/Frm_CalculRemu.h"
#include "dif/Ledgers.h"
#include "experience/Activities.h"
#include "experience/Availability.h"
#include "experience/Studies.h"
#include "ports/Variables.h"
#include "text/Error.h"
#include "trainings/LabelAddition.h"
#include "trainings/TrainingLines.h"
#include "trainings/TypingRow.h"

#include <utility>

namespace vorandine::control {

namespace {
constexpr int DifTab = 2;
} // namespace

widgets::Control& ControlCollection::operator()(int i) const {
    if (i < 0 || i >= Count())
        throw Error(errors::OutOfRange, "Il n'y a pas de contrôle " + std::to_string(i) + ".");
    return *controls_[static_cast<std::size_t>(i)];
}

struct Ctr_Vorandine::Parts {
    Parts(Ctr_Vorandine& control, widgets::World& world, ports::DateObject& Conv_Date,
          ports::HelpObject& help, ports::MakeParameters makeParameters)
        : screen(control), lock(screen), helpMenu(control, screen, variables, help, world),
          notice(screen.Etq_MessageDif), ledgers(variables, control.W_Params, Conv_Date),
          trainingDif(screen, ledgers, notice, variables, Conv_Date, droitsUtilisateur, control,
                      world),
          studies(screen, screen.Cbo_CodFormAidant, variables, world), trainings(screen, Conv_Date),
          typingRow(screen, trainings, lock, trainingDif, variables.F_FORMPRO, Conv_Date, world),
          labelAddition(screen, variables, droitsUtilisateur, control, world,
                        std::move(makeParameters)),
          activities(screen, variables, control.W_Params, droitsModule, world),
          availability(screen, screen.Ong_Vorandine, Conv_Date, world),
          employers(screen, screen, variables, control.W_Params, Conv_Date, notice, control, world),
          detail(screen, screen,
                 {.caregiver = screen,
                  .employers = employers,
                  .ledgers = ledgers,
                  .notice = notice,
                  .lock = lock,
                  .variables = variables,
                  .Conv_Date = Conv_Date,
                  .control = control,
                  .world = world}),
          saves(variables, control.W_Params, droitsModule, Conv_Date, control, world),
          dossier(screen,
                  {.studies = studies,
                   .trainings = trainings,
                   .activities = activities,
                   .availability = availability},
                  saves, ledgers, variables, control, world, control.W_Sortir) {
        screen.Ong_Vorandine.Click = [this](std::int16_t& previousTab) {
            if (screen.Ong_Vorandine.Tab() != DifTab) {
                if (previousTab == DifTab)
                    notice.ofOthers("");
                return;
            }
            detail.close();
            employers.Select_DifAidant();
        };
        screen.Cmd_CalculDif.Click = [this, &control, &world] {
            const auto current = [](const widgets::ListBox& list) {
                return list.List(list.ListIndex());
            };
            dif::runCalculRemu({.caregiver = screen.Etq_CodeAidant.Caption(),
                                .employer = current(screen.Lst_CodeEmplDif),
                                .contract = current(screen.Lst_ContratDif)},
                               variables, droitsUtilisateur, control, world);
        };
    }

    // Reads only: buttons that write are not to be seen.
    void Appliquer_Droits() {
        if (droitsModule->Niveau() == ports::WritingLevel)
            return;
        for (widgets::CommandButton* const button :
             {&screen.Cmd_AjouterForm, &screen.Cmd_AjouterFormation, &screen.Cmd_OK,
              &screen.Cmd_OKForm, &screen.Cmd_SupprimerForm})
            button->Visible(false);
    }

    // Any error leaves a dossier that starts empty. Where a record is there but could not be read,
    // the file refuses to replace it.
    void openDossier(const std::string& W_Code, const std::string& W_NomPrenom) {
        try {
            screen.Etq_CodeAidant.Caption(W_Code);
            screen.Etq_NomPrenomAidant.Caption(W_NomPrenom);
            variables.Rec_Dossier = variables.F_FORMVORANDINE->ReadRecord(W_Code);
            // Showing changes nothing in the record; before it, the copy is that of one text.
            variables.Rec_Copie() = variables.Rec_Dossier();
            dossier.Afficher_Donnees();
        } catch (const Error&) {
            variables.Rec_Dossier = variables.F_FORMVORANDINE->NewRecord(W_Code);
            activities.Remplir_Secteurs(experience::Activities::Selected);
            dossier.MAJ_TabDyn();
            variables.Rec_Copie() = variables.Rec_Dossier();
        }
    }

    ports::Variables variables;
    std::shared_ptr<ports::DroitsUtilisateur> droitsUtilisateur;
    std::shared_ptr<ports::DroitsModule> droitsModule;
    Screen screen;
    EditLock lock;
    HelpMenu helpMenu;
    dif::FileNotice notice;
    dif::Ledgers ledgers;
    TrainingDif trainingDif;
    experience::Studies studies;
    trainings::TrainingLines trainings;
    trainings::TypingRow typingRow;
    trainings::LabelAddition labelAddition;
    experience::Activities activities;
    experience::Availability availability;
    dif::Employers employers;
    dif::DetailArea detail;
    SaveMerge saves;
    Dossier dossier;
};

Ctr_Vorandine::Ctr_Vorandine(widgets::World& world, ports::DateObject& Conv_Date,
                             ports::HelpObject& help, ports::MakeParameters makeParameters)
    : parts_(std::make_unique<Parts>(*this, world, Conv_Date, help, std::move(makeParameters))) {}

Ctr_Vorandine::~Ctr_Vorandine() {
    parts_->droitsModule.reset();
    parts_->droitsUtilisateur.reset();
    ports::Fermer_Fichiers(parts_->variables);
    if (parent() != nullptr)
        parent()->remove(*this);
}

void Ctr_Vorandine::Init() {
    if (parts_->droitsModule == nullptr || parts_->variables.TheDatabase == nullptr)
        throw Error(errors::NotReady,
                    "Le contrôle n'a pas reçu les droits de l'utilisateur et la base de données.");
    parts_->Appliquer_Droits();
    ports::Ouvrir_Fichiers(parts_->variables);
    W_Params = records::DBARecord();
    parts_->variables.Rec_Copie = records::DBARecord();
    parts_->screen.Ong_Vorandine.Tab(0);
    parts_->trainings.range(parts_->trainings.count() - 1);
    parts_->studies.Remplir_Diplome();
    parts_->activities.Remplir_Secteurs(experience::Activities::Possibles);
    parts_->openDossier(W_Code, W_NomPrenom);
}

void Ctr_Vorandine::DroitsUtilisateur(const std::shared_ptr<ports::DroitsUtilisateur>& rights) {
    parts_->droitsUtilisateur = rights;
    parts_->droitsModule = rights->Droits("VORANDINEDROIT");
}

void Ctr_Vorandine::TheClient(const std::shared_ptr<ports::DBAClient>& client) {
    parts_->variables.TheClient = client;
}

void Ctr_Vorandine::TheDatabase(const std::shared_ptr<ports::DBADatabase>& database) {
    parts_->variables.TheDatabase = database;
}

void Ctr_Vorandine::Afficher_DonneesListe() {
    parts_->typingRow.Afficher_DonneesListe();
}
void Ctr_Vorandine::Afficher_Donnees() {
    parts_->dossier.Afficher_Donnees();
}
void Ctr_Vorandine::Select_DifAidant() {
    parts_->employers.Select_DifAidant();
}
void Ctr_Vorandine::Remplir_Liste_Dif(const std::string& W_Empl, const std::string& W_Date,
                                      const std::string& W_Cont) {
    parts_->employers.Remplir_Liste_Dif(W_Empl, W_Date, W_Cont);
}
void Ctr_Vorandine::Ecrire_Donnees() {
    parts_->dossier.Ecrire_Donnees();
}
void Ctr_Vorandine::Effacer_Donnees() {
    parts_->typingRow.Effacer_Donnees();
}
void Ctr_Vorandine::MAJ_TabDyn() {
    parts_->dossier.MAJ_TabDyn();
}
void Ctr_Vorandine::Remplir_Diplome() {
    parts_->studies.Remplir_Diplome();
}
void Ctr_Vorandine::Recherche_Place() {
    parts_->detail.Recherche_Place();
}
void Ctr_Vorandine::Recherche_DifAidant() {
    parts_->typingRow.Recherche_DifAidant();
}
void Ctr_Vorandine::Calcul_MV_Dif() {
    parts_->detail.Calcul_MV_Dif();
}
void Ctr_Vorandine::Effacer_Donnees_Dif() {
    parts_->detail.Effacer_Donnees_Dif();
}
void Ctr_Vorandine::Maj_DifAidant() {
    parts_->detail.Maj_DifAidant();
}
void Ctr_Vorandine::Masquer() {
    parts_->lock.Masquer();
}
void Ctr_Vorandine::Afficher() {
    parts_->lock.Afficher();
}
void Ctr_Vorandine::ClearListes() {
    parts_->activities.ClearListes();
}

ControlCollection Ctr_Vorandine::Controls() const {
    return ControlCollection(parts_->screen.controls);
}

} // namespace vorandine::control
