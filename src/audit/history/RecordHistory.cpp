// What a change has made of a record is what the next one found.
#include "audit/history/RecordHistory.h"

#include <utility>

namespace vorandine::audit {

RecordHistory historyOf(store::Store& store, const std::string& file, const std::string& key) {
    std::vector<store::Version> versions;
    RecordHistory history;
    store::Engine& engine = store.changes().engine();
    engine.consistently([&] {
        versions = store.changes().history(file, key);
        history.today = engine.file(file)->read(key);
    });
    for (std::size_t i = 0; i < versions.size(); ++i)
        history.changes.push_back(
            {std::move(versions[i].moment), std::move(versions[i].user), versions[i].record,
             i + 1 < versions.size() ? versions[i + 1].record : history.today});
    return history;
}

} // namespace vorandine::audit
