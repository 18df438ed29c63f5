// The table of training labels: from a stored code to the label shown.
#pragma once

#include "records/DBARecord.h"

#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace vorandine::records {

// The table as it was when this was made: a file of thousands of trainings asks it for each.
class TrainingLabels {
  public:
    // `F_FORMPRO` is the table. It ends at its first empty code.
    explicit TrainingLabels(const DBARecord& F_FORMPRO);

    // The label of the first entry with that code; null if the table does not hold it.
    [[nodiscard]] const std::string* find(std::string_view code) const;

  private:
    std::vector<std::pair<std::string, std::string>> entries_;
};

// The code of the first entry of the table with that label; none if there is no such entry.
[[nodiscard]] std::optional<std::string> trainingCode(const DBARecord& F_FORMPRO,
                                                      std::string_view label);

} // namespace vorandine::records
