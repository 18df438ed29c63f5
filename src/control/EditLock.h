// The lock on the screen while a training line is open: all controls walked, each enabled or
// disabled by its name.
#pragma once

#include "control/Screen.h"
#include "trainings/TypingRow.h"

namespace vorandine::control {

class EditLock : public trainings::ScreenLock {
  public:
    explicit EditLock(Screen& screen) : screen_(screen) {}

    void Masquer() override;
    void Afficher() override;
    void openOtherTabs(bool open) override;

  private:
    Screen& screen_;
};

} // namespace vorandine::control
