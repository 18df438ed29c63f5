// What a scenario can look at of a control: its properties by name, as JSON.
#pragma once

#include "widgets/Control.h"

#include <nlohmann/json_fwd.hpp>

#include <string>

namespace vorandine::scenario {

// Throws LineError for a property that this kind of control does not have.
[[nodiscard]] nlohmann::json property(const widgets::Control& control, const std::string& name);

} // namespace vorandine::scenario
