// Screens as data: one row for each control, told as it is before any code has run.
#pragma once

#include "widgets/Control.h"

#include <initializer_list>

namespace vorandine::widgets {

enum Trait : unsigned {
    Disabled = 1,
    Hidden = 2,
    FixedPitch = 4, // Courier New
    Sorted = 8,
    DropDownList = 16,
    MultiSelect = 32,
    Noticed = 64, // a label that must be noticed
};

// A row names the fields that it sets.
struct Row {
    const char* name = "";
    int index = -1;           // in a control array
    const char* caption = ""; // without the mark of the mnemonic
    char mnemonic = 0;        // 0: none
    unsigned traits = 0;      // at start; none: enabled, visible
    int order = 0;            // tab index
    Place place;
};

// Makes `control` what its row says. It stands nowhere yet.
void make(Control& control, const Row& row);

struct Made {
    Control& control;
    Row row;
};

// Makes each control and puts it on `surface`; where places overlap, later rows stand above
// earlier ones. For a form whose controls all stand on one surface.
void furnish(Container& surface, std::initializer_list<Made> controls);

} // namespace vorandine::widgets
