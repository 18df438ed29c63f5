// The modal form in which a training's hours are charged to employers. The share-out is the user's:
// nothing limits it, the form only says at every moment where it stands.
#pragma once

#include "dif/ButtonClosedForm.h"
#include "dif/Ledgers.h"
#include "ports/Variables.h"
#include "text/Fixed4.h"
#include "widgets/ListBox.h"
#include "widgets/Simple.h"
#include "widgets/TextField.h"
#include "widgets/World.h"

#include <string>

namespace vorandine::dif {

// Set the inputs, call Init, run the form modally, then ask for the answer. All that is handed over
// must outlive the form.
class Frm_DIF : public ButtonClosedForm {
  public:
    Frm_DIF(ports::Variables& variables, Ledgers& ledgers, widgets::World& world);
    Frm_DIF(const Frm_DIF&) = delete;
    Frm_DIF& operator=(const Frm_DIF&) = delete;
    ~Frm_DIF() override = default;

    std::string W_DateFormation; // in stored form
    std::string W_NbreHre;       // length of the training, as shown; "0" if it has none
    std::string W_CodeForm;
    widgets::Label Etq_CodeDif; // the captions are the caller's to set
    widgets::Label Etq_NomDif;

    // Fills the list. No error leaves it: what cannot be read is not listed.
    void Init();

    // Whether the training stays under the D.I.F.: hours of it are in the ledgers.
    [[nodiscard]] bool retained() const { return stored_ != text::Fixed4(); }
    // What stood in the ledgers before, and what others have made of those charged since they were
    // listed, in words; "" for nothing.
    [[nodiscard]] const Standing& standing() const { return standing_; }
    [[nodiscard]] const std::string& others() const { return others_; }

  private:
    ports::Variables& v_;
    Ledgers& ledgers_;
    widgets::World& world_;
    text::Fixed4 W_TotalConso_;
    Standing standing_;
    std::string others_;
    text::Fixed4 stored_; // hours in the ledgers already, whatever becomes of the rest

    widgets::Label Etq_AidantDif;
    widgets::Label Label2;
    widgets::Label Label3;
    widgets::Label Label4;
    widgets::ListBox Lst_Dif;
    widgets::ListBox Lst_CodeEmpl;
    widgets::Label Etq_RepartitionDif; // how much is charged, and who would go below zero
    widgets::TextBox Txt_Employeur;
    widgets::TextBox Txt_Conso;
    widgets::CommandButton Cmd_OKDif;
    widgets::CommandButton Cmd_AnnuleDif;
    widgets::CommandButton Cmd_RetourDif;

    void furnish();
    void Remplir_Liste();
    void addEmployer(const std::string& stored);
    void Lst_Dif_DblClick();
    void Cmd_OkDif_Click();
    void Cmd_RetourDif_Click();
    void confirmLine();
    // Whether a line is open; none is before the first one, whatever was typed.
    [[nodiscard]] bool lineOpen() const;
    void closeLine();
    // What is enabled while a line is open, and while none is.
    void enable(bool lineOpen);
    void Test_Zero();
    // Stores the hours of each line. Where some could not be, tells which, leaves those in the list
    // and gives false.
    [[nodiscard]] bool MAJ();
    void takeOff(int line, text::Fixed4 hours);
    void endWithAnswer();
    void tellShare();
};

} // namespace vorandine::dif
