// Walks through the table of training labels.
#include "trainings/TrainingLabels.h"

namespace vorandine::trainings {

std::string labelOf(const data::DBARecord& F_FORMPRO, std::string_view code) {
    for (int k = 1;; ++k) {
        const std::string entry = F_FORMPRO(2, k);
        if (entry == code || entry.empty())
            return F_FORMPRO(3, k);
    }
}

} // namespace vorandine::trainings
