// A form as text, for terminals, logs and whoever works without a window.
#pragma once

#include "widgets/Form.h"

#include <string>

namespace vorandine::headless {

// What a user sees of `form`, in lines that each end with a line end, as a rule below 120
// characters wide:
//   [ tab in front ]  other tab  ( closed tab )      [text....]     (disabled text)
//   < button >        ( disabled button )            [choice   v]   (disabled choice v)
//   (•) option        ( ) other option               │>selected line│
// Sides of lists and frames are dotted where disabled. A list that is too long shows the lines
// around the current one and how many more there are (↑ 3, ↓ 12).
[[nodiscard]] std::string render(const widgets::Form& form);

} // namespace vorandine::headless
