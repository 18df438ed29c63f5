// Running a modal form from a control: what goes wrong in it is the affair of the control's host.
#pragma once

#include "widgets/Form.h"
#include "widgets/World.h"

namespace vorandine::rules {

// Returns when the form has been unloaded.
inline void runModal(widgets::Form& form, widgets::UserControl& control, widgets::World& world) {
    if (const widgets::Form* const host = control.form())
        form.Failed = host->Failed;
    world.runModal(form);
}

} // namespace vorandine::rules
