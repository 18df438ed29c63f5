// Values against the table of layouts.
#include "audit/check/Checks.h"
#include "components/DateConverter.h"
#include "records/DBARecord.h"
#include "text/Decimal.h"

#include <algorithm>

namespace vorandine::audit {
namespace {

bool digits(std::string_view text) {
    return !text.empty() &&
           std::all_of(text.begin(), text.end(), [](char c) { return c >= '0' && c <= '9'; });
}

// Whether there is nothing but digits in any value: most attributes of figures are so.
bool onlyDigits(std::string_view values) {
    return std::all_of(values.begin(), values.end(),
                       [](char c) { return (c >= '0' && c <= '9') || c == records::ValueMark; });
}

// Year and month, of four and two digits.
bool isPeriod(std::string_view text) {
    if (text.size() != 6 || !digits(text) || text.front() == '0')
        return false;
    const int month = (text[4] - '0') * 10 + (text[5] - '0');
    return month >= 1 && month <= 12;
}

// `choices` have blanks between.
bool isChoice(std::string_view value, std::string_view choices) {
    for (;;) {
        const std::size_t blank = choices.find(' ');
        if (choices.substr(0, blank) == value)
            return true;
        if (blank == std::string_view::npos)
            return false;
        choices.remove_prefix(blank + 1);
    }
}

constexpr const char* AddCode = "mend the code, or add it where it is missing";
constexpr const char* NoHours = "is no whole number of hundredths of an hour";

} // namespace

void LayoutCheck::find(const Record& record, int attribute, int position, std::string_view value,
                       const std::string& problem, const std::string& advice) const {
    tell_({file_, std::string(record.key()), attribute, position, std::string(value), problem,
           advice});
}

void LayoutCheck::look(const Record& record) const {
    int counted = 0; // the list that tells how many lines there are, and how many it tells
    int lines = 0;
    for (const records::AttributeLayout& attribute : attributes_) {
        if (record(attribute.attribute).empty())
            continue;
        const int count = values(record, attribute);
        if (attribute.countedBy() != 0 && attribute.countedBy() != counted) {
            counted = attribute.countedBy();
            lines = record.count(counted);
        }
        if ((attribute.values == records::Values::One && count > 1) ||
            (attribute.countedBy() != 0 && count > lines))
            lengths(record, attribute, count, lines);
    }
}

void LayoutCheck::lengths(const Record& record, const records::AttributeLayout& attribute,
                          int count, int lines) const {
    const int number = attribute.attribute;
    const auto at = [&](int position) {
        Record::Values values = record.values(number);
        while (--position > 0)
            values.next();
        return values.next();
    };
    if (attribute.values == records::Values::One && count > 1)
        find(record, number, 2, at(2),
             "is one of " + std::to_string(count) + " values, where one is read",
             "leave one value in the attribute");
    if (attribute.countedBy() != 0 && count > lines)
        find(record, number, lines + 1, at(lines + 1),
             "is beyond the " + std::to_string(lines) + " values of attribute " +
                 std::to_string(attribute.countedBy()) + ", which tells how many lines there are",
             "remove it, or give its line a value in attribute " +
                 std::to_string(attribute.countedBy()));
}

int LayoutCheck::values(const Record& record, const records::AttributeLayout& attribute) const {
    // One loop a kind: what is asked of a value is known before its values are met.
    const auto hold = [&](const auto& right, const char* problem, const char* advice) {
        int position = 0;
        for (Record::Values values = record.values(attribute.attribute); values.more();) {
            const std::string_view value = values.next();
            ++position;
            if (!value.empty() && !right(value))
                find(record, attribute.attribute, position, value, problem, advice);
        }
        return position;
    };
    const auto isIn = [](const Codes& codes) {
        return [&](std::string_view value) { return codes.contains(value); };
    };
    switch (attribute.kind) {
    case records::Kind::Text:
        break;
    case records::Kind::Date: {
        int dates = 0;
        bool inOrder = true;
        std::string_view before;
        const int count = hold(
            [&](std::string_view value) {
                if (++dates > 1)
                    inOrder &= attribute.order == records::Order::Rising ? value >= before
                                                                         : before >= value;
                before = value;
                return components::DateConverter::isStored(value);
            },
            "is no date", "store a date as yyyymmdd, or nothing");
        if (attribute.order != records::Order::Free && (!inOrder || dates < count))
            order(record, attribute);
        return count;
    }
    case records::Kind::Hours:
        if (onlyDigits(record(attribute.attribute)))
            break;
        return hold(digits, NoHours, "store 7,50 hours as 750");
    case records::Kind::Balance:
        if (onlyDigits(record(attribute.attribute)))
            break;
        return hold(
            [](std::string_view value) {
                return digits(value.substr(value.starts_with('-') ? 1 : 0));
            },
            NoHours, "store 7,50 hours as 750, below zero with a minus sign");
    case records::Kind::Figure:
        return hold(text::Decimal::isNumber, "is no number",
                    "store a number with a decimal comma, such as 752,40");
    case records::Kind::Whole:
        return hold(digits, "is no whole number", "store digits alone");
    case records::Kind::Period:
        return hold(isPeriod, "is no period", "store year and month as yyyymm");
    case records::Kind::Choice:
        return hold([&](std::string_view value) { return isChoice(value, attribute.choices); },
                    "is none of the values that have a meaning",
                    "store one of those that docs/store.md lists");
    case records::Kind::Study:
        return hold(isIn(known_.studies()), "is no code of the table DIPLOMES", AddCode);
    case records::Kind::Training:
        return hold(isIn(known_.trainings()), "is no code of the table FORMPRO", AddCode);
    case records::Kind::Qualification:
        return hold(isIn(known_.qualifications()), "is no entry of the table QUALIF",
                    "choose another qualification, or add it to the table");
    case records::Kind::Activity:
        return hold(
            [&](std::string_view value) {
                return value == attribute.choices || known_.activities().contains(value);
            },
            "is no code of ACTIVITES", AddCode);
    case records::Kind::Employer:
        return hold(
            [&](std::string_view value) {
                return known_.nameOf(known_.employer(value)) != nullptr;
            },
            "is no code of ASSOCIATION (3 characters) or CIVILAIDE (any other length)", AddCode);
    }
    return record.count(attribute.attribute);
}

// The first date that stands in the wrong place. What is no date is told already.
void LayoutCheck::order(const Record& record, const records::AttributeLayout& attribute) const {
    using components::DateConverter;
    const bool rising = attribute.order == records::Order::Rising;
    Record::Values values = record.values(attribute.attribute);
    std::string_view before = values.next();
    for (int position = 2; values.more(); ++position) {
        const std::string_view date = values.next();
        if (rising && date.empty())
            continue;
        if ((rising ? date < before : before < date) && DateConverter::isStored(date) &&
            (before.empty() || DateConverter::isStored(before)))
            return find(record, attribute.attribute, position, date,
                        rising ? "is earlier than the date before it"
                               : "is later than the date before it",
                        rising ? "put the lines in order, oldest first, with all their attributes"
                               : "put the lines in order, latest first, with all their attributes");
        before = date;
    }
}

} // namespace vorandine::audit
