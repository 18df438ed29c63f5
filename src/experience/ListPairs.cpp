// The three operations.
#include "experience/ListPairs.h"

namespace vorandine::experience {

bool Present_Liste(std::string_view text, const widgets::ListBox& list) {
    for (int i = 0; i < list.ListCount(); ++i)
        if (list.List(i) == text)
            return true;
    return false;
}

void Transfert_Selection(widgets::ListBox& sourceLabels, widgets::ListBox& targetLabels,
                         const widgets::ListBox& sourceCodes, widgets::ListBox& targetCodes) {
    for (int i = 0; i < sourceLabels.ListCount(); ++i) {
        if (sourceLabels.Selected(i) && !Present_Liste(sourceLabels.List(i), targetLabels)) {
            targetLabels.AddItem(sourceLabels.List(i));
            targetCodes.AddItem(sourceCodes.List(i));
        }
        sourceLabels.Selected(i, false);
    }
}

void Retrait_Selection(widgets::ListBox& labels, widgets::ListBox& codes) {
    // Downwards, so that the positions still to come stay good.
    for (int i = labels.ListCount() - 1; i >= 0; --i)
        if (labels.Selected(i)) {
            labels.RemoveItem(i);
            codes.RemoveItem(i);
        }
}

} // namespace vorandine::experience
