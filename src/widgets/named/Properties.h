// What can be seen of a control, as properties by name: for who tells of controls in words.
#pragma once

#include "widgets/Control.h"

#include <functional>
#include <string>
#include <variant>
#include <vector>

namespace vorandine::widgets {

using PropertyValue = std::variant<bool, int, std::string, std::vector<bool>, std::vector<int>,
                                   std::vector<std::string>>;

struct Property {
    const char* name;
    std::function<PropertyValue()> read; // as it is now; the control must still be there
};

// All properties of a control of this kind.
[[nodiscard]] std::vector<Property> properties(const Control& control);

} // namespace vorandine::widgets
