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

} // namespace

Stored Ledgers::rewrite(const std::string& key, const std::vector<ShownLine>& lines) {
    rules::StatementByStatement tries;
    const bool readable = tries([&] {
        if (!readLedger(v_, key))
            v_.Rec_DIFAIDANT = v_.F_DIFAIDANT->NewRecord(key);
    });
    if (!readable)
        return Stored::NotRead;
    const bool written = tries([&] {
        if (lines.empty()) {
            v_.F_DIFAIDANT->DeleteRecord(key);
            written_ = true;
        } else {
            replaceLines(v_.Rec_DIFAIDANT, lines, Conv_Date_);
            write();
        }
    });
    v_.Rec_DIFAIDANT = records::DBARecord();
    return written ? Stored::Done : Stored::NotWritten;
}

void Ledgers::write() {
    v_.Rec_DIFAIDANT.DBWrite();
    written_ = true;
}

Stored Ledgers::charge(const std::string& key, const ChargedTraining& training,
                       text::Fixed4 hours) {
    rules::StatementByStatement tries;
    bool there = false;
    if (!tries([&] { there = readLedger(v_, key); }) || !there)
        return Stored::NotRead;
    const bool written = tries([&] {
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
            hours.toDecimal().shifted(HundredthsPlaces).toText();
        record.Insert(attribute::Balance, place) = "";
        record.Insert(attribute::Training, place) = training.code;
        Ledger recomputed = ledger(record);
        balances::afterInsertion(recomputed, static_cast<std::size_t>(before));
        setBalances(record, recomputed, static_cast<std::size_t>(before));
        write();
    });
    return written ? Stored::Done : Stored::NotWritten;
}

TakenOut Ledgers::takeOut(const std::string& caregiver, const LeavingTraining& training) {
    return walk(caregiver, training, true);
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
                write();
            }
            taken.given.push_back(
                {employerNameOrCode(v_, key.substr(caregiver.size())),
                 text::Fixed4(hundredths->toDecimal().shifted(-HundredthsPlaces))});
        });
        if (!done)
            taken.outcome = Stored::NotWritten;
    }
    return taken;
}

} // namespace vorandine::dif
