// Ledgers recomputed line by line, and held against the training files.
#include "apps/dba/check/Checks.h"
#include "apps/dba/check/Records.h"
#include "dif/Balances.h"
#include "dif/Hours.h"
#include "dif/LedgerRecord.h"
#include "text/Error.h"

#include <algorithm>
#include <functional>
#include <map>
#include <optional>
#include <vector>

namespace vorandine::dba {
namespace {

using dif::Figures;
using text::Fixed4;

// Of a training file.
constexpr int Date = 5;
constexpr int Code = 6;
constexpr int Counts = 14;

std::string hours(Fixed4 hundredths) {
    return dif::plainHours(Fixed4(hundredths.toDecimal().shifted(-dif::HundredthsPlaces)));
}

// What any of the three ways to recompute makes of a line behind `before`, or of a first line. A
// first line that a removal left where it is may have any balance: it is held to its own figures.
std::vector<Fixed4> balances(const std::optional<Fixed4>& before, const Figures& line) {
    std::vector<Fixed4> found;
    const auto recompute = [&](const std::function<void(dif::Ledger&)>& way) {
        dif::Ledger ledger;
        if (before)
            ledger.push_back({*before, std::nullopt, *before});
        ledger.push_back(line);
        way(ledger);
        found.push_back(ledger.back().balance);
    };
    recompute(dif::balances::allLines);
    recompute(
        [](dif::Ledger& ledger) { dif::balances::afterInsertion(ledger, ledger.size() - 1); });
    if (before)
        recompute(dif::balances::afterRemoval);
    return found;
}

// Tells the first balance that does not follow from the line before it.
void checkBalances(const data::DBARecord& record, const TellFinding& tell) {
    const dif::Ledger ledger = dif::ledger(record);
    std::optional<Fixed4> before;
    for (std::size_t i = 0; i < ledger.size(); ++i) {
        const int line = static_cast<int>(i) + 1;
        const std::string stored = record(dif::attribute::Balance, line);
        if (!stored.empty() && !dif::figure(record, dif::attribute::Balance, line))
            return; // no number, which is told elsewhere: nothing follows from it
        const std::vector<Fixed4> right = balances(before, ledger[i]);
        if (stored.empty() ||
            std::find(right.begin(), right.end(), ledger[i].balance) == right.end()) {
            const Fixed4 balance = ledger[i].balance;
            const std::string off = balance > right.front()
                                        ? hours(balance - right.front()) + " hours too many"
                                        : hours(right.front() - balance) + " hours too few";
            tell({"DIFAIDANT", record.key(), dif::attribute::Balance, line, stored,
                  std::string("does not follow from ") +
                      (before ? "the line before: " : "the hours of the first line: ") + off +
                      ", it should be " + right.front().toDecimal().toText(),
                  "look for the line that was changed; the form of the hours computes all "
                  "balances again"});
            return;
        }
        before = ledger[i].balance;
    }
}

// Where a training of a caregiver stands, by caregiver, date and code.
struct Place {
    std::string key;
    int line = 0;
};
using Trainings = std::map<std::string, Place>;

std::string training(const std::string& caregiver, const std::string& date,
                     const std::string& code) {
    return caregiver + '\xFF' + date + '\xFF' + code;
}

void gatherCharged(const data::DBARecord& record, const Known& known, Trainings& charged) {
    const auto key = known.splitLedger(record.key());
    if (!key)
        return;
    for (int i = 1; i <= record.DCount(dif::attribute::Date); ++i) {
        const std::string code = record(dif::attribute::Training, i);
        if (!code.empty())
            charged.emplace(training(key->caregiver, record(dif::attribute::Date, i), code),
                            Place{record.key(), i});
    }
}

void gatherMarked(const data::DBARecord& record, Trainings& marked) {
    for (int i = 1; i <= record.DCount(Date); ++i)
        if (record(Counts, i) == "1")
            marked.emplace(training(record.key(), record(Date, i), record(Code, i)),
                           Place{record.key(), i});
}

} // namespace

void checkLedgers(store::Engine& engine, const Known& known, const TellFinding& tell) {
    Trainings charged;
    Trainings marked;
    eachRecord(engine, "DIFAIDANT", [&](const data::DBARecord& record) {
        try {
            checkBalances(record, tell);
        } catch (const Error& error) {
            if (error.number() != errors::Overflow)
                throw;
            tell({"DIFAIDANT", record.key(), 0, 0, "", "has figures beyond all hours",
                  "mend the largest of them"});
        }
        gatherCharged(record, known, charged);
    });
    eachRecord(engine, "FORMVORANDINE",
               [&](const data::DBARecord& record) { gatherMarked(record, marked); });
    const auto codeOf = [](const std::string& one) { return one.substr(one.rfind('\xFF') + 1); };
    for (const auto& [one, place] : charged)
        if (!marked.contains(one))
            tell({"DIFAIDANT", place.key, dif::attribute::Training, place.line, codeOf(one),
                  "is charged, but the training file has no such training on that day that counts",
                  "take the line out of the hours, or put the training back with OUI"});
    for (const auto& [one, place] : marked)
        if (!charged.contains(one))
            tell({"FORMVORANDINE", place.key, Code, place.line, codeOf(one),
                  "counts for the D.I.F. (OUI), but no employer is charged with it on that day",
                  "open the training, choose NON, then OUI again and the employer"});
}

} // namespace vorandine::dba
