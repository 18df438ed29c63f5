// The screen inventory: one row for each control, as data. The screen is made from it; tests and
// front ends read it.
#pragma once

#include "control/Screen.h"
#include "widgets/Inventory.h"

#include <span>

namespace vorandine::control {

// What a control stands in: the control's own surface, a tab, or a frame on a tab.
enum class Where { Surface, Tab0, Tab1, Tab2, InEtudes, InExperience, InDetail };

struct Row {
    widgets::Control& (*member)(Screen&); // the member that the row makes
    Where where;
    widgets::Row made;
};

// Rows further down stand above (nearer to the user) where places overlap.
[[nodiscard]] std::span<const Row> Inventory();

} // namespace vorandine::control
