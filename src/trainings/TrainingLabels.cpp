// Walks through the table of training labels.
#include "trainings/TrainingLabels.h"

#include <algorithm>
#include <iterator>

namespace vorandine::trainings {

TrainingLabels::TrainingLabels(const data::DBARecord& F_FORMPRO) {
    int k = 0;
    do {
        ++k;
        entries_.emplace_back(F_FORMPRO(2, k), F_FORMPRO(3, k));
    } while (!entries_.back().first.empty());
}

const std::string& TrainingLabels::labelOf(std::string_view code) const {
    return std::find_if(entries_.begin(), std::prev(entries_.end()),
                        [&](const auto& entry) { return entry.first == code; })
        ->second;
}

} // namespace vorandine::trainings
