// The same menu on four surfaces.
#include "control/HelpMenu.h"

#include <initializer_list>

namespace vorandine::control {
namespace {

constexpr int RightButton = 2;

} // namespace

HelpMenu::HelpMenu(widgets::UserControl& surface, Screen& screen, const ports::Variables& variables,
                   ports::HelpObject& help, widgets::World& world)
    : screen_(screen), variables_(variables), help_(help), world_(world) {
    for (widgets::Control* const each : std::initializer_list<widgets::Control*>{
             &surface, &screen.Ong_Vorandine, &screen.Cdr_Etudes, &screen.Cdr_Experience})
        each->MouseDown = [this](const widgets::MouseEvent& event) { pressed(event); };
    screen.Mnu_Sommaire.Click = [this] { Mnu_Sommaire_Click(); };
}

void HelpMenu::pressed(const widgets::MouseEvent& event) {
    if (event.button != RightButton)
        return;
    screen_.Mnu_Aide.Visible(true);
    screen_.Mnu_Sommaire.Visible(true);
    world_.popupMenu(screen_.Mnu_Aide);
}

void HelpMenu::Mnu_Sommaire_Click() {
    help_.TheClient(variables_.TheClient);
    help_.TheDatabase(variables_.TheDatabase);
    help_.Afficher_Aide("FormationVorandine.htm", "S", "Formations et expériences", "");
}

} // namespace vorandine::control
