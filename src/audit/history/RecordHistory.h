// What changes have made of one record, each with what was there before and after it.
#pragma once

#include "store/Store.h"

#include <optional>
#include <string>
#include <vector>

namespace vorandine::audit {

// A record's whole text at one time, which may be damaged; none where there was no record.
using State = std::optional<std::string>;

struct RecordChange {
    std::string moment; // of store::momentText
    std::string user;   // who made it; "" if unknown
    State before;
    State after;
};

struct RecordHistory {
    std::vector<RecordChange> changes; // oldest first; none where none was kept
    State today;
};

// The history of a record of `file`, which the store has, seen in one state of the store. Throws
// what the engine throws.
[[nodiscard]] RecordHistory historyOf(store::Store& store, const std::string& file,
                                      const std::string& key);

} // namespace vorandine::audit
