// The control as its host sees it: a facade whose members each lead into the class that does the
// work. A host places it on a form, hands in its objects, the caregiver's code and name, and calls
// Init; from then on the user works in it, until it unloads the form itself.
#pragma once

#include "ports/Database.h"
#include "ports/DateObject.h"
#include "ports/Help.h"
#include "ports/ParametersControl.h"
#include "ports/Rights.h"
#include "widgets/Form.h"
#include "widgets/World.h"

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace vorandine::control {

// The control's own controls, in the order of the screen inventory. Menus are not among them.
class ControlCollection {
  public:
    explicit ControlCollection(const std::vector<widgets::Control*>& controls)
        : controls_(controls) {}
    [[nodiscard]] int Count() const noexcept { return static_cast<int>(controls_.size()); }
    // From 0 to Count() - 1; throws Error(OutOfRange) elsewhere.
    [[nodiscard]] widgets::Control& operator()(int i) const;

  private:
    const std::vector<widgets::Control*>& controls_;
};

// Calling order: TheClient, TheDatabase, DroitsUtilisateur, W_Code, W_NomPrenom in any order, then
// Init, once. What the host hands in is shared and let go on destruction, never closed.
// `world`, `Conv_Date` and `help` must outlive the control. The control must outlive its place on a
// form: it takes itself off on destruction. It must not be destroyed while one of its handlers
// runs: a host waits until the form is unloaded and the gesture has returned.
class Ctr_Vorandine : public widgets::UserControl {
  public:
    Ctr_Vorandine(widgets::World& world, ports::DateObject& Conv_Date, ports::HelpObject& help,
                  ports::MakeParameters makeParameters);
    Ctr_Vorandine(const Ctr_Vorandine&) = delete;
    Ctr_Vorandine& operator=(const Ctr_Vorandine&) = delete;
    ~Ctr_Vorandine() override; // UserControl_Terminate

    std::string W_NomPrenom;
    std::string W_Code; // the key of the caregiver's record
    records::DBARecord W_Params;
    std::int16_t W_Sortir = 0; // 1 once the user has left by Cmd_OK or Cmd_Retour

    // Asks the rights object for "VORANDINEDROIT" at once; what it throws goes through.
    void DroitsUtilisateur(const std::shared_ptr<ports::DroitsUtilisateur>& rights);

    void Afficher_DonneesListe();
    void Afficher_Donnees();
    void Select_DifAidant();
    // `W_Date` is the end of the contract in stored form, or "RIEN".
    void Remplir_Liste_Dif(const std::string& W_Empl, const std::string& W_Date,
                           const std::string& W_Cont);
    void Ecrire_Donnees();
    void Effacer_Donnees();

    // Shows the caregiver's file, or a new one if there is no record or it cannot be read. Throws
    // Error(NotReady) if something was not handed in, and what opening files, tables and
    // activities throws; the host then gives the control up and may try with a new one.
    void Init();
    void MAJ_TabDyn();
    void Remplir_Diplome();

    void TheClient(const std::shared_ptr<ports::DBAClient>& client);
    void TheDatabase(const std::shared_ptr<ports::DBADatabase>& database);

    void Recherche_Place();
    // Takes the selected training out of the stored ledgers. No error leaves it; what could not be
    // read or written is told in Etq_MessageDif.
    void Recherche_DifAidant();
    void Calcul_MV_Dif();
    void Effacer_Donnees_Dif();
    void Maj_DifAidant();

    [[nodiscard]] ControlCollection Controls() const;
    void Masquer();
    void Afficher();
    // Empties Lst_SectPossibles and Lst_SectSelect; the lists of codes beside them are left alone.
    void ClearListes();

  private:
    struct Parts;
    std::unique_ptr<Parts> parts_;
};

} // namespace vorandine::control
