// The parameters control: a list of codes and labels of one table, with a search, in which the
// user adds entries and changes labels as far as the rights of the key "PARAMETRES" go.
#pragma once

#include "ports/ParametersControl.h"

#include <memory>

namespace vorandine::components {

// What the user does is collected and stored at once, on leaving, in the record as it then stands:
// what others have stored meanwhile is kept. Where that fails the control stays, with all that was
// typed, and the error goes to the form.
[[nodiscard]] std::unique_ptr<ports::ParametersControl> makeParameters(ports::ParametersHost& host);

} // namespace vorandine::components
