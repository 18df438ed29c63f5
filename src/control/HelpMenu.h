// The help menu: one right click away on the surfaces that have it, and what its entry does.
#pragma once

#include "control/Screen.h"
#include "ports/Help.h"
#include "ports/Variables.h"
#include "widgets/World.h"

namespace vorandine::control {

class HelpMenu {
  public:
    // All must outlive this object. Takes over MouseDown of `surface`, of the tab container and of
    // the frames of studies and experience, and Click of the menu's entry.
    HelpMenu(widgets::UserControl& surface, Screen& screen, const ports::Variables& variables,
             ports::HelpObject& help, widgets::World& world);
    HelpMenu(const HelpMenu&) = delete;
    HelpMenu& operator=(const HelpMenu&) = delete;
    ~HelpMenu() = default;

  private:
    Screen& screen_;
    const ports::Variables& variables_;
    ports::HelpObject& help_;
    widgets::World& world_;

    void pressed(const widgets::MouseEvent& event);
    void Mnu_Sommaire_Click();
};

} // namespace vorandine::control
