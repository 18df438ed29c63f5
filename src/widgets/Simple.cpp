// Option groups and the scroll bar's bounds.
#include "widgets/Simple.h"

#include "widgets/Kinds.h"

#include <algorithm>

namespace vorandine::widgets {

void OptionButton::Value(bool value) {
    const bool selected = value && !value_;
    value_ = value;
    if (value && parent() != nullptr)
        for (Control* const sibling : parent()->children())
            if (auto* const other = as<OptionButton>(sibling); other && other != this)
                other->value_ = false;
    if (selected && Click)
        Click();
}

void ScrollBar::Max(int max) {
    max_ = max;
    Value(value_);
}

void ScrollBar::Value(int value) {
    const int held = std::max(0, std::min(value, max_));
    if (held == value_)
        return;
    value_ = held;
    if (Change)
        Change();
}

} // namespace vorandine::widgets
