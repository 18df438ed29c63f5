// Records: any bytes are read the same by all who read records, and a record that is written to
// holds what a plain table of values would hold.
// An input is a record's whole text; behind each byte 0xFF stands one step: what is done, to which
// attribute and value, and the text written.
#include "Property.h"
#include "records/DBARecord.h"
#include "records/RecordText.h"

#include <algorithm>
#include <optional>

namespace vorandine::fuzz {
namespace {

using Values = std::vector<std::string>;

// Highest attribute and value touched: a record is as wide as the last attribute set.
constexpr int Highest = 12;

Values valuesOf(std::string_view attribute) {
    if (attribute.empty())
        return {};
    const auto pieces = split(attribute, records::ValueMark);
    return {pieces.begin(), pieces.end()};
}

// The plain table of values.
using Table = std::vector<Values>;

Table tableOf(std::string_view text) {
    Table table;
    if (!text.empty())
        for (const std::string_view attribute : split(text, records::AttributeMark))
            table.push_back(valuesOf(attribute));
    return table;
}

std::string joined(const Values& values, char mark) {
    std::string text;
    for (const std::string& value : values)
        text.append(value).push_back(mark);
    return text.substr(0, text.empty() ? 0 : text.size() - 1);
}

std::string wholeOf(const Table& table) {
    Values attributes;
    for (const Values& values : table)
        attributes.push_back(joined(values, records::ValueMark));
    std::string text = joined(attributes, records::AttributeMark);
    return text.erase(text.find_last_not_of(records::AttributeMark) + 1);
}

// The one thing done of a step that may be refused.
enum class Step { SetValue, Append, Insert, SetAttribute, Delete, Whole, Last = Whole };

void doStep(records::DBARecord& record, Step step, int a, int v, const std::string& text) {
    if (step == Step::SetValue)
        record(a, v) = text;
    else if (step == Step::Append)
        record(a, -1) = text;
    else if (step == Step::Insert)
        record.Insert(a, v) = text;
    else if (step == Step::SetAttribute)
        record(a) = text;
    else if (step == Step::Delete)
        record.Delete(a, v);
    else
        record() = text;
}

// What is refused of the step: the error's number, none if it must be done.
std::optional<std::uint32_t> refusal(Step step, int a, int v, const std::string& text) {
    if (step == Step::Delete || step == Step::Whole)
        return std::nullopt;
    if (text.find(records::AttributeMark) != std::string::npos ||
        (step != Step::SetAttribute && text.find(records::ValueMark) != std::string::npos))
        return errors::TextRefused;
    const bool placed = step == Step::SetValue || step == Step::Insert;
    if (a < 1 || (placed && v < 1 && !(step == Step::SetValue && v == -1)))
        return errors::OutOfRange;
    return std::nullopt;
}

void doStep(Table& table, Step step, int a, int v, const std::string& text) {
    if (step == Step::Whole) {
        table = tableOf(text);
        return;
    }
    const auto column = static_cast<std::size_t>(a) - 1;
    if (step == Step::Delete) {
        if (a >= 1 && column < table.size() && v >= 1 &&
            v <= static_cast<int>(table[column].size()))
            table[column].erase(table[column].begin() + (v - 1));
        return;
    }
    table.resize(std::max(table.size(), column + 1));
    Values& values = table[column];
    const bool placed = step == Step::Insert || (step == Step::SetValue && v != -1);
    const int count = step == Step::Insert ? v - 1 : v;
    if (placed && count > static_cast<int>(values.size()))
        values.resize(static_cast<std::size_t>(count));
    if (step == Step::SetAttribute)
        values = valuesOf(text);
    else if (!placed)
        values.push_back(text);
    else if (step == Step::Insert)
        values.insert(values.begin() + (v - 1), text);
    else
        values[static_cast<std::size_t>(v) - 1] = text;
}

// Reads the bytes in every way there is.
void checkReading(std::string_view text) {
    const records::DBARecord record(nullptr, {}, std::string(text));
    bool plain = true;
    bool plainResult = true;
    records::AttributeCursor ascending(text);
    records::AttributeCursor hopping(text);
    const int width = record.DCount();
    for (int a = 1; a <= width + 1; ++a) {
        const std::string attribute = record(a);
        same(ascending.text(a), attribute, "cursor and record read the same");
        same(hopping.text(a * 7 % (width + 1)), record(a * 7 % (width + 1)),
             "in any order, cursor and record read the same");
        for (int v = 1; v <= std::max(1, record.DCount(a)); ++v) {
            const std::string value = record(a, v);
            plain = plain && text::IsPlain(value);
            for (const std::string_view part : split(value, records::SubvalueMark))
                plainResult = plainResult && text::IsPlain(part);
        }
    }
    same(records::attributeText(text, width), record(width), "so does one look at the last");
    hold(records::isPlainRecord(text) == plain, "a record is plain where its values are");
    hold(records::isPlainResult(text) == plainResult, "so is a result");
}

void checkAgainst(const Table& table, const records::DBARecord& record) {
    const std::string whole = record();
    same(whole, wholeOf(table), "the record holds what was written");
    hold(!whole.ends_with(records::AttributeMark), "a text does not end in empty attributes");
    hold(record.DCount() == static_cast<int>(table.size()),
         "attributes are counted to the last one set");
    const records::DBARecord reread(nullptr, {}, whole);
    same(reread(), whole, "the text reads back");
    for (int a = 1; a <= record.DCount(); ++a) {
        const std::string attribute =
            joined(table[static_cast<std::size_t>(a) - 1], records::ValueMark);
        const Values values = valuesOf(attribute);
        same(record(a), attribute, "an attribute reads as it was written");
        same(reread(a), attribute, "also from the whole text");
        hold(record.DCount(a) == static_cast<int>(values.size()), "values are counted");
        hold(reread.DCount(a) == record.DCount(a), "also from the whole text");
        for (int v = 1; v <= record.DCount(a); ++v)
            same(record(a, v), values[static_cast<std::size_t>(v) - 1],
                 "a value reads as it was written");
    }
}

} // namespace

void check(Input input) {
    const std::string_view text = input.piece();
    checkReading(text);
    if (input.empty())
        return;
    Table table = tableOf(text);
    records::DBARecord record(nullptr, {}, std::string(text));
    while (!input.empty()) {
        const auto step = static_cast<Step>(input.number(static_cast<int>(Step::Last)));
        const int a = input.number(Highest + 1) - 1;
        const int v = input.number(Highest + 2) - 2;
        const std::string written(input.piece());
        const auto refused = refusal(step, a, v, written);
        try {
            doStep(record, step, a, v, written);
            hold(!refused, "what cannot be written is refused");
            doStep(table, step, a, v, written);
        } catch (const Error& error) {
            hold(refused.has_value(), "what can be written is taken");
            holdError(error, *refused);
            same(std::as_const(record)(), wholeOf(table), "a refusal changes nothing");
        }
    }
    checkAgainst(table, record);
    checkReading(wholeOf(table));
}

} // namespace vorandine::fuzz
