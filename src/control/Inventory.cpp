// The rows of the inventory, and the making of the screen from them.
#include "control/Inventory.h"

namespace vorandine::control {
namespace {

using widgets::Control;

template <auto Member>
Control& member(Screen& screen) {
    return screen.*Member;
}

template <int I>
Control& element(Screen& screen) {
    return screen.Txt_ExpProfAidant[I];
}

// clang-format off
constexpr Row Rows[] = {
    // Outside the tabs.
    {&member<&Screen::Etq_Aidant>, "Etq_Aidant", -1, Where::Surface, "Aidant :  ", 0, 0, 43, {240, 120, 630, 195}},
    {&member<&Screen::Etq_CodeAidant>, "Etq_CodeAidant", -1, Where::Surface, "", 0, 0, 44, {960, 120, 495, 255}},
    {&member<&Screen::Etq_NomPrenomAidant>, "Etq_NomPrenomAidant", -1, Where::Surface, "", 0, 0, 45, {1560, 120, 4215, 255}},
    {&member<&Screen::Cmd_OK>, "Cmd_OK", -1, Where::Surface, "OK", 'O', 0, 25, {7560, 6120, 855, 375}},
    {&member<&Screen::Cmd_Retour>, "Cmd_Retour", -1, Where::Surface, "Retour", 'R', 0, 26, {8565, 6120, 855, 375}},
    {&member<&Screen::Ong_Vorandine>, "Ong_Vorandine", -1, Where::Surface, "", 0, 0, 27, {120, 480, 9555, 5535}},
    // Tab 0: studies.
    {&member<&Screen::Cdr_Etudes>, "Cdr_Etudes", -1, Where::Tab0, "Etudes", 0, 0, 29, {120, 480, 9135, 1575}},
    {&member<&Screen::Opt_Diplome>, "Opt_Diplome", -1, Where::InEtudes, "Diplôme", 'D', 0, 0, {840, 240, 975, 252}},
    {&member<&Screen::Opt_Niveau>, "Opt_Niveau", -1, Where::InEtudes, "Niveau", 'V', 0, 1, {2400, 240, 975, 252}},
    {&member<&Screen::Cbo_EtudeAidant>, "Cbo_EtudeAidant", -1, Where::InEtudes, "", 0, 0, 2, {120, 600, 8895, 315}},
    {&member<&Screen::Etq_AnDipAidant>, "Etq_AnDipAidant", -1, Where::InEtudes, "Année", 0, 0, 30, {120, 1080, 465, 195}},
    {&member<&Screen::Txt_AnDipAidant>, "Txt_AnDipAidant", -1, Where::InEtudes, "", 0, 0, 3, {720, 1080, 492, 288}},
    {&member<&Screen::Etq_SpecialAidant>, "Etq_SpecialAidant", -1, Where::InEtudes, "Spécialité", 0, 0, 31, {1680, 1080, 690, 195}},
    {&member<&Screen::Txt_SpecialAidant>, "Txt_SpecialAidant", -1, Where::InEtudes, "", 0, 0, 4, {2520, 1080, 6495, 288}},
    // Tab 0: training lines. Each list runs on under its right neighbour, the last one under the bar.
    {&member<&Screen::Etq_DatFormAidant>, "Etq_DatFormAidant", -1, Where::Tab0, "Date ", 0, 0, 42, {480, 2160, 390, 195}},
    {&member<&Screen::Etq_CodFormAidant>, "Etq_CodFormAidant", -1, Where::Tab0, "Libellé formation", 0, 0, 40, {2040, 2160, 1140, 195}},
    {&member<&Screen::Etq_HhFormAidant>, "Etq_HhFormAidant", -1, Where::Tab0, "Heures", 0, 0, 39, {4680, 2160, 510, 195}},
    {&member<&Screen::Etq_ObsFormAidant>, "Etq_ObsFormAidant", -1, Where::Tab0, "Observations", 0, 0, 38, {6240, 2160, 930, 195}},
    {&member<&Screen::Etq_DifFormAidant>, "Etq_DifFormAidant", -1, Where::Tab0, "D.I.F.", 0, 0, 57, {8520, 2160, 390, 195}},
    {&member<&Screen::Lst_DatFormAidant>, "Lst_DatFormAidant", -1, Where::Tab0, "", 0, FixedPitch, 36, {120, 2400, 1575, 1950}},
    {&member<&Screen::Lst_CodFormAidant>, "Lst_CodFormAidant", -1, Where::Tab0, "", 0, FixedPitch, 35, {1320, 2400, 3615, 1950}},
    {&member<&Screen::Lst_HhFormAidant>, "Lst_HhFormAidant", -1, Where::Tab0, "", 0, FixedPitch, 34, {4560, 2400, 1455, 1950}},
    {&member<&Screen::Lst_ObsFormAidant>, "Lst_ObsFormAidant", -1, Where::Tab0, "", 0, FixedPitch, 32, {5400, 2400, 3495, 1950}},
    {&member<&Screen::Lst_DifFormAidant>, "Lst_DifFormAidant", -1, Where::Tab0, "", 0, FixedPitch, 56, {8520, 2400, 855, 1950}},
    {&member<&Screen::Lst_CodeForm>, "Lst_CodeForm", -1, Where::Tab0, "", 0, Hidden, 85, {4080, 2280, 375, 1230}},
    {&member<&Screen::Bdv_FormAidant>, "Bdv_FormAidant", -1, Where::Tab0, "", 0, 0, 28, {9120, 2400, 255, 1950}},
    {&member<&Screen::Txt_DatFormAidant>, "Txt_DatFormAidant", -1, Where::Tab0, "", 0, Disabled | FixedPitch, 5, {120, 4440, 1215, 330}},
    {&member<&Screen::Cbo_CodFormAidant>, "Cbo_CodFormAidant", -1, Where::Tab0, "", 0, Disabled | FixedPitch | Sorted, 6, {1320, 4440, 3255, 330}},
    {&member<&Screen::Txt_HhFormAidant>, "Txt_HhFormAidant", -1, Where::Tab0, "", 0, Disabled | FixedPitch, 7, {4560, 4440, 855, 330}},
    {&member<&Screen::Txt_ObsFormAidant>, "Txt_ObsFormAidant", -1, Where::Tab0, "", 0, Disabled | FixedPitch, 8, {5400, 4440, 3135, 330}},
    {&member<&Screen::Cbo_DifFormAidant>, "Cbo_DifFormAidant", -1, Where::Tab0, "", 0, DropDownList, 9, {8520, 4440, 855, 315}},
    {&member<&Screen::Cmd_AjouterForm>, "Cmd_AjouterForm", -1, Where::Tab0, "Ajouter", 'A', 0, 10, {120, 4920, 852, 375}},
    {&member<&Screen::Cmd_SupprimerForm>, "Cmd_SupprimerForm", -1, Where::Tab0, "Supprimer", 'S', Disabled, 11, {1200, 4920, 855, 375}},
    {&member<&Screen::Cmd_AjouterFormation>, "Cmd_AjouterFormation", -1, Where::Tab0, "Ajouter FORMATION", 'F', Disabled, 12, {5400, 4920, 1695, 375}},
    {&member<&Screen::Cmd_OKForm>, "Cmd_OKForm", -1, Where::Tab0, "OK", 'K', Disabled, 13, {7320, 4920, 855, 375}},
    {&member<&Screen::Cmd_AnnulerForm>, "Cmd_AnnulerForm", -1, Where::Tab0, "Annuler", 'N', Disabled, 14, {8400, 4920, 855, 375}},
    // Tab 1. The lists of codes stand behind the lists of labels.
    {&member<&Screen::Cdr_Experience>, "Cdr_Experience", -1, Where::Tab1, "Expériences", 0, 0, 33, {240, 480, 9015, 2175}},
    {&element<0>, "Txt_ExpProfAidant", 0, Where::InExperience, "", 0, 0, 15, {120, 360, 8655, 285}},
    {&element<1>, "Txt_ExpProfAidant", 1, Where::InExperience, "", 0, 0, 16, {120, 600, 8655, 285}},
    {&element<2>, "Txt_ExpProfAidant", 2, Where::InExperience, "", 0, 0, 17, {120, 840, 8655, 285}},
    {&element<3>, "Txt_ExpProfAidant", 3, Where::InExperience, "", 0, 0, 18, {120, 1080, 8655, 285}},
    {&element<4>, "Txt_ExpProfAidant", 4, Where::InExperience, "", 0, 0, 19, {120, 1320, 8655, 285}},
    {&element<5>, "Txt_ExpProfAidant", 5, Where::InExperience, "", 0, 0, 20, {120, 1560, 8655, 285}},
    {&element<6>, "Txt_ExpProfAidant", 6, Where::InExperience, "", 0, 0, 21, {120, 1800, 8655, 285}},
    {&member<&Screen::Etq_SectPossibles>, "Etq_SectPossibles", -1, Where::Tab1, "Activités possibles", 0, 0, 52, {1440, 2760, 1290, 195}},
    {&member<&Screen::Lst_CodSectPossibles>, "Lst_CodSectPossibles", -1, Where::Tab1, "", 0, 0, 55, {2760, 3000, 975, 1425}},
    {&member<&Screen::Lst_SectPossibles>, "Lst_SectPossibles", -1, Where::Tab1, "", 0, MultiSelect, 48, {360, 3000, 3855, 1425}},
    {&member<&Screen::Cmd_Tous>, "Cmd_Tous", -1, Where::Tab1, "Tous", 'T', 0, 49, {4560, 2880, 735, 375}},
    {&member<&Screen::Cmd_SelectSect>, "Cmd_SelectSect", -1, Where::Tab1, "------>", 'C', 0, 50, {4560, 3480, 735, 375}},
    {&member<&Screen::Cmd_SuppSect>, "Cmd_SuppSect", -1, Where::Tab1, "<------", 'E', 0, 51, {4560, 4080, 735, 375}},
    {&member<&Screen::Etq_SectSelect>, "Etq_SectSelect", -1, Where::Tab1, "Activités sélectionnées", 0, 0, 53, {6360, 2760, 1620, 195}},
    {&member<&Screen::Lst_CodSectSelect>, "Lst_CodSectSelect", -1, Where::Tab1, "", 0, 0, 54, {7320, 3000, 1095, 1425}},
    {&member<&Screen::Lst_SectSelect>, "Lst_SectSelect", -1, Where::Tab1, "", 0, MultiSelect, 47, {5520, 3000, 3615, 1425}},
    {&member<&Screen::Etq_Qualif>, "Etq_Qualif", -1, Where::Tab1, "Qualification professionnelle", 0, 0, 86, {360, 4560, 1965, 195}},
    {&member<&Screen::Cbo_Qualif>, "Cbo_Qualif", -1, Where::Tab1, "", 0, Sorted, 87, {2520, 4560, 6495, 315}},
    {&member<&Screen::Etq_DatSaisieAidant>, "Etq_DatSaisieAidant", -1, Where::Tab1, "Date saisie", 0, 0, 37, {360, 5040, 780, 195}},
    {&member<&Screen::Txt_DatSaisieAidant>, "Txt_DatSaisieAidant", -1, Where::Tab1, "", 0, 0, 22, {1320, 5040, 1095, 285}},
    {&member<&Screen::Etq_DatDispoAidant>, "Etq_DatDispoAidant", -1, Where::Tab1, "Date début disponibilité", 0, 0, 41, {2880, 5040, 1650, 195}},
    {&member<&Screen::Txt_DatDispoAidant>, "Txt_DatDispoAidant", -1, Where::Tab1, "", 0, 0, 23, {4680, 5040, 1095, 288}},
    {&member<&Screen::Etq_DatFinDispoAidant>, "Etq_DatFinDispoAidant", -1, Where::Tab1, "Date fin disponibilité", 0, 0, 46, {6240, 5040, 1410, 195}},
    {&member<&Screen::Txt_DatFinDispoAidant>, "Txt_DatFinDispoAidant", -1, Where::Tab1, "", 0, 0, 24, {7800, 5040, 1095, 288}},
    // Tab 2: employers.
    {&member<&Screen::Label1>, "Label1", -1, Where::Tab2, "Employeur", 0, 0, 81, {1680, 720, 735, 195}},
    {&member<&Screen::Label2>, "Label2", -1, Where::Tab2, "Fin contrat", 0, 0, 80, {4320, 720, 750, 195}},
    {&member<&Screen::Label3>, "Label3", -1, Where::Tab2, "Droits en heures de formation", 0, 0, 79, {6240, 480, 2070, 195}},
    {&member<&Screen::Label4>, "Label4", -1, Where::Tab2, "Acquis", 0, 0, 78, {5760, 720, 480, 195}},
    {&member<&Screen::Label5>, "Label5", -1, Where::Tab2, "Consommés", 0, 0, 77, {6840, 720, 855, 195}},
    {&member<&Screen::Label6>, "Label6", -1, Where::Tab2, "Restants", 0, 0, 76, {8160, 720, 630, 195}},
    {&member<&Screen::Lst_DifEmpl>, "Lst_DifEmpl", -1, Where::Tab2, "", 0, FixedPitch, 58, {360, 960, 8775, 1320}},
    {&member<&Screen::Lst_CodeEmplDif>, "Lst_CodeEmplDif", -1, Where::Tab2, "", 0, Hidden, 82, {2880, 960, 375, 1035}},
    {&member<&Screen::Lst_ContratDif>, "Lst_ContratDif", -1, Where::Tab2, "", 0, Hidden, 84, {3720, 960, 255, 1035}},
    // Tab 2: detail of one employer.
    {&member<&Screen::Cdr_DetailDif>, "Cdr_DetailDif", -1, Where::Tab2, "Détail ", 0, Disabled, 59, {240, 2400, 9015, 3015}},
    {&member<&Screen::Label7>, "Label7", -1, Where::InDetail, "Date", 0, 0, 75, {480, 240, 345, 195}},
    {&member<&Screen::Label8>, "Label8", -1, Where::InDetail, "Droits", 0, 0, 74, {1440, 240, 405, 195}},
    {&member<&Screen::Label9>, "Label9", -1, Where::InDetail, "Formation", 0, 0, 73, {3840, 240, 690, 195}},
    {&member<&Screen::Label10>, "Label10", -1, Where::InDetail, "Heures", 0, 0, 72, {7080, 240, 510, 195}},
    {&member<&Screen::Label11>, "Label11", -1, Where::InDetail, "Solde", 0, 0, 71, {8040, 240, 405, 195}},
    {&member<&Screen::Lst_DetailDif>, "Lst_DetailDif", -1, Where::InDetail, "", 0, Disabled | FixedPitch, 70, {120, 480, 8775, 1530}},
    {&member<&Screen::Lst_CodeFormDif>, "Lst_CodeFormDif", -1, Where::InDetail, "", 0, Hidden, 83, {4920, 600, 255, 1035}},
    {&member<&Screen::Txt_DateDif>, "Txt_DateDif", -1, Where::InDetail, "", 0, Disabled, 62, {120, 2160, 1215, 285}},
    {&member<&Screen::Txt_DroitDif>, "Txt_DroitDif", -1, Where::InDetail, "", 0, Disabled, 63, {1320, 2160, 975, 285}},
    {&member<&Screen::Txt_FormDif>, "Txt_FormDif", -1, Where::InDetail, "", 0, Disabled, 69, {2280, 2160, 4575, 285}},
    {&member<&Screen::Txt_HreDif>, "Txt_HreDif", -1, Where::InDetail, "", 0, Disabled, 68, {6840, 2160, 975, 285}},
    {&member<&Screen::Txt_SoldeDif>, "Txt_SoldeDif", -1, Where::InDetail, "", 0, Disabled, 67, {7800, 2160, 1095, 285}},
    {&member<&Screen::Cmd_AjoutDif>, "Cmd_AjoutDif", -1, Where::InDetail, "Ajouter", 'A', Disabled, 61, {120, 2520, 855, 375}},
    {&member<&Screen::Cmd_SupprDif>, "Cmd_SupprDif", -1, Where::InDetail, "Supprimer", 'S', Disabled, 60, {1080, 2520, 855, 375}},
    {&member<&Screen::Cmd_CalculDif>, "Cmd_CalculDif", -1, Where::InDetail, "Calcul rémunération nette de référence", 'C', Disabled, 65, {3000, 2520, 3015, 375}},
    {&member<&Screen::Cmd_OkDif>, "Cmd_OkDif", -1, Where::InDetail, "Ok", 'K', Disabled, 64, {7080, 2520, 855, 375}},
    {&member<&Screen::Cmd_AnnuleDif>, "Cmd_AnnuleDif", -1, Where::InDetail, "Annuler", 'N', Disabled, 66, {8040, 2520, 855, 375}},
};
// clang-format on

widgets::Container& container(Screen& screen, widgets::UserControl& surface, Where where) {
    switch (where) {
    case Where::Surface:
        return surface;
    case Where::InEtudes:
        return screen.Cdr_Etudes;
    case Where::InExperience:
        return screen.Cdr_Experience;
    case Where::InDetail:
        return screen.Cdr_DetailDif;
    default:
        return screen.Ong_Vorandine;
    }
}

int page(Where where) {
    switch (where) {
    case Where::Tab0:
        return 0;
    case Where::Tab1:
        return 1;
    case Where::Tab2:
        return 2;
    default:
        return -1;
    }
}

void caption(Control& control, const Row& row) {
    if (auto* const captioned = dynamic_cast<widgets::Captioned*>(&control)) {
        captioned->Caption(row.caption);
        captioned->mnemonic(row.mnemonic);
    } else if (auto* const frame = dynamic_cast<widgets::Frame*>(&control)) {
        frame->Caption(row.caption);
    }
}

void make(Control& control, const Row& row) {
    control.identify(row.name, row.index);
    caption(control, row);
    control.Enabled((row.traits & Disabled) == 0);
    control.Visible((row.traits & Hidden) == 0);
    control.fixedPitch((row.traits & FixedPitch) != 0);
    control.TabIndex(row.order);
    control.place(row.place);
    if (auto* const combo = dynamic_cast<widgets::ComboBox*>(&control)) {
        combo->sorted((row.traits & Sorted) != 0);
        combo->dropDownList((row.traits & DropDownList) != 0);
    } else if (auto* const list = dynamic_cast<widgets::ListBox*>(&control)) {
        list->multiSelect((row.traits & MultiSelect) != 0);
    }
}

} // namespace

std::span<const Row> Inventory() {
    return Rows;
}

Screen::Screen(widgets::UserControl& surface) {
    Ong_Vorandine.tabs({"Formations", "Expériences et Activités possibles", "D.I.F."});
    for (const Row& row : Rows) {
        Control& made = row.member(*this);
        make(made, row);
        container(*this, surface, row.where).add(made, page(row.where));
        controls.push_back(&made);
    }
    Opt_Diplome.Value(true);
    Txt_AnDipAidant.MaxLength(4);
    Cbo_DifFormAidant.AddItem("OUI");
    Cbo_DifFormAidant.AddItem("NON");
    Cmd_SelectSect.hint("Choisir les activités sélectionnées");
    Cmd_SuppSect.hint("Enlever les activités sélectionnées");
    // Where Escape looks for a button to press.
    Cmd_AnnulerForm.cancelRank(1);
    Cmd_AnnuleDif.cancelRank(2);
    Cmd_Retour.cancelRank(4);
    Mnu_Aide.entries().push_back(&Mnu_Sommaire);
}

} // namespace vorandine::control
