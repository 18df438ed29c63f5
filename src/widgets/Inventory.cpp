// From a row to a control.
#include "widgets/Inventory.h"

#include "widgets/Form.h"
#include "widgets/ListBox.h"
#include "widgets/Simple.h"
#include "widgets/TextField.h"

namespace vorandine::widgets {
namespace {

void caption(Control& control, const Row& row) {
    if (auto* const captioned = dynamic_cast<Captioned*>(&control)) {
        captioned->Caption(row.caption);
        captioned->mnemonic(row.mnemonic);
    } else if (auto* const frame = dynamic_cast<Frame*>(&control)) {
        frame->Caption(row.caption);
    }
}

} // namespace

void make(Control& control, const Row& row) {
    control.identify(row.name, row.index);
    caption(control, row);
    control.Enabled((row.traits & Disabled) == 0);
    control.Visible((row.traits & Hidden) == 0);
    control.fixedPitch((row.traits & FixedPitch) != 0);
    control.TabIndex(row.order);
    control.place(row.place);
    if (auto* const combo = dynamic_cast<ComboBox*>(&control)) {
        combo->sorted((row.traits & Sorted) != 0);
        combo->dropDownList((row.traits & DropDownList) != 0);
    } else if (auto* const list = dynamic_cast<ListBox*>(&control)) {
        list->multiSelect((row.traits & MultiSelect) != 0);
    } else if (auto* const label = dynamic_cast<Label*>(&control)) {
        label->notice((row.traits & Notice) != 0);
    }
}

void furnish(Container& surface, std::initializer_list<Made> controls) {
    for (const Made& made : controls) {
        make(made.control, made.row);
        surface.add(made.control);
    }
}

} // namespace vorandine::widgets
