// Every control of the screen, as members under the names that the code uses. What they look like
// at start stands in the inventory (control/Inventory.h), from which the constructor builds the
// screen.
#pragma once

#include "widgets/Form.h"
#include "widgets/ListBox.h"
#include "widgets/Simple.h"
#include "widgets/TextField.h"

#include <array>
#include <vector>

namespace vorandine::control {

struct Screen {
    // Makes the screen as it is before any code has run, on `surface`, which must outlive it.
    explicit Screen(widgets::UserControl& surface);
    Screen(const Screen&) = delete;
    Screen& operator=(const Screen&) = delete;
    ~Screen() = default;

    // Outside the tabs.
    widgets::Label Etq_Aidant;
    widgets::Label Etq_CodeAidant;
    widgets::Label Etq_NomPrenomAidant;
    widgets::CommandButton Cmd_OK;
    widgets::CommandButton Cmd_Retour;
    widgets::TabContainer Ong_Vorandine;

    // Tab 0: studies.
    widgets::Frame Cdr_Etudes;
    widgets::OptionButton Opt_Diplome;
    widgets::OptionButton Opt_Niveau;
    widgets::ComboBox Cbo_EtudeAidant;
    widgets::Label Etq_AnDipAidant;
    widgets::TextBox Txt_AnDipAidant;
    widgets::Label Etq_SpecialAidant;
    widgets::TextBox Txt_SpecialAidant;

    // Tab 0: training lines.
    widgets::Label Etq_DatFormAidant;
    widgets::Label Etq_CodFormAidant;
    widgets::Label Etq_HhFormAidant;
    widgets::Label Etq_ObsFormAidant;
    widgets::Label Etq_DifFormAidant;
    widgets::ListBox Lst_DatFormAidant;
    widgets::ListBox Lst_CodFormAidant;
    widgets::ListBox Lst_HhFormAidant;
    widgets::ListBox Lst_ObsFormAidant;
    widgets::ListBox Lst_DifFormAidant;
    widgets::ListBox Lst_CodeForm;
    widgets::ScrollBar Bdv_FormAidant;
    widgets::TextBox Txt_DatFormAidant;
    widgets::ComboBox Cbo_CodFormAidant;
    widgets::TextBox Txt_HhFormAidant;
    widgets::TextBox Txt_ObsFormAidant;
    widgets::ComboBox Cbo_DifFormAidant;
    widgets::CommandButton Cmd_AjouterForm;
    widgets::CommandButton Cmd_SupprimerForm;
    widgets::CommandButton Cmd_AjouterFormation;
    widgets::CommandButton Cmd_OKForm;
    widgets::CommandButton Cmd_AnnulerForm;
    widgets::Label Etq_MessageForm;

    // Tab 1: experience, activities, qualification, dates.
    widgets::Frame Cdr_Experience;
    std::array<widgets::TextBox, 7> Txt_ExpProfAidant;
    widgets::Label Etq_SectPossibles;
    widgets::ListBox Lst_SectPossibles;
    widgets::ListBox Lst_CodSectPossibles;
    widgets::CommandButton Cmd_Tous;
    widgets::CommandButton Cmd_SelectSect;
    widgets::CommandButton Cmd_SuppSect;
    widgets::Label Etq_SectSelect;
    widgets::ListBox Lst_SectSelect;
    widgets::ListBox Lst_CodSectSelect;
    widgets::Label Etq_Qualif;
    widgets::ComboBox Cbo_Qualif;
    widgets::Label Etq_DatSaisieAidant;
    widgets::TextBox Txt_DatSaisieAidant;
    widgets::Label Etq_DatDispoAidant;
    widgets::TextBox Txt_DatDispoAidant;
    widgets::Label Etq_DatFinDispoAidant;
    widgets::TextBox Txt_DatFinDispoAidant;

    // Tab 2: employers.
    widgets::Label Label1;
    widgets::Label Label2;
    widgets::Label Label3;
    widgets::Label Label4;
    widgets::Label Label5;
    widgets::Label Label6;
    widgets::ListBox Lst_DifEmpl;
    widgets::ListBox Lst_CodeEmplDif;
    widgets::ListBox Lst_ContratDif;

    // Tab 2: detail of one employer.
    widgets::Frame Cdr_DetailDif;
    widgets::Label Label7;
    widgets::Label Label8;
    widgets::Label Label9;
    widgets::Label Label10;
    widgets::Label Label11;
    widgets::ListBox Lst_DetailDif;
    widgets::ListBox Lst_CodeFormDif;
    widgets::TextBox Txt_DateDif;
    widgets::TextBox Txt_DroitDif;
    widgets::TextBox Txt_FormDif;
    widgets::TextBox Txt_HreDif;
    widgets::TextBox Txt_SoldeDif;
    widgets::CommandButton Cmd_AjoutDif;
    widgets::CommandButton Cmd_SupprDif;
    widgets::CommandButton Cmd_CalculDif;
    widgets::CommandButton Cmd_OkDif;
    widgets::CommandButton Cmd_AnnuleDif;
    widgets::Label Etq_MessageDif;

    widgets::Menu Mnu_Aide{"Mnu_Aide", "Aide", false};
    widgets::Menu Mnu_Sommaire{"Mnu_Sommaire", "Aide_ORMELAINE", true};

    // All controls, in the order of the inventory.
    std::vector<widgets::Control*> controls;
};

} // namespace vorandine::control
