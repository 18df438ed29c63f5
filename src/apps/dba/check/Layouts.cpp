// Values against the table of layouts.
#include "apps/dba/Layout.h"
#include "apps/dba/check/Checks.h"
#include "apps/dba/check/Records.h"
#include "components/DateConverter.h"
#include "dif/Employers.h"
#include "text/Decimal.h"

#include <algorithm>

namespace vorandine::dba {
namespace {

bool digits(std::string_view text) {
    return !text.empty() &&
           std::all_of(text.begin(), text.end(), [](char c) { return c >= '0' && c <= '9'; });
}

bool isDate(const std::string& value) {
    static const components::DateConverter dates([] { return widgets::Date{}; });
    return dates.Date_Affichee(value) != value;
}

bool isPeriod(const std::string& value) {
    return digits(value) && value.size() == 6 && isDate(value + "01");
}

bool isChoice(const std::string& value, std::string_view choices) {
    return value.find(' ') == std::string::npos &&
           (' ' + std::string(choices) + ' ').find(' ' + value + ' ') != std::string::npos;
}

struct Verdict {
    const char* problem = nullptr; // none: the value is right
    const char* advice = nullptr;
};

constexpr const char* AddCode = "mend the code, or add it where it is missing";

Verdict judge(const std::string& value, const AttributeLayout& layout, const Known& known) {
    const auto in = [](bool holds, const char* problem, const char* advice) {
        return holds ? Verdict{} : Verdict{problem, advice};
    };
    const std::string_view unsignedValue =
        value.starts_with('-') ? std::string_view(value).substr(1) : value;
    switch (layout.kind) {
    case Kind::Text:
        break;
    case Kind::Date:
        return in(isDate(value), "is no date", "store a date as yyyymmdd, or nothing");
    case Kind::Hours:
        return in(digits(value), "is no whole number of hundredths of an hour",
                  "store 7,50 hours as 750");
    case Kind::Balance:
        return in(digits(unsignedValue), "is no whole number of hundredths of an hour",
                  "store 7,50 hours as 750, below zero with a minus sign");
    case Kind::Figure:
        return in(text::Decimal::parse(value).has_value(), "is no number",
                  "store a number with a decimal comma, such as 752,40");
    case Kind::Whole:
        return in(digits(value), "is no whole number", "store digits alone");
    case Kind::Period:
        return in(isPeriod(value), "is no period", "store year and month as yyyymm");
    case Kind::Choice:
        return in(isChoice(value, layout.choices), "is none of the values that have a meaning",
                  "store one of those that docs/store.md lists");
    case Kind::Study:
        return in(known.studies().contains(value), "is no code of the table DIPLOMES", AddCode);
    case Kind::Training:
        return in(known.trainings().contains(value), "is no code of the table FORMPRO", AddCode);
    case Kind::Qualification:
        return in(known.qualifications().contains(value), "is no entry of the table QUALIF",
                  "choose another qualification, or add it to the table");
    case Kind::Activity:
        return in(value == "*" || known.activities().contains(value), "is no code of ACTIVITES",
                  AddCode);
    case Kind::Employer:
        return in(known.employer(dif::employerCode(value)) != nullptr,
                  "is no code of ASSOCIATION (3 characters) or CIVILAIDE (any other length)",
                  AddCode);
    }
    return {};
}

class LayoutCheck {
  public:
    LayoutCheck(const std::string& file, const Known& known, const TellFinding& tell)
        : file_(file), known_(known), tell_(tell) {}

    void look(const data::DBARecord& record) const {
        for (const AttributeLayout& attribute : layout(file_)) {
            const int count = record.DCount(attribute.attribute);
            if (count == 0)
                continue;
            lengths(record, attribute, count);
            for (int i = 1; i <= count; ++i)
                value(record, attribute, i);
            if (attribute.order != Order::Free)
                order(record, attribute, count);
        }
    }

  private:
    const std::string& file_;
    const Known& known_;
    const TellFinding& tell_;

    void find(const data::DBARecord& record, int attribute, int position,
              const std::string& problem, const std::string& advice) const {
        tell_({file_, record.key(), attribute, position,
               position > 0 ? record(attribute, position) : std::string(), problem, advice});
    }

    void lengths(const data::DBARecord& record, const AttributeLayout& attribute, int count) const {
        const int number = attribute.attribute;
        if (attribute.values == Values::One && count > 1)
            find(record, number, 2,
                 "is one of " + std::to_string(count) + " values, where one is read",
                 "leave one value in the attribute");
        if (attribute.countedBy == 0)
            return;
        const int lines = record.DCount(attribute.countedBy);
        if (count > lines)
            find(record, number, lines + 1,
                 "is beyond the " + std::to_string(lines) + " values of attribute " +
                     std::to_string(attribute.countedBy) + ", which tells how many lines there are",
                 "remove it, or give its line a value in attribute " +
                     std::to_string(attribute.countedBy));
    }

    void value(const data::DBARecord& record, const AttributeLayout& attribute, int i) const {
        const std::string stored = record(attribute.attribute, i);
        if (stored.empty())
            return;
        const Verdict verdict = judge(stored, attribute, known_);
        if (verdict.problem != nullptr)
            find(record, attribute.attribute, i, verdict.problem, verdict.advice);
    }

    // The first date that stands in the wrong place.
    void order(const data::DBARecord& record, const AttributeLayout& attribute, int count) const {
        const bool rising = attribute.order == Order::Rising;
        std::string before = record(attribute.attribute, 1);
        for (int i = 2; i <= count; ++i) {
            const std::string date = record(attribute.attribute, i);
            if (rising && (date.empty() || before.empty())) {
                before = date.empty() ? before : date;
                continue;
            }
            if (rising ? date < before : date > before) {
                find(record, attribute.attribute, i,
                     rising ? "is earlier than the date before it"
                            : "is later than the date before it",
                     rising ? "put the lines in order, oldest first, with all their attributes"
                            : "put the lines in order, latest first, with all their attributes");
                return;
            }
            before = date;
        }
    }
};

} // namespace

void checkLayouts(store::Engine& engine, const Known& known, const TellFinding& tell,
                  const std::function<void()>& step) {
    for (const std::string& file : engine.files()) {
        const LayoutCheck check(file, known, tell);
        engine.file(file)->scan({}, [&](std::string_view key, std::string_view text) {
            step();
            if (!text::IsPlain(key) || !store::isPlainRecord(text))
                tell({file, text::IsPlain(key) ? std::string(key) : "(unreadable key)", 0, 0, "",
                      "is damaged: it is no readable text",
                      "store the record anew, or take it from a copy of the store"});
            else
                check.look(data::DBARecord(nullptr, std::string(key), std::string(text)));
            return true;
        });
    }
}

} // namespace vorandine::dba
