// Reading, rewriting and writing back of stored ledgers.
#include "dif/Ledgers.h"

#include "dif/Employers.h"
#include "dif/Hours.h"
#include "ports/Query.h"
#include "records/StoredFiles.h"
#include "rules/StatementByStatement.h"

#include <algorithm>
#include <utility>

namespace vorandine::dif {
namespace {

namespace attribute = records::ledger;

// As whole numbers.
bool earlier(const std::string& a, const std::string& b) {
    const std::optional<text::Decimal> left = text::Decimal::parse(a);
    const std::optional<text::Decimal> right = text::Decimal::parse(b);
    return left && right && text::Fixed4(*left) < text::Fixed4(*right);
}

text::Fixed4 inHours(text::Fixed4 hundredths) {
    return text::Fixed4(hundredths.toDecimal().shifted(-HundredthsPlaces));
}

// The lines of a training, from 1.
std::vector<int> linesOf(const records::DBARecord& record, const ChargedTraining& training) {
    std::vector<int> lines;
    for (int j = 1; j <= record.DCount(attribute::Date); ++j)
        if (record(attribute::Date, j) == training.date &&
            record(attribute::Training, j) == training.code)
            lines.push_back(j);
    return lines;
}

text::Fixed4 hoursAt(const records::DBARecord& record, const std::vector<int>& lines) {
    text::Fixed4 hundredths;
    for (const int j : lines)
        hundredths += figure(record, attribute::Hours, j).value_or(text::Fixed4());
    return inHours(hundredths);
}

// What the user could not foresee where others have changed the ledger.
std::string belowZero(const records::DBARecord& record) {
    const text::Fixed4 balance =
        figure(record, attribute::Balance, record.DCount(attribute::Date)).value_or(text::Fixed4());
    return balance < text::Fixed4() ? " Solde : " + plainHours(inHours(balance)) + " h." : "";
}

void addSentence(std::string& text, const std::string& sentence) {
    text += (text.empty() || sentence.empty() ? "" : " ") + sentence;
}

// Why the write tried last failed.
Stored notWritten(const rules::StatementByStatement& tries) {
    return tries.number() == errors::MayNotWrite ? Stored::NotAllowed : Stored::NotWritten;
}

} // namespace

void Ledgers::together(const std::function<void()>& work) {
    v_.TheDatabase->atomically(work);
}

Stored Ledgers::update(const std::string& key, const std::function<Stored(bool there)>& work) {
    rules::StatementByStatement tries;
    bool reading = false;
    Stored outcome = Stored::Done;
    const bool done = tries([&] {
        together([&] {
            reading = true;
            const bool there = readLedger(v_, key);
            reading = false;
            outcome = work(there);
        });
    });
    v_.Rec_DIFAIDANT = records::DBARecord();
    if (done && outcome == Stored::Done) {
        written_ = true;
        shown_.erase(key); // until it is shown again: what was changed here is no other's doing
    }
    if (done)
        return outcome;
    return reading ? Stored::NotRead : notWritten(tries);
}

void Ledgers::replace(const std::vector<ShownLine>& lines) {
    if (lines.empty()) {
        v_.Rec_DIFAIDANT.DBDelete();
    } else {
        replaceLines(v_.Rec_DIFAIDANT, lines, Conv_Date_);
        v_.Rec_DIFAIDANT.DBWrite();
    }
}

Stored Ledgers::rewrite(const std::string& key, const std::vector<ShownLine>& lines) {
    return update(key, [&](bool there) {
        if (!there)
            v_.Rec_DIFAIDANT = v_.F_DIFAIDANT->NewRecord(key);
        replace(lines);
        return Stored::Done;
    });
}

Stored Ledgers::change(const std::string& key, const records::DBARecord& shown,
                       const std::vector<ShownLine>& lines, const LineChange& change,
                       std::string& others) {
    return update(key, [&](bool there) {
        if (!there)
            v_.Rec_DIFAIDANT = v_.F_DIFAIDANT->NewRecord(key);
        records::DBARecord& record = v_.Rec_DIFAIDANT;
        if (sameLines(record, shown)) {
            replace(lines);
            return Stored::Done;
        }
        others = doneByOthers(key, "", shown);
        if (!repeat(change, shown, record, Conv_Date_, records::TrainingLabels(v_.F_FORMPRO)))
            return Stored::LineGone;
        if (std::as_const(record).DCount(attribute::Date) == 0)
            record.DBDelete();
        else
            record.DBWrite();
        return Stored::Done;
    });
}

void Ledgers::shown(const std::string& key) {
    shown_[key]() = std::as_const(v_.Rec_DIFAIDANT)();
}

// `employer` where the screen does not say whose detail it is.
std::string Ledgers::doneByOthers(const std::string& key, const std::string& employer,
                                  const records::DBARecord& shown) const {
    constexpr std::size_t MostTold = 2; // as there is room for
    const std::string what = difference(shown, v_.Rec_DIFAIDANT, Conv_Date_, MostTold);
    return v_.F_DIFAIDANT->LastChange(key).name() + " a modifié ce détail" +
           (employer.empty() ? "" : " (" + employer + ")") + (what.empty() ? "" : " : " + what) +
           ".";
}

std::string Ledgers::othersSinceShown(const std::string& caregiver, const std::string& key) const {
    const auto before = shown_.find(key);
    std::string told;
    rules::StatementByStatement tries;
    if (before != shown_.end() && !sameLines(v_.Rec_DIFAIDANT, before->second))
        tries([&] {
            told = doneByOthers(key, employerNameOrCode(v_, key.substr(caregiver.size())),
                                before->second);
        });
    return told;
}

Charged Ledgers::charge(const std::string& caregiver, const std::vector<Charge>& charges,
                        const ChargedTraining& training) {
    Charged charged;
    rules::StatementByStatement tries;
    const bool done = tries([&] {
        together([&] {
            charged.standing = standing(caregiver, training);
            for (const Charge& each : charges) {
                bool there = false;
                if (!tries([&] { there = readLedger(v_, each.key); }) || !there) {
                    charged.outcomes.push_back(Stored::NotRead);
                    continue;
                }
                std::string others = othersSinceShown(caregiver, each.key);
                shown(each.key);
                const bool written = tries([&] { charge(each, training); });
                charged.outcomes.push_back(written ? Stored::Done : notWritten(tries));
                if (written) {
                    shown(each.key);
                    others += others.empty() ? "" : belowZero(v_.Rec_DIFAIDANT);
                }
                addSentence(charged.others, others);
            }
        });
    });
    if (!done) {
        charged.outcomes.assign(charges.size(), notWritten(tries));
        shown_.clear();
    }
    if (std::find(charged.outcomes.begin(), charged.outcomes.end(), Stored::Done) !=
        charged.outcomes.end())
        written_ = true;
    return charged;
}

std::vector<std::string> Ledgers::keysOf(const std::string& caregiver, const std::string& code) {
    const records::DBARecord found = ports::select(*v_.TheDatabase, W_Params_,
                                                   ports::Query(attribute::File)
                                                       .with(records::Key, "=", caregiver + "]")
                                                       .with(attribute::Training, "=", code),
                                                   {records::Key});
    std::vector<std::string> keys;
    for (int row = 1; row <= found.DCount(); ++row)
        keys.push_back(found(row));
    return keys;
}

Standing Ledgers::standing(const std::string& caregiver, const ChargedTraining& training) {
    Standing found;
    rules::StatementByStatement tries;
    std::vector<std::string> keys;
    tries([&] { keys = keysOf(caregiver, training.code); });
    for (const std::string& key : keys)
        tries([&] {
            if (!readLedger(v_, key))
                return;
            const std::vector<int> lines = linesOf(v_.Rec_DIFAIDANT, training);
            if (lines.empty())
                return;
            found.lines += static_cast<int>(lines.size());
            found.hours += hoursAt(v_.Rec_DIFAIDANT, lines);
            found.employers.push_back(employerNameOrCode(v_, key.substr(caregiver.size())));
        });
    return found;
}

void Ledgers::charge(const Charge& charge, const ChargedTraining& training) {
    records::DBARecord& record = v_.Rec_DIFAIDANT;
    const records::DBARecord& stored = record;
    const int lines = stored.DCount(attribute::Date);
    int before = lines; // the last line that is earlier; a date that is none never is
    while (before > 0 && !earlier(stored(attribute::Date, before), training.date))
        --before;
    const int place = before + 1;
    // Where the balance before a last line is missing, the line counts from 0.
    if (place > lines && before > 0 && stored(attribute::Balance, before).empty())
        record(attribute::Balance, before) = "0";
    record.Insert(attribute::Date, place) = training.date;
    record.Insert(attribute::Rights, place) = "";
    record.Insert(attribute::Hours, place) =
        charge.hours.toDecimal().shifted(HundredthsPlaces).toText();
    record.Insert(attribute::Balance, place) = "";
    record.Insert(attribute::Training, place) = training.code;
    Ledger recomputed = ledger(record);
    balances::afterInsertion(recomputed, static_cast<std::size_t>(before));
    setBalances(record, recomputed, static_cast<std::size_t>(before));
    record.DBWrite();
}

TakenOut Ledgers::takeOut(const std::string& caregiver, const LeavingTraining& training) {
    TakenOut taken;
    rules::StatementByStatement tries;
    if (!tries([&] { together([&] { taken = walk(caregiver, training, true); }); })) {
        taken.outcome = notWritten(tries);
        taken.given.clear();
        shown_.clear();
    }
    if (!taken.given.empty())
        written_ = true;
    return taken;
}

TakenOut Ledgers::wouldTakeOut(const std::string& caregiver, const LeavingTraining& training) {
    return walk(caregiver, training, false);
}

std::optional<text::Fixed4> Ledgers::removeLines(const LeavingTraining& leaving) {
    records::DBARecord& record = v_.Rec_DIFAIDANT;
    const records::DBARecord& stored = record;
    std::vector<int> lines = linesOf(stored, leaving.training);
    if (lines.empty())
        return std::nullopt;
    if (leaving.alike > 1) {
        std::stable_partition(lines.begin(), lines.end(), [&](int j) {
            const std::optional<text::Decimal> hours =
                text::Decimal::parse(stored(attribute::Hours, j));
            return hours && hours->toText() == leaving.hours;
        });
        const auto alike = static_cast<std::size_t>(leaving.alike);
        lines.resize((lines.size() + alike - 1) / alike);
        std::sort(lines.begin(), lines.end());
    }
    const text::Fixed4 hours = hoursAt(stored, lines);
    // From the last line on: a removal moves up those behind it.
    for (auto j = lines.rbegin(); j != lines.rend(); ++j)
        for (const int list : attribute::Line)
            record.Delete(list, *j);
    return hours;
}

TakenOut Ledgers::walk(const std::string& caregiver, const LeavingTraining& leaving, bool writing) {
    TakenOut taken;
    const ChargedTraining& training = leaving.training;
    if (training.code.empty())
        return taken;
    rules::StatementByStatement tries;
    std::vector<std::string> keys;
    if (!tries([&] { keys = keysOf(caregiver, training.code); }))
        taken.outcome = Stored::NotRead;
    for (const std::string& key : keys) {
        bool there = false;
        if (!tries([&] { there = readLedger(v_, key); })) {
            taken.outcome = std::max(taken.outcome, Stored::NotRead);
            continue;
        }
        if (!there)
            continue;
        const bool done = tries([&] {
            const std::string others = othersSinceShown(caregiver, key);
            const std::optional<text::Fixed4> hours = removeLines(leaving);
            if (!hours)
                return;
            if (writing) {
                Ledger lines = ledger(v_.Rec_DIFAIDANT);
                balances::afterRemoval(lines);
                setBalances(v_.Rec_DIFAIDANT, lines, 1);
                v_.Rec_DIFAIDANT.DBWrite();
                if (shown_.contains(key))
                    shown(key);
            }
            addSentence(taken.others, others);
            taken.given.push_back({employerNameOrCode(v_, key.substr(caregiver.size())), *hours});
        });
        if (!done)
            taken.outcome = notWritten(tries);
    }
    return taken;
}

} // namespace vorandine::dif
