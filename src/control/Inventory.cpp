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
    {&member<&Screen::Etq_Aidant>, Where::Surface, {.name = "Etq_Aidant", .caption = "Aidant :  ", .order = 43, .place = {240, 120, 630, 195}}},
    {&member<&Screen::Etq_CodeAidant>, Where::Surface, {.name = "Etq_CodeAidant", .order = 44, .place = {960, 120, 495, 255}}},
    {&member<&Screen::Etq_NomPrenomAidant>, Where::Surface, {.name = "Etq_NomPrenomAidant", .order = 45, .place = {1560, 120, 4215, 255}}},
    {&member<&Screen::Cmd_OK>, Where::Surface, {.name = "Cmd_OK", .caption = "OK", .mnemonic = 'O', .order = 25, .place = {7560, 6120, 855, 375}}},
    {&member<&Screen::Cmd_Retour>, Where::Surface, {.name = "Cmd_Retour", .caption = "Retour", .mnemonic = 'R', .order = 26, .place = {8565, 6120, 855, 375}}},
    {&member<&Screen::Ong_Vorandine>, Where::Surface, {.name = "Ong_Vorandine", .order = 27, .place = {120, 480, 9555, 5535}}},
    // Tab 0: studies.
    {&member<&Screen::Cdr_Etudes>, Where::Tab0, {.name = "Cdr_Etudes", .caption = "Etudes", .order = 29, .place = {120, 480, 9135, 1575}}},
    {&member<&Screen::Opt_Diplome>, Where::InEtudes, {.name = "Opt_Diplome", .caption = "Diplôme", .mnemonic = 'D', .order = 0, .place = {840, 240, 975, 252}}},
    {&member<&Screen::Opt_Niveau>, Where::InEtudes, {.name = "Opt_Niveau", .caption = "Niveau", .mnemonic = 'V', .order = 1, .place = {2400, 240, 975, 252}}},
    {&member<&Screen::Cbo_EtudeAidant>, Where::InEtudes, {.name = "Cbo_EtudeAidant", .order = 2, .place = {120, 600, 8895, 315}}},
    {&member<&Screen::Etq_AnDipAidant>, Where::InEtudes, {.name = "Etq_AnDipAidant", .caption = "Année", .order = 30, .place = {120, 1080, 465, 195}}},
    {&member<&Screen::Txt_AnDipAidant>, Where::InEtudes, {.name = "Txt_AnDipAidant", .order = 3, .place = {720, 1080, 492, 288}}},
    {&member<&Screen::Etq_SpecialAidant>, Where::InEtudes, {.name = "Etq_SpecialAidant", .caption = "Spécialité", .order = 31, .place = {1680, 1080, 690, 195}}},
    {&member<&Screen::Txt_SpecialAidant>, Where::InEtudes, {.name = "Txt_SpecialAidant", .order = 4, .place = {2520, 1080, 6495, 288}}},
    // Tab 0: training lines. Each list runs on under its right neighbour, the last one under the bar.
    {&member<&Screen::Etq_DatFormAidant>, Where::Tab0, {.name = "Etq_DatFormAidant", .caption = "Date ", .order = 42, .place = {480, 2160, 390, 195}}},
    {&member<&Screen::Etq_CodFormAidant>, Where::Tab0, {.name = "Etq_CodFormAidant", .caption = "Libellé formation", .order = 40, .place = {2040, 2160, 1140, 195}}},
    {&member<&Screen::Etq_HhFormAidant>, Where::Tab0, {.name = "Etq_HhFormAidant", .caption = "Heures", .order = 39, .place = {4680, 2160, 510, 195}}},
    {&member<&Screen::Etq_ObsFormAidant>, Where::Tab0, {.name = "Etq_ObsFormAidant", .caption = "Observations", .order = 38, .place = {6240, 2160, 930, 195}}},
    {&member<&Screen::Etq_DifFormAidant>, Where::Tab0, {.name = "Etq_DifFormAidant", .caption = "D.I.F.", .order = 57, .place = {8520, 2160, 390, 195}}},
    {&member<&Screen::Lst_DatFormAidant>, Where::Tab0, {.name = "Lst_DatFormAidant", .traits = FixedPitch, .order = 36, .place = {120, 2400, 1575, 1950}}},
    {&member<&Screen::Lst_CodFormAidant>, Where::Tab0, {.name = "Lst_CodFormAidant", .traits = FixedPitch, .order = 35, .place = {1320, 2400, 3615, 1950}}},
    {&member<&Screen::Lst_HhFormAidant>, Where::Tab0, {.name = "Lst_HhFormAidant", .traits = FixedPitch, .order = 34, .place = {4560, 2400, 1455, 1950}}},
    {&member<&Screen::Lst_ObsFormAidant>, Where::Tab0, {.name = "Lst_ObsFormAidant", .traits = FixedPitch, .order = 32, .place = {5400, 2400, 3495, 1950}}},
    {&member<&Screen::Lst_DifFormAidant>, Where::Tab0, {.name = "Lst_DifFormAidant", .traits = FixedPitch, .order = 56, .place = {8520, 2400, 855, 1950}}},
    {&member<&Screen::Lst_CodeForm>, Where::Tab0, {.name = "Lst_CodeForm", .traits = Hidden, .order = 85, .place = {4080, 2280, 375, 1230}}},
    {&member<&Screen::Bdv_FormAidant>, Where::Tab0, {.name = "Bdv_FormAidant", .order = 28, .place = {9120, 2400, 255, 1950}}},
    {&member<&Screen::Txt_DatFormAidant>, Where::Tab0, {.name = "Txt_DatFormAidant", .traits = Disabled | FixedPitch, .order = 5, .place = {120, 4440, 1215, 330}}},
    {&member<&Screen::Cbo_CodFormAidant>, Where::Tab0, {.name = "Cbo_CodFormAidant", .traits = Disabled | FixedPitch | Sorted, .order = 6, .place = {1320, 4440, 3255, 330}}},
    {&member<&Screen::Txt_HhFormAidant>, Where::Tab0, {.name = "Txt_HhFormAidant", .traits = Disabled | FixedPitch, .order = 7, .place = {4560, 4440, 855, 330}}},
    {&member<&Screen::Txt_ObsFormAidant>, Where::Tab0, {.name = "Txt_ObsFormAidant", .traits = Disabled | FixedPitch, .order = 8, .place = {5400, 4440, 3135, 330}}},
    {&member<&Screen::Cbo_DifFormAidant>, Where::Tab0, {.name = "Cbo_DifFormAidant", .traits = DropDownList, .order = 9, .place = {8520, 4440, 855, 315}}},
    {&member<&Screen::Cmd_AjouterForm>, Where::Tab0, {.name = "Cmd_AjouterForm", .caption = "Ajouter", .mnemonic = 'A', .order = 10, .place = {120, 4920, 852, 375}}},
    {&member<&Screen::Cmd_SupprimerForm>, Where::Tab0, {.name = "Cmd_SupprimerForm", .caption = "Supprimer", .mnemonic = 'S', .traits = Disabled, .order = 11, .place = {1200, 4920, 855, 375}}},
    {&member<&Screen::Cmd_AjouterFormation>, Where::Tab0, {.name = "Cmd_AjouterFormation", .caption = "Ajouter FORMATION", .mnemonic = 'F', .traits = Disabled, .order = 12, .place = {5400, 4920, 1695, 375}}},
    {&member<&Screen::Cmd_OKForm>, Where::Tab0, {.name = "Cmd_OKForm", .caption = "OK", .mnemonic = 'K', .traits = Disabled, .order = 13, .place = {7320, 4920, 855, 375}}},
    {&member<&Screen::Cmd_AnnulerForm>, Where::Tab0, {.name = "Cmd_AnnulerForm", .caption = "Annuler", .mnemonic = 'N', .traits = Disabled, .order = 14, .place = {8400, 4920, 855, 375}}},
    {&member<&Screen::Etq_MessageForm>, Where::Tab0, {.name = "Etq_MessageForm", .traits = Noticed, .order = 89, .place = {120, 5310, 9135, 195}}},
    // Tab 1. The lists of codes stand behind the lists of labels.
    {&member<&Screen::Cdr_Experience>, Where::Tab1, {.name = "Cdr_Experience", .caption = "Expériences", .order = 33, .place = {240, 480, 9015, 2175}}},
    {&element<0>, Where::InExperience, {.name = "Txt_ExpProfAidant", .index = 0, .order = 15, .place = {120, 360, 8655, 285}}},
    {&element<1>, Where::InExperience, {.name = "Txt_ExpProfAidant", .index = 1, .order = 16, .place = {120, 600, 8655, 285}}},
    {&element<2>, Where::InExperience, {.name = "Txt_ExpProfAidant", .index = 2, .order = 17, .place = {120, 840, 8655, 285}}},
    {&element<3>, Where::InExperience, {.name = "Txt_ExpProfAidant", .index = 3, .order = 18, .place = {120, 1080, 8655, 285}}},
    {&element<4>, Where::InExperience, {.name = "Txt_ExpProfAidant", .index = 4, .order = 19, .place = {120, 1320, 8655, 285}}},
    {&element<5>, Where::InExperience, {.name = "Txt_ExpProfAidant", .index = 5, .order = 20, .place = {120, 1560, 8655, 285}}},
    {&element<6>, Where::InExperience, {.name = "Txt_ExpProfAidant", .index = 6, .order = 21, .place = {120, 1800, 8655, 285}}},
    {&member<&Screen::Etq_SectPossibles>, Where::Tab1, {.name = "Etq_SectPossibles", .caption = "Activités possibles", .order = 52, .place = {1440, 2760, 1290, 195}}},
    {&member<&Screen::Lst_CodSectPossibles>, Where::Tab1, {.name = "Lst_CodSectPossibles", .order = 55, .place = {2760, 3000, 975, 1425}}},
    {&member<&Screen::Lst_SectPossibles>, Where::Tab1, {.name = "Lst_SectPossibles", .traits = MultiSelect, .order = 48, .place = {360, 3000, 3855, 1425}}},
    {&member<&Screen::Cmd_Tous>, Where::Tab1, {.name = "Cmd_Tous", .caption = "Tous", .mnemonic = 'T', .order = 49, .place = {4560, 2880, 735, 375}}},
    {&member<&Screen::Cmd_SelectSect>, Where::Tab1, {.name = "Cmd_SelectSect", .caption = "------>", .mnemonic = 'C', .order = 50, .place = {4560, 3480, 735, 375}}},
    {&member<&Screen::Cmd_SuppSect>, Where::Tab1, {.name = "Cmd_SuppSect", .caption = "<------", .mnemonic = 'E', .order = 51, .place = {4560, 4080, 735, 375}}},
    {&member<&Screen::Etq_SectSelect>, Where::Tab1, {.name = "Etq_SectSelect", .caption = "Activités sélectionnées", .order = 53, .place = {6360, 2760, 1620, 195}}},
    {&member<&Screen::Lst_CodSectSelect>, Where::Tab1, {.name = "Lst_CodSectSelect", .order = 54, .place = {7320, 3000, 1095, 1425}}},
    {&member<&Screen::Lst_SectSelect>, Where::Tab1, {.name = "Lst_SectSelect", .traits = MultiSelect, .order = 47, .place = {5520, 3000, 3615, 1425}}},
    {&member<&Screen::Etq_Qualif>, Where::Tab1, {.name = "Etq_Qualif", .caption = "Qualification professionnelle", .order = 86, .place = {360, 4560, 1965, 195}}},
    {&member<&Screen::Cbo_Qualif>, Where::Tab1, {.name = "Cbo_Qualif", .traits = Sorted, .order = 87, .place = {2520, 4560, 6495, 315}}},
    {&member<&Screen::Etq_DatSaisieAidant>, Where::Tab1, {.name = "Etq_DatSaisieAidant", .caption = "Date saisie", .order = 37, .place = {360, 5040, 780, 195}}},
    {&member<&Screen::Txt_DatSaisieAidant>, Where::Tab1, {.name = "Txt_DatSaisieAidant", .order = 22, .place = {1320, 5040, 1095, 285}}},
    {&member<&Screen::Etq_DatDispoAidant>, Where::Tab1, {.name = "Etq_DatDispoAidant", .caption = "Date début disponibilité", .order = 41, .place = {2880, 5040, 1650, 195}}},
    {&member<&Screen::Txt_DatDispoAidant>, Where::Tab1, {.name = "Txt_DatDispoAidant", .order = 23, .place = {4680, 5040, 1095, 288}}},
    {&member<&Screen::Etq_DatFinDispoAidant>, Where::Tab1, {.name = "Etq_DatFinDispoAidant", .caption = "Date fin disponibilité", .order = 46, .place = {6240, 5040, 1410, 195}}},
    {&member<&Screen::Txt_DatFinDispoAidant>, Where::Tab1, {.name = "Txt_DatFinDispoAidant", .order = 24, .place = {7800, 5040, 1095, 288}}},
    // Tab 2: employers.
    {&member<&Screen::Label1>, Where::Tab2, {.name = "Label1", .caption = "Employeur", .order = 81, .place = {1680, 720, 735, 195}}},
    {&member<&Screen::Label2>, Where::Tab2, {.name = "Label2", .caption = "Fin contrat", .order = 80, .place = {4320, 720, 750, 195}}},
    {&member<&Screen::Label3>, Where::Tab2, {.name = "Label3", .caption = "Droits en heures de formation", .order = 79, .place = {6240, 480, 2070, 195}}},
    {&member<&Screen::Label4>, Where::Tab2, {.name = "Label4", .caption = "Acquis", .order = 78, .place = {5760, 720, 480, 195}}},
    {&member<&Screen::Label5>, Where::Tab2, {.name = "Label5", .caption = "Consommés", .order = 77, .place = {6840, 720, 855, 195}}},
    {&member<&Screen::Label6>, Where::Tab2, {.name = "Label6", .caption = "Restants", .order = 76, .place = {8160, 720, 630, 195}}},
    {&member<&Screen::Lst_DifEmpl>, Where::Tab2, {.name = "Lst_DifEmpl", .traits = FixedPitch, .order = 58, .place = {360, 960, 8775, 1320}}},
    {&member<&Screen::Lst_CodeEmplDif>, Where::Tab2, {.name = "Lst_CodeEmplDif", .traits = Hidden, .order = 82, .place = {2880, 960, 375, 1035}}},
    {&member<&Screen::Lst_ContratDif>, Where::Tab2, {.name = "Lst_ContratDif", .traits = Hidden, .order = 84, .place = {3720, 960, 255, 1035}}},
    // Tab 2: detail of one employer.
    {&member<&Screen::Cdr_DetailDif>, Where::Tab2, {.name = "Cdr_DetailDif", .caption = "Détail ", .traits = Disabled, .order = 59, .place = {240, 2400, 9015, 3015}}},
    {&member<&Screen::Label7>, Where::InDetail, {.name = "Label7", .caption = "Date", .order = 75, .place = {480, 240, 345, 195}}},
    {&member<&Screen::Label8>, Where::InDetail, {.name = "Label8", .caption = "Droits", .order = 74, .place = {1440, 240, 405, 195}}},
    {&member<&Screen::Label9>, Where::InDetail, {.name = "Label9", .caption = "Formation", .order = 73, .place = {3840, 240, 690, 195}}},
    {&member<&Screen::Label10>, Where::InDetail, {.name = "Label10", .caption = "Heures", .order = 72, .place = {7080, 240, 510, 195}}},
    {&member<&Screen::Label11>, Where::InDetail, {.name = "Label11", .caption = "Solde", .order = 71, .place = {8040, 240, 405, 195}}},
    {&member<&Screen::Lst_DetailDif>, Where::InDetail, {.name = "Lst_DetailDif", .traits = Disabled | FixedPitch, .order = 70, .place = {120, 480, 8775, 1530}}},
    {&member<&Screen::Lst_CodeFormDif>, Where::InDetail, {.name = "Lst_CodeFormDif", .traits = Hidden, .order = 83, .place = {4920, 600, 255, 1035}}},
    {&member<&Screen::Txt_DateDif>, Where::InDetail, {.name = "Txt_DateDif", .traits = Disabled, .order = 62, .place = {120, 2160, 1215, 285}}},
    {&member<&Screen::Txt_DroitDif>, Where::InDetail, {.name = "Txt_DroitDif", .traits = Disabled, .order = 63, .place = {1320, 2160, 975, 285}}},
    {&member<&Screen::Txt_FormDif>, Where::InDetail, {.name = "Txt_FormDif", .traits = Disabled, .order = 69, .place = {2280, 2160, 4575, 285}}},
    {&member<&Screen::Txt_HreDif>, Where::InDetail, {.name = "Txt_HreDif", .traits = Disabled, .order = 68, .place = {6840, 2160, 975, 285}}},
    {&member<&Screen::Txt_SoldeDif>, Where::InDetail, {.name = "Txt_SoldeDif", .traits = Disabled, .order = 67, .place = {7800, 2160, 1095, 285}}},
    {&member<&Screen::Cmd_AjoutDif>, Where::InDetail, {.name = "Cmd_AjoutDif", .caption = "Ajouter", .mnemonic = 'A', .traits = Disabled, .order = 61, .place = {120, 2520, 855, 375}}},
    {&member<&Screen::Cmd_SupprDif>, Where::InDetail, {.name = "Cmd_SupprDif", .caption = "Supprimer", .mnemonic = 'S', .traits = Disabled, .order = 60, .place = {1080, 2520, 855, 375}}},
    {&member<&Screen::Cmd_CalculDif>, Where::InDetail, {.name = "Cmd_CalculDif", .caption = "Calcul rémunération nette de référence", .mnemonic = 'C', .traits = Disabled, .order = 65, .place = {3000, 2520, 3015, 375}}},
    {&member<&Screen::Cmd_OkDif>, Where::InDetail, {.name = "Cmd_OkDif", .caption = "Ok", .mnemonic = 'K', .traits = Disabled, .order = 64, .place = {7080, 2520, 855, 375}}},
    {&member<&Screen::Cmd_AnnuleDif>, Where::InDetail, {.name = "Cmd_AnnuleDif", .caption = "Annuler", .mnemonic = 'N', .traits = Disabled, .order = 66, .place = {8040, 2520, 855, 375}}},
    {&member<&Screen::Etq_MessageDif>, Where::InDetail, {.name = "Etq_MessageDif", .traits = Noticed, .order = 88, .place = {780, 0, 8115, 195}}},
};
// clang-format on

// Where a column of a list is shown, in twips from the list's left edge.
struct Stretch {
    int left;
    int right;
    bool figure = false;
};

// Under the heads, and clear of the bar that a long list has at its right.
constexpr std::array<Stretch, 5> SummaryStretches{{{.left = 60, .right = 3750},
                                                   {.left = 3800, .right = 4790},
                                                   {.left = 4850, .right = 5940, .figure = true},
                                                   {.left = 6110, .right = 7200, .figure = true},
                                                   {.left = 7325, .right = 8415, .figure = true}}};
// Under the heads, and each above the field in which it is typed.
constexpr std::array<Stretch, 5> DetailStretches{{{.left = 60, .right = 1080},
                                                  {.left = 1080, .right = 2070, .figure = true},
                                                  {.left = 2220, .right = 5760},
                                                  {.left = 6360, .right = 7380, .figure = true},
                                                  {.left = 7460, .right = 8450, .figure = true}}};

std::vector<widgets::ListColumn> columns(const std::array<dif::Piece, 5>& pieces,
                                         const std::array<Stretch, 5>& stretches) {
    std::vector<widgets::ListColumn> columns;
    for (std::size_t i = 0; i < pieces.size(); ++i)
        columns.push_back({.first = pieces[i].column,
                           .length = pieces[i].width,
                           .left = stretches[i].left,
                           .right = stretches[i].right,
                           .figure = stretches[i].figure});
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
