// The lock on the screen while a line is open. For a training line all controls are walked, each
// enabled or disabled by its name; a D.I.F. line closes the ways out of its tab.
#pragma once

#include "control/Screen.h"
#include "dif/DetailArea.h"
#include "trainings/TypingRow.h"

namespace vorandine::control {

class EditLock : public trainings::ScreenLock, public dif::LineLock {
  public:
    explicit EditLock(Screen& screen) : screen_(screen) {}

    void Masquer() override;
    void Afficher() override;
    void openOtherTabs(bool open) override;
    void openWaysOut(bool open) override;

  private:
    Screen& screen_;
};

} // namespace vorandine::control
