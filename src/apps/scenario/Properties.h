// What a scenario can look at: the properties of controls, by kind and name.
#pragma once

#include "widgets/Control.h"

#include <nlohmann/json.hpp>

#include <string>

namespace vorandine::scenario {

// Throws LineError for a property that this kind of control does not have.
[[nodiscard]] nlohmann::json property(const widgets::Control& control, const std::string& name);

} // namespace vorandine::scenario
