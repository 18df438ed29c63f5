// A change is what stands between two states of a record: put together with no change at all, a
// training file tells it point by point; a ledger tells its lines.
#include "apps/host/NewsInWords.h"

#include "audit/history/RecordHistory.h"
#include "control/PointTexts.h"
#include "dif/DetailLines.h"
#include "dif/Employers.h"
#include "ports/Variables.h"
#include "records/ChangedMeanwhile.h"
#include "records/Merge.h"
#include "records/RecordText.h"
#include "records/StoredFiles.h"

#include <algorithm>
#include <map>
#include <utility>

namespace vorandine::host {
namespace {

std::vector<std::string> trainingFileLines(const std::string& before, const std::string& after,
                                           const control::PointTexts& texts) {
    std::vector<std::string> lines;
    const records::Merged merged = records::merge({.file = records::training_file::File,
                                                   .read = before,
                                                   .untouched = before,
                                                   .mine = before,
                                                   .stored = after,
                                                   .origins = {},
                                                   .filled = {}},
                                                  records::Prefer::Theirs);
    for (const records::Point& point : merged.theirs)
        lines.push_back(texts.change(point));
    if (lines.empty())
        lines.emplace_back("enregistré tel quel");
    return lines;
}

std::string ledgerLine(const std::string& before, const std::string& after,
                       const ports::DateObject& dates) {
    constexpr std::size_t MostTold = 100;
    const std::string what =
        dif::difference({nullptr, {}, before}, {nullptr, {}, after}, dates, MostTold);
    return before == after ? "enregistré tel quel" : what.empty() ? "soldes recalculés" : what;
}

} // namespace

std::vector<NewsInWords> newsInWords(const std::shared_ptr<store::Store>& store,
                                     const std::string& code,
                                     const std::vector<OtherChange>& changes,
                                     const ports::DateObject& dates) {
    ports::Variables v;
    v.TheDatabase = store;
    ports::Ouvrir_Fichiers(v);
    const control::PointTexts texts(v, dates);
    std::map<std::pair<std::string, std::string>, audit::RecordHistory> histories;
    std::vector<NewsInWords> news;
    for (const OtherChange& change : changes) {
        const auto known = histories.try_emplace({change.file, change.key});
        if (known.second)
            known.first->second = audit::historyOf(*store, change.file, change.key);
        const std::vector<audit::RecordChange>& kept = known.first->second.changes;
        const auto found = std::find_if(
            kept.begin(), kept.end(), [&](const auto& one) { return one.moment == change.moment; });
        NewsInWords words{records::ChangedMeanwhile::Maker{change.user, {}}.name() + ", " +
                              store::localTimeInSentence(change.moment),
                          {}};
        const bool ofLedger = change.file == records::ledger::File;
        const auto plain = [](const audit::State& state) {
            return !state || records::isPlainRecord(*state);
        };
        if (found == kept.end() || !plain(found->before) || !plain(found->after))
            words.lines.emplace_back("l'historique ne le dit plus");
        else if (ofLedger)
            words.lines.push_back(
                "D.I.F., " + dif::employerNameOrCode(v, change.key.substr(code.size())) + " : " +
                ledgerLine(found->before.value_or(""), found->after.value_or(""), dates));
        else if (!found->after)
            words.lines.emplace_back("dossier supprimé");
        else
            words.lines = trainingFileLines(found->before.value_or(""), *found->after, texts);
        news.push_back(std::move(words));
    }
    return news;
}

} // namespace vorandine::host
