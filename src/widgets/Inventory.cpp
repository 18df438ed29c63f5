// From a row to a control.
#include "widgets/Inventory.h"

#include "widgets/Kinds.h"

namespace vorandine::widgets {
namespace {

void caption(Captioned& captioned, const Row& row) {
    captioned.Caption(row.caption);
    captioned.mnemonic(row.mnemonic);
}

} // namespace

void make(Control& control, const Row& row) {
    const auto has = [&](Trait trait) { return (row.traits & trait) != 0; };
    control.identify(row.name, row.index);
    control.Enabled(!has(Disabled));
    control.Visible(!has(Hidden));
    control.fixedPitch(has(FixedPitch));
    control.TabIndex(row.order);
    control.place(row.place);
    match(
        control,
        [&](Label& label) {
            caption(label, row);
            label.notice(has(Noticed));
        },
        [&](Captioned& button) { caption(button, row); },
        [&](Frame& frame) { frame.Caption(row.caption); },
        [&](ComboBox& combo) {
            combo.sorted(has(Sorted));
            combo.dropDownList(has(DropDownList));
        },
        [&](ListBox& list) { list.multiSelect(has(MultiSelect)); },
        [](Control& /*other*/) {}); // a row tells nothing more of it
}

void furnish(Container& surface, std::initializer_list<Made> controls) {
    for (const Made& made : controls) {
        make(made.control, made.row);
        surface.add(made.control);
    }
}

} // namespace vorandine::widgets
