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
    if (done && outcome == Stored::Done)
        written_ = true;
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
        constexpr std::size_t MostTold = 2; // as there is room for
        const std::string what = difference(shown, record, Conv_Date_, MostTold);
        others = v_.F_DIFAIDANT->LastChange(key).name() + " a modifié ce détail" +
                 (what.empty() ? "" : " : " + what) + ".";
        if (!repeat(change, shown, record, Conv_Date_, records::TrainingLabels(v_.F_FORMPRO)))
            return Stored::LineGone;
        if (std::as_const(record).DCount(attribute::Date) == 0)
            record.DBDelete();
        else
            record.DBWrite();
        return Stored::Done;
    });
}

std::vector<Stored> Ledgers::charge(const std::vector<Charge>& charges,
                                    const ChargedTraining& training) {
    std::vector<Stored> outcomes;
    rules::StatementByStatement tries;
    const bool done = tries([&] {
        together([&] {
            for (const Charge& each : charges) {
                bool there = false;
                if (!tries([&] { there = readLedger(v_, each.key); }) || !there)
                    outcomes.push_back(Stored::NotRead);
                else
                    outcomes.push_back(tries([&] { charge(each, training); }) ? Stored::Done
                                                                              : notWritten(tries));
            }
        });
    });
    if (!done)
        outcomes.assign(charges.size(), notWritten(tries));
    if (std::find(outcomes.begin(), outcomes.end(), Stored::Done) != outcomes.end())
        written_ = true;
    return outcomes;
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
    std::vector<int> lines;
    for (int j = 1; j <= stored.DCount(attribute::Date); ++j)
        if (stored(attribute::Date, j) == leaving.training.date &&
            stored(attribute::Training, j) == leaving.training.code)
            lines.push_back(j);
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
    text::Fixed4 hours;
    // From the last line on: a removal moves up those behind it.
    for (auto j = lines.rbegin(); j != lines.rend(); ++j) {
        hours = hours + figure(stored, attribute::Hours, *j).value_or(text::Fixed4());
        for (const int list : attribute::Line)
            record.Delete(list, *j);
    }
    return hours;
}

TakenOut Ledgers::walk(const std::string& caregiver, const LeavingTraining& leaving, bool writing) {
    TakenOut taken;
    const ChargedTraining& training = leaving.training;
    if (training.code.empty())
        return taken;
    rules::StatementByStatement tries;
    records::DBARecord found;
    if (!tries([&] {
            found = ports::select(*v_.TheDatabase, W_Params_,
                                  ports::Query(attribute::File)
                                      .with(records::Key, "=", caregiver + "]")
                                      .with(attribute::Training, "=", training.code),
                                  {records::Key});
        }))
        taken.outcome = Stored::NotRead;
    const int rows = found.DCount();
    for (int row = 1; row <= rows; ++row) {
        const std::string key = std::as_const(found)(row);
        bool there = false;
        if (!tries([&] { there = readLedger(v_, key); })) {
            taken.outcome = std::max(taken.outcome, Stored::NotRead);
            continue;
        }
        if (!there)
            continue;
        const bool done = tries([&] {
            const std::optional<text::Fixed4> hundredths = removeLines(leaving);
            if (!hundredths)
                return;
            if (writing) {
                Ledger lines = ledger(v_.Rec_DIFAIDANT);
                balances::afterRemoval(lines);
                setBalances(v_.Rec_DIFAIDANT, lines, 1);
                v_.Rec_DIFAIDANT.DBWrite();
            }
            taken.given.push_back(
                {employerNameOrCode(v_, key.substr(caregiver.size())),
                 text::Fixed4(hundredths->toDecimal().shifted(-HundredthsPlaces))});
        });
        if (!done)
            taken.outcome = notWritten(tries);
    }
    return taken;
}

} // namespace vorandine::dif
