// Where the controls of a form come to stand in a grid of characters. Twips are not scaled: rows
// and columns keep the order of the form and are as wide as what stands in them needs.
#pragma once

#include "widgets/Form.h"

#include <vector>

namespace vorandine::headless {

// Columns and rows from 0; right and bottom lie outside.
struct Cells {
    int left = 0;
    int top = 0;
    int right = 0;
    int bottom = 0;
};

struct Placed {
    const widgets::Control* control = nullptr;
    Cells cells;
    bool enabled = true;      // it and all that it stands in
    bool cut = false;         // a neighbour stands over its right end
    std::vector<int> columns; // of a list that has them: where each begins and ends, in pairs
};

struct Layout {
    std::vector<Placed> controls; // in the order to paint them
    int columns = 0;
    int rows = 0;
};

// All controls of `form` that can be seen: visible, on a tab in front, not wholly covered. Takes at
// most `columns` columns if the texts leave room for that.
[[nodiscard]] Layout layOut(const widgets::Form& form, int columns);

// The characters that a field, a list line or a caption needs beside its text.
constexpr int FieldMargin = 2;  // [text]
constexpr int ComboMargin = 4;  // [text v]
constexpr int ButtonMargin = 4; // < text >
constexpr int OptionMargin = 4; // (•) text
constexpr int ListMargin = 3;   // a bar on each side, the mark of the selection

} // namespace vorandine::headless
