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
    for (const char* const file : {records::training_file::File, records::ledger::File})
        opened_[file] = lastOwn(file);
}

// Ledgers begin with the caregiver's code; a training file that does may be another's.
std::vector<store::Change> News::changes(const std::string& file) const {
    std::vector<store::Change> changes = store_->changes().changes(file, code_);
    if (file == records::training_file::File)
        std::erase_if(changes, [&](const auto& change) { return change.key != code_; });
    return changes;
}

std::string News::lastOwn(const std::string& file) const {
    std::string last;
    for (const store::Change& change : changes(file))
        if (change.own)
            last = std::max(last, change.moment);
    return last;
}

News::Own News::own() const {
    const auto stored = [this](const char* file) { return lastOwn(file) != opened_.at(file); };
    return stored(records::training_file::File) ? Own::File
           : stored(records::ledger::File)      ? Own::HoursAlone
                                                : Own::Nothing;
}

std::vector<OtherChange> News::fresh() {
    std::map<std::string, std::vector<store::Change>> stored; // by file
    for (const char* const file : {records::training_file::File, records::ledger::File})
        stored[file] = changes(file);
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
