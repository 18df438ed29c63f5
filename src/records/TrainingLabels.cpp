// Walks through the table of training labels.
#include "records/TrainingLabels.h"

#include "records/StoredFiles.h"

#include <algorithm>

namespace vorandine::records {

TrainingLabels::TrainingLabels(const DBARecord& F_FORMPRO) {
    for (int k = 1; !F_FORMPRO(table::Codes, k).empty(); ++k)
        entries_.emplace_back(F_FORMPRO(table::Codes, k), F_FORMPRO(table::Labels, k));
}

const std::string* TrainingLabels::find(std::string_view code) const {
    const auto entry = std::find_if(entries_.begin(), entries_.end(),
                                    [&](const auto& one) { return one.first == code; });
    return entry == entries_.end() ? nullptr : &entry->second;
}

std::optional<std::string> trainingCode(const DBARecord& F_FORMPRO, std::string_view label) {
    const int entries = F_FORMPRO.DCount(table::Labels);
    for (int k = 1; k <= entries; ++k)
        if (F_FORMPRO(table::Labels, k) == label)
            return F_FORMPRO(table::Codes, k);
    return std::nullopt;
}

} // namespace vorandine::records
