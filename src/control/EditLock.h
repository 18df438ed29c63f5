// What is enabled on the screen while a training line is open, and while none is: each state is
// told whole, here and nowhere else. A D.I.F. line closes the ways out of its frame.
#pragma once

#include "control/Screen.h"
#include "dif/DetailArea.h"
#include "trainings/TypingRow.h"

namespace vorandine::control {

class EditLock : public trainings::ScreenLock, public dif::LineLock {
  public:
    explicit EditLock(Screen& screen) : screen_(screen) {}

    // Every control of the screen disabled but the typing row, the buttons that a new line has, and
    // the tabs.
    void Masquer();
    // Every control enabled but those that need an open line.
    void Afficher();

    void lineOpened(bool stored) override;
    void lineClosed() override;
    void openWaysOut(bool open) override;

  private:
    Screen& screen_;

    void enableAll(bool enabled);
    void enableTypingRow(bool enabled);
    void openOtherTabs(bool open);
};

} // namespace vorandine::control
