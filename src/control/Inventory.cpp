// The rows of the inventory, and the making of the screen from them.
#include "control/Inventory.h"

#include "dif/Columns.h"

#include <array>

namespace vorandine::control {
namespace {

using widgets::Control;
using enum widgets::Trait;

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
    {&member<&Screen::Etq_Aidant>, Where::Surface, {"Etq_Aidant", -1, "Aidant :  ", 0, 0, 43, {240, 120, 630, 195}}},
    {&member<&Screen::Etq_CodeAidant>, Where::Surface, {"Etq_CodeAidant", -1, "", 0, 0, 44, {960, 120, 495, 255}}},
    {&member<&Screen::Etq_NomPrenomAidant>, Where::Surface, {"Etq_NomPrenomAidant", -1, "", 0, 0, 45, {1560, 120, 4215, 255}}},
    {&member<&Screen::Cmd_OK>, Where::Surface, {"Cmd_OK", -1, "OK", 'O', 0, 25, {7560, 6120, 855, 375}}},
    {&member<&Screen::Cmd_Retour>, Where::Surface, {"Cmd_Retour", -1, "Retour", 'R', 0, 26, {8565, 6120, 855, 375}}},
    {&member<&Screen::Ong_Vorandine>, Where::Surface, {"Ong_Vorandine", -1, "", 0, 0, 27, {120, 480, 9555, 5535}}},
    // Tab 0: studies.
    {&member<&Screen::Cdr_Etudes>, Where::Tab0, {"Cdr_Etudes", -1, "Etudes", 0, 0, 29, {120, 480, 9135, 1575}}},
    {&member<&Screen::Opt_Diplome>, Where::InEtudes, {"Opt_Diplome", -1, "Diplôme", 'D', 0, 0, {840, 240, 975, 252}}},
    {&member<&Screen::Opt_Niveau>, Where::InEtudes, {"Opt_Niveau", -1, "Niveau", 'V', 0, 1, {2400, 240, 975, 252}}},
    {&member<&Screen::Cbo_EtudeAidant>, Where::InEtudes, {"Cbo_EtudeAidant", -1, "", 0, 0, 2, {120, 600, 8895, 315}}},
    {&member<&Screen::Etq_AnDipAidant>, Where::InEtudes, {"Etq_AnDipAidant", -1, "Année", 0, 0, 30, {120, 1080, 465, 195}}},
    {&member<&Screen::Txt_AnDipAidant>, Where::InEtudes, {"Txt_AnDipAidant", -1, "", 0, 0, 3, {720, 1080, 492, 288}}},
    {&member<&Screen::Etq_SpecialAidant>, Where::InEtudes, {"Etq_SpecialAidant", -1, "Spécialité", 0, 0, 31, {1680, 1080, 690, 195}}},
    {&member<&Screen::Txt_SpecialAidant>, Where::InEtudes, {"Txt_SpecialAidant", -1, "", 0, 0, 4, {2520, 1080, 6495, 288}}},
    // Tab 0: training lines. Each list runs on under its right neighbour, the last one under the bar.
    {&member<&Screen::Etq_DatFormAidant>, Where::Tab0, {"Etq_DatFormAidant", -1, "Date ", 0, 0, 42, {480, 2160, 390, 195}}},
    {&member<&Screen::Etq_CodFormAidant>, Where::Tab0, {"Etq_CodFormAidant", -1, "Libellé formation", 0, 0, 40, {2040, 2160, 1140, 195}}},
    {&member<&Screen::Etq_HhFormAidant>, Where::Tab0, {"Etq_HhFormAidant", -1, "Heures", 0, 0, 39, {4680, 2160, 510, 195}}},
    {&member<&Screen::Etq_ObsFormAidant>, Where::Tab0, {"Etq_ObsFormAidant", -1, "Observations", 0, 0, 38, {6240, 2160, 930, 195}}},
    {&member<&Screen::Etq_DifFormAidant>, Where::Tab0, {"Etq_DifFormAidant", -1, "D.I.F.", 0, 0, 57, {8520, 2160, 390, 195}}},
    {&member<&Screen::Lst_DatFormAidant>, Where::Tab0, {"Lst_DatFormAidant", -1, "", 0, FixedPitch, 36, {120, 2400, 1575, 1950}}},
    {&member<&Screen::Lst_CodFormAidant>, Where::Tab0, {"Lst_CodFormAidant", -1, "", 0, FixedPitch, 35, {1320, 2400, 3615, 1950}}},
    {&member<&Screen::Lst_HhFormAidant>, Where::Tab0, {"Lst_HhFormAidant", -1, "", 0, FixedPitch, 34, {4560, 2400, 1455, 1950}}},
    {&member<&Screen::Lst_ObsFormAidant>, Where::Tab0, {"Lst_ObsFormAidant", -1, "", 0, FixedPitch, 32, {5400, 2400, 3495, 1950}}},
    {&member<&Screen::Lst_DifFormAidant>, Where::Tab0, {"Lst_DifFormAidant", -1, "", 0, FixedPitch, 56, {8520, 2400, 855, 1950}}},
    {&member<&Screen::Lst_CodeForm>, Where::Tab0, {"Lst_CodeForm", -1, "", 0, Hidden, 85, {4080, 2280, 375, 1230}}},
    {&member<&Screen::Bdv_FormAidant>, Where::Tab0, {"Bdv_FormAidant", -1, "", 0, 0, 28, {9120, 2400, 255, 1950}}},
    {&member<&Screen::Txt_DatFormAidant>, Where::Tab0, {"Txt_DatFormAidant", -1, "", 0, Disabled | FixedPitch, 5, {120, 4440, 1215, 330}}},
    {&member<&Screen::Cbo_CodFormAidant>, Where::Tab0, {"Cbo_CodFormAidant", -1, "", 0, Disabled | FixedPitch | Sorted, 6, {1320, 4440, 3255, 330}}},
    {&member<&Screen::Txt_HhFormAidant>, Where::Tab0, {"Txt_HhFormAidant", -1, "", 0, Disabled | FixedPitch, 7, {4560, 4440, 855, 330}}},
    {&member<&Screen::Txt_ObsFormAidant>, Where::Tab0, {"Txt_ObsFormAidant", -1, "", 0, Disabled | FixedPitch, 8, {5400, 4440, 3135, 330}}},
    {&member<&Screen::Cbo_DifFormAidant>, Where::Tab0, {"Cbo_DifFormAidant", -1, "", 0, DropDownList, 9, {8520, 4440, 855, 315}}},
    {&member<&Screen::Cmd_AjouterForm>, Where::Tab0, {"Cmd_AjouterForm", -1, "Ajouter", 'A', 0, 10, {120, 4920, 852, 375}}},
    {&member<&Screen::Cmd_SupprimerForm>, Where::Tab0, {"Cmd_SupprimerForm", -1, "Supprimer", 'S', Disabled, 11, {1200, 4920, 855, 375}}},
    {&member<&Screen::Cmd_AjouterFormation>, Where::Tab0, {"Cmd_AjouterFormation", -1, "Ajouter FORMATION", 'F', Disabled, 12, {5400, 4920, 1695, 375}}},
    {&member<&Screen::Cmd_OKForm>, Where::Tab0, {"Cmd_OKForm", -1, "OK", 'K', Disabled, 13, {7320, 4920, 855, 375}}},
    {&member<&Screen::Cmd_AnnulerForm>, Where::Tab0, {"Cmd_AnnulerForm", -1, "Annuler", 'N', Disabled, 14, {8400, 4920, 855, 375}}},
    {&member<&Screen::Etq_MessageForm>, Where::Tab0, {"Etq_MessageForm", -1, "", 0, Notice, 89, {120, 5310, 9135, 195}}},
    // Tab 1. The lists of codes stand behind the lists of labels.
    {&member<&Screen::Cdr_Experience>, Where::Tab1, {"Cdr_Experience", -1, "Expériences", 0, 0, 33, {240, 480, 9015, 2175}}},
    {&element<0>, Where::InExperience, {"Txt_ExpProfAidant", 0, "", 0, 0, 15, {120, 360, 8655, 285}}},
    {&element<1>, Where::InExperience, {"Txt_ExpProfAidant", 1, "", 0, 0, 16, {120, 600, 8655, 285}}},
    {&element<2>, Where::InExperience, {"Txt_ExpProfAidant", 2, "", 0, 0, 17, {120, 840, 8655, 285}}},
    {&element<3>, Where::InExperience, {"Txt_ExpProfAidant", 3, "", 0, 0, 18, {120, 1080, 8655, 285}}},
    {&element<4>, Where::InExperience, {"Txt_ExpProfAidant", 4, "", 0, 0, 19, {120, 1320, 8655, 285}}},
    {&element<5>, Where::InExperience, {"Txt_ExpProfAidant", 5, "", 0, 0, 20, {120, 1560, 8655, 285}}},
    {&element<6>, Where::InExperience, {"Txt_ExpProfAidant", 6, "", 0, 0, 21, {120, 1800, 8655, 285}}},
    {&member<&Screen::Etq_SectPossibles>, Where::Tab1, {"Etq_SectPossibles", -1, "Activités possibles", 0, 0, 52, {1440, 2760, 1290, 195}}},
    {&member<&Screen::Lst_CodSectPossibles>, Where::Tab1, {"Lst_CodSectPossibles", -1, "", 0, 0, 55, {2760, 3000, 975, 1425}}},
    {&member<&Screen::Lst_SectPossibles>, Where::Tab1, {"Lst_SectPossibles", -1, "", 0, MultiSelect, 48, {360, 3000, 3855, 1425}}},
    {&member<&Screen::Cmd_Tous>, Where::Tab1, {"Cmd_Tous", -1, "Tous", 'T', 0, 49, {4560, 2880, 735, 375}}},
    {&member<&Screen::Cmd_SelectSect>, Where::Tab1, {"Cmd_SelectSect", -1, "------>", 'C', 0, 50, {4560, 3480, 735, 375}}},
    {&member<&Screen::Cmd_SuppSect>, Where::Tab1, {"Cmd_SuppSect", -1, "<------", 'E', 0, 51, {4560, 4080, 735, 375}}},
    {&member<&Screen::Etq_SectSelect>, Where::Tab1, {"Etq_SectSelect", -1, "Activités sélectionnées", 0, 0, 53, {6360, 2760, 1620, 195}}},
    {&member<&Screen::Lst_CodSectSelect>, Where::Tab1, {"Lst_CodSectSelect", -1, "", 0, 0, 54, {7320, 3000, 1095, 1425}}},
    {&member<&Screen::Lst_SectSelect>, Where::Tab1, {"Lst_SectSelect", -1, "", 0, MultiSelect, 47, {5520, 3000, 3615, 1425}}},
    {&member<&Screen::Etq_Qualif>, Where::Tab1, {"Etq_Qualif", -1, "Qualification professionnelle", 0, 0, 86, {360, 4560, 1965, 195}}},
    {&member<&Screen::Cbo_Qualif>, Where::Tab1, {"Cbo_Qualif", -1, "", 0, Sorted, 87, {2520, 4560, 6495, 315}}},
    {&member<&Screen::Etq_DatSaisieAidant>, Where::Tab1, {"Etq_DatSaisieAidant", -1, "Date saisie", 0, 0, 37, {360, 5040, 780, 195}}},
    {&member<&Screen::Txt_DatSaisieAidant>, Where::Tab1, {"Txt_DatSaisieAidant", -1, "", 0, 0, 22, {1320, 5040, 1095, 285}}},
    {&member<&Screen::Etq_DatDispoAidant>, Where::Tab1, {"Etq_DatDispoAidant", -1, "Date début disponibilité", 0, 0, 41, {2880, 5040, 1650, 195}}},
    {&member<&Screen::Txt_DatDispoAidant>, Where::Tab1, {"Txt_DatDispoAidant", -1, "", 0, 0, 23, {4680, 5040, 1095, 288}}},
    {&member<&Screen::Etq_DatFinDispoAidant>, Where::Tab1, {"Etq_DatFinDispoAidant", -1, "Date fin disponibilité", 0, 0, 46, {6240, 5040, 1410, 195}}},
    {&member<&Screen::Txt_DatFinDispoAidant>, Where::Tab1, {"Txt_DatFinDispoAidant", -1, "", 0, 0, 24, {7800, 5040, 1095, 288}}},
    // Tab 2: employers.
    {&member<&Screen::Label1>, Where::Tab2, {"Label1", -1, "Employeur", 0, 0, 81, {1680, 720, 735, 195}}},
    {&member<&Screen::Label2>, Where::Tab2, {"Label2", -1, "Fin contrat", 0, 0, 80, {4320, 720, 750, 195}}},
    {&member<&Screen::Label3>, Where::Tab2, {"Label3", -1, "Droits en heures de formation", 0, 0, 79, {6240, 480, 2070, 195}}},
    {&member<&Screen::Label4>, Where::Tab2, {"Label4", -1, "Acquis", 0, 0, 78, {5760, 720, 480, 195}}},
    {&member<&Screen::Label5>, Where::Tab2, {"Label5", -1, "Consommés", 0, 0, 77, {6840, 720, 855, 195}}},
    {&member<&Screen::Label6>, Where::Tab2, {"Label6", -1, "Restants", 0, 0, 76, {8160, 720, 630, 195}}},
    {&member<&Screen::Lst_DifEmpl>, Where::Tab2, {"Lst_DifEmpl", -1, "", 0, FixedPitch, 58, {360, 960, 8775, 1320}}},
    {&member<&Screen::Lst_CodeEmplDif>, Where::Tab2, {"Lst_CodeEmplDif", -1, "", 0, Hidden, 82, {2880, 960, 375, 1035}}},
    {&member<&Screen::Lst_ContratDif>, Where::Tab2, {"Lst_ContratDif", -1, "", 0, Hidden, 84, {3720, 960, 255, 1035}}},
    // Tab 2: detail of one employer.
    {&member<&Screen::Cdr_DetailDif>, Where::Tab2, {"Cdr_DetailDif", -1, "Détail ", 0, Disabled, 59, {240, 2400, 9015, 3015}}},
    {&member<&Screen::Label7>, Where::InDetail, {"Label7", -1, "Date", 0, 0, 75, {480, 240, 345, 195}}},
    {&member<&Screen::Label8>, Where::InDetail, {"Label8", -1, "Droits", 0, 0, 74, {1440, 240, 405, 195}}},
    {&member<&Screen::Label9>, Where::InDetail, {"Label9", -1, "Formation", 0, 0, 73, {3840, 240, 690, 195}}},
    {&member<&Screen::Label10>, Where::InDetail, {"Label10", -1, "Heures", 0, 0, 72, {7080, 240, 510, 195}}},
    {&member<&Screen::Label11>, Where::InDetail, {"Label11", -1, "Solde", 0, 0, 71, {8040, 240, 405, 195}}},
    {&member<&Screen::Lst_DetailDif>, Where::InDetail, {"Lst_DetailDif", -1, "", 0, Disabled | FixedPitch, 70, {120, 480, 8775, 1530}}},
    {&member<&Screen::Lst_CodeFormDif>, Where::InDetail, {"Lst_CodeFormDif", -1, "", 0, Hidden, 83, {4920, 600, 255, 1035}}},
    {&member<&Screen::Txt_DateDif>, Where::InDetail, {"Txt_DateDif", -1, "", 0, Disabled, 62, {120, 2160, 1215, 285}}},
    {&member<&Screen::Txt_DroitDif>, Where::InDetail, {"Txt_DroitDif", -1, "", 0, Disabled, 63, {1320, 2160, 975, 285}}},
    {&member<&Screen::Txt_FormDif>, Where::InDetail, {"Txt_FormDif", -1, "", 0, Disabled, 69, {2280, 2160, 4575, 285}}},
    {&member<&Screen::Txt_HreDif>, Where::InDetail, {"Txt_HreDif", -1, "", 0, Disabled, 68, {6840, 2160, 975, 285}}},
    {&member<&Screen::Txt_SoldeDif>, Where::InDetail, {"Txt_SoldeDif", -1, "", 0, Disabled, 67, {7800, 2160, 1095, 285}}},
    {&member<&Screen::Cmd_AjoutDif>, Where::InDetail, {"Cmd_AjoutDif", -1, "Ajouter", 'A', Disabled, 61, {120, 2520, 855, 375}}},
    {&member<&Screen::Cmd_SupprDif>, Where::InDetail, {"Cmd_SupprDif", -1, "Supprimer", 'S', Disabled, 60, {1080, 2520, 855, 375}}},
    {&member<&Screen::Cmd_CalculDif>, Where::InDetail, {"Cmd_CalculDif", -1, "Calcul rémunération nette de référence", 'C', Disabled, 65, {3000, 2520, 3015, 375}}},
    {&member<&Screen::Cmd_OkDif>, Where::InDetail, {"Cmd_OkDif", -1, "Ok", 'K', Disabled, 64, {7080, 2520, 855, 375}}},
    {&member<&Screen::Cmd_AnnuleDif>, Where::InDetail, {"Cmd_AnnuleDif", -1, "Annuler", 'N', Disabled, 66, {8040, 2520, 855, 375}}},
    {&member<&Screen::Etq_MessageDif>, Where::InDetail, {"Etq_MessageDif", -1, "", 0, Notice, 88, {780, 0, 8115, 195}}},
};
// clang-format on

// Where a column of a list is shown, in twips from the list's left edge.
struct Stretch {
    int left;
    int right;
    bool figure = false;
};

// Under the heads, and clear of the bar that a long list has at its right.
constexpr std::array<Stretch, 5> SummaryStretches{
    {{60, 3750}, {3800, 4790}, {4850, 5940, true}, {6110, 7200, true}, {7325, 8415, true}}};
// Under the heads, and each above the field in which it is typed.
constexpr std::array<Stretch, 5> DetailStretches{
    {{60, 1080}, {1080, 2070, true}, {2220, 5760}, {6360, 7380, true}, {7460, 8450, true}}};

std::vector<widgets::ListColumn> columns(const std::array<dif::Piece, 5>& pieces,
                                         const std::array<Stretch, 5>& stretches) {
    std::vector<widgets::ListColumn> columns;
    for (std::size_t i = 0; i < pieces.size(); ++i)
        columns.push_back({pieces[i].column, pieces[i].width, stretches[i].left, stretches[i].right,
                           stretches[i].figure});
    return columns;
}

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

} // namespace

std::span<const Row> Inventory() {
    return Rows;
}

Screen::Screen(widgets::UserControl& surface) {
    Ong_Vorandine.tabs({"Formations", "Expériences et Activités possibles", "D.I.F."});
    for (const Row& row : Rows) {
        Control& made = row.member(*this);
        widgets::make(made, row.made);
        container(*this, surface, row.where).add(made, page(row.where));
        controls.push_back(&made);
    }
    Opt_Diplome.Value(true);
    Txt_AnDipAidant.MaxLength(4);
    Cbo_DifFormAidant.AddItem("OUI");
    Cbo_DifFormAidant.AddItem("NON");
    Lst_DifEmpl.columns(columns(dif::SummaryLine::Columns, SummaryStretches));
    Lst_DetailDif.columns(columns(dif::DetailLine::Columns, DetailStretches));
    Cmd_SelectSect.hint("Choisir les activités sélectionnées");
    Cmd_SuppSect.hint("Enlever les activités sélectionnées");
    // Where Escape looks for a button to press.
    Cmd_AnnulerForm.cancelRank(1);
    Cmd_AnnuleDif.cancelRank(2);
    Cmd_Retour.cancelRank(4);
    Mnu_Aide.entries().push_back(&Mnu_Sommaire);
}

} // namespace vorandine::control
