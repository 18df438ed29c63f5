// The history tells who changed what. Of several clocks that disagree no common order is asked for:
// what is known is remembered for each record.
#include "apps/host/News.h"

#include "records/StoredFiles.h"
#include "text/Error.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <ctime>

namespace vorandine::host {
namespace {

constexpr const char* Nobody = "Un autre poste";

// A moment of the history for the eye, in the user's time; the day too where it is not today.
std::string shown(const std::string& moment) {
    std::tm utc{};
    if (std::sscanf(moment.c_str(), "%4d-%2d-%2dT%2d:%2d:%2d", &utc.tm_year, &utc.tm_mon,
                    &utc.tm_mday, &utc.tm_hour, &utc.tm_min, &utc.tm_sec) != 6)
        return {};
    utc.tm_year -= 1900;
    --utc.tm_mon;
    const std::time_t then = timegm(&utc);
    const std::time_t now = std::time(nullptr);
    std::tm local{};
    std::tm today{};
    localtime_r(&then, &local);
    localtime_r(&now, &today);
    const bool sameDay = local.tm_year == today.tm_year && local.tm_yday == today.tm_yday;
    std::array<char, 64> text{};
    const std::size_t length = std::strftime(text.data(), text.size(),
                                             sameDay ? "à %H:%M" : "le %d/%m/%Y à %H:%M", &local);
    return {text.data(), length};
}

} // namespace

News::News(std::shared_ptr<store::Store> store, std::string code)
    : store_(std::move(store)), code_(std::move(code)) {
    static_cast<void>(ask());
}

std::vector<store::Change> News::fresh() {
    const std::string trainings = records::training_file::File;
    const std::string ledgers = records::ledger::File;
    std::map<std::string, std::vector<store::Change>> stored; // by file
    for (const std::string& file : {trainings, ledgers})
        stored[file] = store_->changes().changes(file, code_);
    // Ledgers begin with the caregiver's code; a training file that does may be another's.
    std::erase_if(stored[trainings], [&](const auto& change) { return change.key != code_; });
    std::vector<store::Change> found;
    for (auto& [file, changes] : stored)
        for (store::Change& change : changes) {
            std::string& known = known_[{file, change.key}];
            if (change.moment <= known)
                continue;
            known = change.moment;
            found.push_back(std::move(change));
        }
    return found;
}

std::vector<widgets::Told> News::ask() {
    std::vector<store::Change> changes;
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
    std::erase_if(changes, [](const auto& change) { return change.own; });
    std::stable_sort(changes.begin(), changes.end(),
                     [](const auto& one, const auto& other) { return one.moment < other.moment; });
    std::vector<widgets::Told> news;
    for (auto change = changes.begin(); change != changes.end(); ++change)
        if (std::none_of(std::next(change), changes.end(),
                         [&](const auto& later) { return later.user == change->user; }))
            news.push_back(
                {(change->user.empty() ? Nobody : change->user) + " a enregistré ce dossier",
                 shown(change->moment)});
    return news;
}

} // namespace vorandine::host
