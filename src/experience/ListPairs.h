// Operations on a pair of lists, labels and the codes beside them, line for line.
#pragma once

#include "widgets/ListBox.h"

#include <string_view>

namespace vorandine::experience {

// Whether a line of `list` equals `text`, letter for letter.
[[nodiscard]] bool Present_Liste(std::string_view text, const widgets::ListBox& list);

// Adds the selected lines of the source, which keeps them, to the target, save those whose label
// stands there already. Deselects the source.
void Transfert_Selection(widgets::ListBox& sourceLabels, widgets::ListBox& targetLabels,
                         const widgets::ListBox& sourceCodes, widgets::ListBox& targetCodes);

// Removes the selected lines from both lists.
void Retrait_Selection(widgets::ListBox& labels, widgets::ListBox& codes);

} // namespace vorandine::experience
