// Attributes are compared value by value; the lists of a ledger are one table, line by line.
#include "audit/history/Statement.h"

#include "audit/history/Differences.h"
#include "components/DateConverter.h"
#include "records/Layout.h"
#include "records/StoredFiles.h"
#include "rules/Numbers.h"
#include "text/Characters.h"

#include <algorithm>
#include <vector>

namespace vorandine::audit {
namespace {

namespace ledger = records::ledger;

std::vector<std::string> valuesOf(const records::DBARecord& record, int attribute) {
    std::vector<std::string> values;
    for (int i = 1; i <= record.DCount(attribute); ++i)
        values.push_back(record(attribute, i));
    return values;
}

std::string joined(const records::DBARecord& record, int attribute) {
    std::string text;
    for (const std::string& value : valuesOf(record, attribute))
        text += (text.empty() ? "" : " | ") + value;
    return text;
}

class ByAttributes : public Statement {
  public:
    explicit ByAttributes(std::string file)
        : Statement(text::Table({"CHANGE", "ATTRIBUTE", "VALUE", "BEFORE", "AFTER", "MEANING"})),
          file_(std::move(file)) {}

    void tell(const records::DBARecord& before, const records::DBARecord& after) override {
        const int last = std::max(before.DCount(), after.DCount());
        for (int attribute = 1; attribute <= last; ++attribute)
            tell(attribute, valuesOf(before, attribute), valuesOf(after, attribute));
    }

  private:
    std::string file_;

    [[nodiscard]] const char* word(const Step& step) const {
        if (!step.before)
            return came_;
        return step.after ? "changed" : "gone";
    }

    void tell(int attribute, const std::vector<std::string>& before,
              const std::vector<std::string>& after) {
        const records::AttributeLayout* const known = records::layout(file_, attribute);
        const bool list =
            before.size() > 1 || after.size() > 1 || (known != nullptr && known->list());
        for (const Step& step : differences(before, after)) {
            if (step.same)
                continue;
            const std::size_t position = step.after.value_or(step.before.value_or(0)) + 1;
            table_.add({word(step), records::headOf(file_, attribute),
                        list ? std::to_string(position) : "",
                        step.before ? before[*step.before] : "",
                        step.after ? after[*step.after] : "",
                        known == nullptr ? "" : std::string(known->meaning)});
        }
    }
};

// Figures and dates as the screen shows them; what does not convert, as it is stored.
std::string hours(const std::string& stored) {
    const auto hundredths = text::Decimal::parse(stored);
    return hundredths ? text::Trim(rules::Format_Numerique(
                            hundredths->shifted(-rules::HundredthsPlaces), 1, 2, false))
                      : stored;
}

std::string date(const std::string& stored) {
    static const components::DateConverter dates([] { return widgets::Date{}; });
    return dates.Date_Affichee(stored);
}

class OfHours : public Statement {
  public:
    OfHours()
        : Statement(text::Table(
              {"CHANGE", "LINE", "DATE", "GAINED", "USED", "TRAINING", "BALANCE", "WAS"})) {}

    // A line whose balance alone differs is the same line: the change was made further up.
    void tell(const records::DBARecord& before, const records::DBARecord& after) override {
        for (const Step& step : differences(linesOf(before), linesOf(after))) {
            const std::string old = step.before ? balance(before, *step.before) : "";
            if (!step.same) {
                if (step.before && step.after)
                    add("was", before, *step.before, "");
                if (step.after)
                    add(step.before ? "is" : came_, after, *step.after, "");
                else
                    add("gone", before, *step.before, "");
            } else if (old != balance(after, *step.after)) {
                add("balance", after, *step.after, old);
            }
        }
        for (int attribute = ledger::Carried;
             attribute <= std::max(before.DCount(), after.DCount()); ++attribute)
            if (before(attribute) != after(attribute))
                heading("attribute " + std::to_string(attribute) + " was '" +
                        joined(before, attribute) + "', is '" + joined(after, attribute) + "'");
    }

  private:
    static std::string balance(const records::DBARecord& record, std::size_t line) {
        return hours(record(ledger::Balance, static_cast<int>(line) + 1));
    }

    // What makes a line the one it is.
    static std::vector<std::string> linesOf(const records::DBARecord& record) {
        std::vector<std::string> lines;
        for (int i = 1; i <= record.DCount(ledger::Date); ++i)
            lines.push_back(record(ledger::Date, i) + ' ' + record(ledger::Rights, i) + ' ' +
                            record(ledger::Hours, i) + ' ' + record(ledger::Training, i));
        return lines;
    }

    void add(const char* word, const records::DBARecord& record, std::size_t line,
             const std::string& balanceBefore) {
        const int i = static_cast<int>(line) + 1;
        table_.add({word, std::to_string(i), date(record(ledger::Date, i)),
                    hours(record(ledger::Rights, i)), hours(record(ledger::Hours, i)),
                    record(ledger::Training, i), balance(record, line), balanceBefore});
    }
};

} // namespace

std::unique_ptr<Statement> statementFor(const std::string& file) {
    if (file == ledger::File)
        return std::make_unique<OfHours>();
    return std::make_unique<ByAttributes>(file);
}

} // namespace vorandine::audit
