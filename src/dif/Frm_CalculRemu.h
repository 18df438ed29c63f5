// The modal form that computes the reference net hourly pay: net pay over hours of the twelve
// months that end with the month chosen, for one caregiver and one employer. The result is only
// shown.
#pragma once

#include "dif/ButtonClosedForm.h"
#include "ports/Rights.h"
#include "ports/Variables.h"
#include "widgets/Simple.h"
#include "widgets/TextField.h"
#include "widgets/World.h"

#include <memory>
#include <string>

namespace vorandine::dif {

// Set the inputs, call Init, run the form modally. All that is handed over must outlive the form.
class Frm_CalculRemu : public ButtonClosedForm {
  public:
    Frm_CalculRemu(ports::Variables& variables, widgets::World& world);
    Frm_CalculRemu(const Frm_CalculRemu&) = delete;
    Frm_CalculRemu& operator=(const Frm_CalculRemu&) = delete;
    ~Frm_CalculRemu() override = default;

    std::string W_PeriodeCloture; // yyyymm, or "": then nothing can be computed
    std::string W_Empl;
    std::string W_Aidant;

    void Init();

  private:
    ports::Variables& v_;
    widgets::World& world_;

    widgets::Label Label1;
    widgets::ComboBox Cbo_Mois;
    widgets::ComboBox Cbo_An;
    widgets::Label Label2;
    widgets::TextBox Txt_Resultat;
    widgets::CommandButton Cmd_OK;
    widgets::CommandButton Cmd_Retour;

    void furnish();
    void Remplir_Annee();
    void Cmd_OK_Click();
    [[nodiscard]] records::DBARecord rows();
};

// A caregiver, one of the employers, and the key of a contract between them.
struct Employment {
    std::string caregiver;
    std::string employer;
    std::string contract;
};

// Cmd_CalculDif_Click of `control`: reads the contract and runs the form for its employer. Throws
// what reading the contract throws, and what the rights throw.
void runCalculRemu(const Employment& employment, ports::Variables& variables,
                   const std::shared_ptr<ports::DroitsUtilisateur>& rights,
                   widgets::UserControl& control, widgets::World& world);

} // namespace vorandine::dif
