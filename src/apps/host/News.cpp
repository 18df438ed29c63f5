// The history tells who changed what. Of several clocks that disagree no common order is asked for:
// what is known is remembered for each record.
#include "apps/host/News.h"

#include "records/ChangedMeanwhile.h"
#include "records/StoredFiles.h"
#include "text/Error.h"

#include <algorithm>
#include <iterator>

namespace vorandine::host {

News::News(std::shared_ptr<store::Store> store, std::string code)
    : store_(std::move(store)), code_(std::move(code)) {
    static_cast<void>(ask());
}

std::vector<OtherChange> News::fresh() {
    const std::string trainings = records::training_file::File;
    const std::string ledgers = records::ledger::File;
    std::map<std::string, std::vector<store::Change>> stored; // by file
    for (const std::string& file : {trainings, ledgers})
        stored[file] = store_->changes().changes(file, code_);
    // Ledgers begin with the caregiver's code; a training file that does may be another's.
    std::erase_if(stored[trainings], [&](const auto& change) { return change.key != code_; });
    std::vector<OtherChange> found;
    for (auto& [file, changes] : stored)
        for (store::Change& change : changes) {
            std::string& known = known_[{file, change.key}];
            if (change.moment <= known)
                continue;
            known = change.moment;
            if (!change.own)
                found.push_back({file, std::move(change.key), std::move(change.moment),
                                 std::move(change.user)});
        }
    std::stable_sort(found.begin(), found.end(),
                     [](const auto& one, const auto& other) { return one.moment < other.moment; });
    return found;
}

std::vector<widgets::Told> News::ask() {
    std::vector<OtherChange> changes;
    try {
        const std::uint64_t writes = store_->changes().engine().writesOfOthers();
        if (writes_ == writes)
            return {};
        changes = fresh();
        if (!std::exchange(writes_, writes))
            return {};
    } catch (const Error&) {
        return {};
    }
    std::vector<widgets::Told> news;
    for (auto change = changes.begin(); change != changes.end(); ++change)
        if (std::none_of(std::next(change), changes.end(),
                         [&](const auto& later) { return later.user == change->user; }))
            news.push_back({records::ChangedMeanwhile::Maker{change->user, {}}.name() +
                                " a enregistré ce dossier",
                            store::localTimeInSentence(change->moment)});
    told_.insert(told_.end(), std::make_move_iterator(changes.begin()),
                 std::make_move_iterator(changes.end()));
    return news;
}

} // namespace vorandine::host
