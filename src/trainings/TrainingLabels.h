// The table of training labels: from a stored code to the label shown.
#pragma once

#include "data/DBARecord.h"

#include <string>
#include <string_view>

namespace vorandine::trainings {

// The label of `code` in the table `F_FORMPRO` (attribute 2 codes, attribute 3 labels, position by
// position); "" if the table does not hold the code. The table ends at its first empty code.
[[nodiscard]] std::string labelOf(const data::DBARecord& F_FORMPRO, std::string_view code);

} // namespace vorandine::trainings
