// Ledgers recomputed line by line, and held against the training files.
#include "audit/check/Checks.h"
#include "components/DateConverter.h"
#include "dif/Balances.h"
#include "dif/Hours.h"
#include "records/StoredFiles.h"
#include "text/Error.h"

#include <algorithm>
#include <cstdint>
#include <functional>
#include <optional>

namespace vorandine::audit {
namespace {

namespace ledger = records::ledger;
namespace training_file = records::training_file;
using text::Fixed4;

// A stored figure. Nearly all are empty or short whole numbers, which need no decimals.
struct Figure {
    std::string_view text;
    bool isWhole = true;
    std::int64_t whole = 0; // 0 for the empty text

    Figure() = default;
    explicit Figure(std::string_view stored) : text(stored) {
        constexpr std::size_t MostDigits = 15; // sums of which fit
        if (text.empty())
            return;
        const bool negative = text.front() == '-';
        isWhole = text.size() <= MostDigits && text.size() > (negative ? 1 : 0);
        std::uint64_t sum = 0;
        for (const char c : text.substr(negative ? 1 : 0, MostDigits)) {
            const unsigned digit = static_cast<unsigned char>(c) - unsigned{'0'};
            isWhole &= digit <= 9;
            sum = sum * 10 + digit;
        }
        if (isWhole)
            whole = negative ? -static_cast<std::int64_t>(sum) : static_cast<std::int64_t>(sum);
    }

    [[nodiscard]] std::optional<Fixed4> exact() const {
        const std::optional<text::Decimal> value = text::Decimal::parse(text);
        return value ? std::optional(Fixed4(*value)) : std::nullopt;
    }
};

// Whether the balance follows in whole numbers from rights or hours, but not both: one of the ways
// to recompute then makes just that of the line, the first one too.
bool follows(const Figure& before, const Figure& rights, const Figure& hours,
             const Figure& balance) {
    return before.isWhole && rights.isWhole && hours.isWhole && balance.isWhole &&
           !balance.text.empty() && (rights.text.empty() || hours.text.empty()) &&
           balance.whole == before.whole + rights.whole - hours.whole;
}

// What any of the three ways to recompute makes of a line behind `before`, or of a first line. A
// first line that a removal left where it is may have any balance: it is held to its own figures.
std::vector<Fixed4> recomputed(const std::optional<Fixed4>& before, const dif::Figures& line) {
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

std::string hours(Fixed4 hundredths) {
    return dif::plainHours(Fixed4(hundredths.toDecimal().shifted(-dif::HundredthsPlaces)));
}

// Hundredths of an hour; 0 where they are not known.
std::uint32_t known(const Figure& figure) {
    const bool is = figure.isWhole && figure.whole > 0 && figure.whole <= UINT32_MAX;
    return is ? static_cast<std::uint32_t>(figure.whole) : 0;
}

// A date as a number: its digits, or, of what is no date, a number of its own.
std::uint32_t dateNumber(std::string_view date, Codes& others) {
    constexpr std::uint32_t BehindDates = 100000000;
    if (!components::DateConverter::isStored(date))
        return BehindDates + others.add(date);
    std::uint32_t number = 0;
    for (const char c : date)
        number = number * 10 + static_cast<std::uint32_t>(c - '0');
    return number;
}

} // namespace

// Tells the first balance that does not follow from the line before it.
void LedgerCheck::balances(const Record& record) const {
    const int lines = record.count(ledger::Date);
    Record::Values rights = record.values(ledger::Rights);
    Record::Values used = record.values(ledger::Hours);
    Record::Values stored = record.values(ledger::Balance);
    Figure before;
    for (int line = 1; line <= lines; ++line) {
        const Figure gain(rights.next());
        const Figure use(used.next());
        const Figure balance(stored.next());
        if (!follows(before, gain, use, balance)) {
            const std::optional<Fixed4> exact = balance.exact();
            if (!balance.text.empty() && !exact)
                return; // no number, which is told elsewhere: nothing follows from it
            const std::vector<Fixed4> right = recomputed(line > 1 ? before.exact() : std::nullopt,
                                                         {gain.exact(), use.exact(), {}});
            if (!exact || std::find(right.begin(), right.end(), *exact) == right.end()) {
                const Fixed4 found = exact.value_or(Fixed4());
                const std::string off = found > right.front()
                                            ? hours(found - right.front()) + " hours too many"
                                            : hours(right.front() - found) + " hours too few";
                tell_({ledger::File, std::string(record.key()), ledger::Balance, line,
                       std::string(balance.text),
                       std::string("does not follow from ") +
                           (line > 1 ? "the line before: " : "the hours of the first line: ") +
                           off + ", it should be " + right.front().toDecimal().toText(),
                       "look for the line that was changed; the form of the hours computes all "
                       "balances again"});
                return;
            }
        }
        before = balance;
    }
}

void LedgerCheck::trainingFile(const Record& record, Caregivers::Number caregiver) {
    Record::Values dates = record.values(training_file::Date);
    Record::Values codes = record.values(training_file::Training);
    Record::Values counts = record.values(training_file::CountsForDif);
    Record::Values lengths = record.values(training_file::Hours);
    const auto from = static_cast<std::ptrdiff_t>(trainings_.size());
    for (std::uint32_t line = 1; dates.more(); ++line) {
        const std::string_view date = dates.next();
        const std::string_view code = codes.next();
        const std::string_view count = counts.next();
        const Figure length(lengths.next());
        if (count.size() == 1 && count.front() == '1')
            trainings_.push_back(
                {dateNumber(date, noDates_), codes_.add(code), line, 0, known(length)});
    }
    const auto to = static_cast<std::ptrdiff_t>(trainings_.size());
    if (to == from)
        return;
    if (caregiver >= trainingsOf_.size())
        trainingsOf_.resize(caregiver + 1);
    trainingsOf_[caregiver] = {from, to};
}

LedgerCheck::Charges* LedgerCheck::charge(Caregivers::Number caregiver, std::string_view date,
                                          std::string_view code) {
    if (caregiver >= trainingsOf_.size())
        return nullptr;
    const std::uint32_t day = dateNumber(date, noDates_);
    const std::uint32_t training = codes_.find(code);
    Charges found{.first = -1, .trainings = 0, .theirs = 0, .lines = 0, .hours = 0};
    bool allKnown = true;
    const auto [from, to] = trainingsOf_[caregiver];
    const auto end = trainings_.begin() + to;
    for (auto one = trainings_.begin() + from; one != end; ++one)
        if (one->date == day && one->code == training) {
            one->charged = 1;
            if (found.trainings++ == 0)
                found.first = one - trainings_.begin();
            found.theirs += one->hours;
            allKnown &= one->hours > 0;
        }
    if (found.trainings == 0)
        return nullptr;
    if (!allKnown)
        found.theirs = 0;
    const auto seen = std::find_if(ofLedger_.begin(), ofLedger_.end(),
                                   [&](const Charges& one) { return one.first == found.first; });
    return seen != ofLedger_.end() ? &*seen : &ofLedger_.emplace_back(found);
}

void LedgerCheck::charges(const Record& record, Caregivers::Number caregiver) {
    Record::Values dates = record.values(ledger::Date);
    Record::Values codes = record.values(ledger::Training);
    Record::Values used = record.values(ledger::Hours);
    ofLedger_.clear();
    for (int line = 1; dates.more() && codes.more(); ++line) {
        const std::string_view date = dates.next();
        const std::string_view code = codes.next();
        const std::string_view hundredths = used.next();
        if (code.empty())
            continue;
        if (Charges* const charges = charge(caregiver, date, code)) {
            ++charges->lines;
            charges->hours += known(Figure(hundredths));
            if (charges->lines > charges->trainings && charges->theirs > 0 &&
                charges->hours > charges->theirs)
                tell_({ledger::File, std::string(record.key()), ledger::Hours, line,
                       std::string(hundredths),
                       "is line " + std::to_string(charges->lines) +
                           " of that day and code, where the training file has " +
                           std::to_string(charges->trainings) + " under OUI: " +
                           hours(Fixed4(text::Decimal::require(
                               std::to_string(charges->hours - charges->theirs)))) +
                           " hours too many",
                       "take the line out of the hours if the training was charged twice"});
        } else {
            tell_({ledger::File, std::string(record.key()), ledger::Training, line,
                   std::string(code),
                   "is charged, but the training file has no such training on that day that counts",
                   "take the line out of the hours; if the training took place, enter it then with "
                   "OUI"});
        }
    }
}

void LedgerCheck::ledger(const Record& record, const std::optional<LedgerKey>& key) {
    try {
        balances(record);
    } catch (const Error& error) {
        if (error.number() != errors::Overflow)
            throw;
        tell_({ledger::File, std::string(record.key()), 0, 0, "", "has figures beyond all hours",
               "mend the largest of them"});
    }
    if (key)
        charges(record, key->caregiver);
}

void LedgerCheck::complete() const {
    for (const Caregivers::Number caregiver : known_.caregivers().sorted()) {
        if (caregiver >= trainingsOf_.size() || unreadable_.contains(caregiver))
            continue;
        const auto [from, to] = trainingsOf_[caregiver];
        const auto end = trainings_.begin() + to;
        for (auto one = trainings_.begin() + from; one != end; ++one)
            if (one->charged == 0)
                tell_({training_file::File, known_.caregivers().code(caregiver),
                       training_file::Training, static_cast<int>(one->line), codes_[one->code],
                       "counts for the D.I.F. (OUI), but no employer is charged with it on that "
                       "day",
                       "open the training, choose NON and Ok; open it again, choose OUI, the "
                       "employer, Ok"});
    }
}

} // namespace vorandine::audit
