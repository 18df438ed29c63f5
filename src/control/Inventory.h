// The screen inventory: one row for each control, as data. The screen is made from it; tests and
// front ends read it.
#pragma once

#include "control/Screen.h"

#include <span>

namespace vorandine::control {

// What a control stands in: the control's own surface, a tab, or a frame on a tab.
enum class Where { Surface, Tab0, Tab1, Tab2, InEtudes, InExperience, InDetail };

enum Trait : unsigned {
    Disabled = 1,
    Hidden = 2,
    FixedPitch = 4, // Courier New
    Sorted = 8,
    DropDownList = 16,
    MultiSelect = 32,
};

struct Row {
    widgets::Control& (*member)(Screen&); // the member that the row makes
    const char* name;
    int index; // in a control array, else -1
    Where where;
    const char* caption; // without the mark of the mnemonic
    char mnemonic;       // 0: none
    unsigned traits;     // at start; none: enabled, visible
    int order;           // tab index
    widgets::Place place;
};

// Rows further down stand above (nearer to the user) where places overlap.
[[nodiscard]] std::span<const Row> Inventory();

} // namespace vorandine::control
