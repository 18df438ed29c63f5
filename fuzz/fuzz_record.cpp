// Records: any bytes are read the same by all who read records, and a record that is written to
// holds what a plain table of values would hold.
// An input is a record's whole text; behind each byte 0xFF stands one step: what is done, to which
// attribute and value, and the text written.
#include "Property.h"
#include "records/DBARecord.h"
#include "records/RecordText.h"

#include <algorithm>
#include <optional>

namespace vorandine {
namespace {

using fuzz::hold;
using fuzz::same;
using Values = std::vector<std::string>;

// Highest attribute and value touched: a record is as wide as the last attribute set.
constexpr int Highest = 12;

Values valuesOf(std::string_view attribute) {
    if (attribute.empty())
        return {};
    const auto pieces = fuzz::split(attribute, records::ValueMark);
    return {pieces.begin(), pieces.end()};
}

// The plain table of values.
class Table {
  public:
    explicit Table(std::string_view text) {
        if (text.empty())
            return;
        for (const std::string_view attribute : fuzz::split(text, records::AttributeMark))
            attributes_.push_back(valuesOf(attribute));
    }

    [[nodiscard]] int width() const { return static_cast<int>(attributes_.size()); }

    [[nodiscard]] std::string attribute(int a) const {
        std::string text;
        if (a < 1 || a > width())
            return text;
        for (const std::string& value : attributes_[static_cast<std::size_t>(a) - 1])
            text.append(value).push_back(records::ValueMark);
        return text.substr(0, text.empty() ? 0 : text.size() - 1);
    }

    [[nodiscard]] std::string whole() const {
        std::string text;
        for (int a = 1; a <= width(); ++a)
            text.append(attribute(a)).push_back(records::AttributeMark);
        return text.erase(text.find_last_not_of(records::AttributeMark) + 1);
    }

    // At least `count` values, empty ones added.
    Values& reach(int a, int count) {
        if (a > width())
            attributes_.resize(static_cast<std::size_t>(a));
        Values& values = attributes_[static_cast<std::size_t>(a) - 1];
        values.resize(std::max(values.size(), static_cast<std::size_t>(count)));
        return values;
    }

    void erase(int a, int v) {
        if (a < 1 || a > width() || v < 1)
            return;
        Values& values = attributes_[static_cast<std::size_t>(a) - 1];
        if (static_cast<std::size_t>(v) <= values.size())
            values.erase(values.begin() + (v - 1));
    }

  private:
    std::vector<Values> attributes_;
};

// The one thing done of a step that may be refused.
enum class Step { SetValue, Append, Insert, SetAttribute, Delete, Whole, Last = Whole };

void doStep(records::DBARecord& record, Step step, int a, int v, const std::string& text) {
    switch (step) {
    case Step::SetValue:
        record(a, v) = text;
        break;
    case Step::Append:
        record(a, -1) = text;
        break;
    case Step::Insert:
        record.Insert(a, v) = text;
        break;
    case Step::SetAttribute:
        record(a) = text;
        break;
    case Step::Delete:
        record.Delete(a, v);
        break;
    case Step::Whole:
        record() = text;
        break;
    }
}

// What is refused of the step: the error's number, none if it must be done.
std::optional<std::uint32_t> refusal(Step step, int a, int v, const std::string& text) {
    const bool ofAttribute = step == Step::SetAttribute;
    if (step == Step::Delete || step == Step::Whole)
        return std::nullopt;
    if (text.find(records::AttributeMark) != std::string::npos ||
        (!ofAttribute && text.find(records::ValueMark) != std::string::npos))
        return errors::TextRefused;
    const bool placed = step == Step::SetValue || step == Step::Insert;
    if (a < 1 || (placed && v < 1 && !(step == Step::SetValue && v == -1)))
        return errors::OutOfRange;
    return std::nullopt;
}

void doStep(Table& table, Step step, int a, int v, const std::string& text) {
    switch (step) {
    case Step::SetValue:
        if (v != -1) {
            table.reach(a, v)[static_cast<std::size_t>(v) - 1] = text;
            break;
        }
        [[fallthrough]];
    case Step::Append:
        table.reach(a, 0).push_back(text);
        break;
    case Step::Insert: {
        Values& values = table.reach(a, v - 1);
        values.insert(values.begin() + (v - 1), text);
        break;
    }
    case Step::SetAttribute:
        table.reach(a, 0) = valuesOf(text);
        break;
    case Step::Delete:
        table.erase(a, v);
        break;
    case Step::Whole:
        table = Table(text);
        break;
    }
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
            for (const std::string_view part : fuzz::split(value, records::SubvalueMark))
                plainResult = plainResult && text::IsPlain(part);
        }
    }
    same(records::attributeText(text, width), record(width), "so does one look at the last");
    hold(records::isPlainRecord(text) == plain, "a record is plain where its values are");
    hold(records::isPlainResult(text) == plainResult, "so is a result");
}

void checkAgainst(const Table& table, const records::DBARecord& record) {
    const std::string whole = record();
    same(whole, table.whole(), "the record holds what was written");
    hold(!whole.ends_with(records::AttributeMark), "a text does not end in empty attributes");
    hold(record.DCount() == table.width(), "attributes are counted to the last one set");
    const records::DBARecord reread(nullptr, {}, whole);
    same(reread(), whole, "the text reads back");
    for (int a = 1; a <= table.width(); ++a) {
        const std::string attribute = table.attribute(a);
        const Values values = valuesOf(attribute);
        same(record(a), attribute, "an attribute reads as it was written");
        same(reread(a), attribute, "also from the whole text");
        hold(record.DCount(a) == static_cast<int>(values.size()), "values are counted");
        hold(reread.DCount(a) == record.DCount(a), "also from the whole text");
        for (int v = 1; v <= static_cast<int>(values.size()); ++v)
            same(record(a, v), values[static_cast<std::size_t>(v) - 1],
                 "a value reads as it was written");
    }
}

void check(fuzz::Input input) {
    const std::string_view text = input.piece();
    checkReading(text);
    if (input.empty())
        return;
    Table table(text);
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
            fuzz::holdError(error, *refused);
            same(std::as_const(record)(), table.whole(), "a refusal changes nothing");
        }
    }
    checkAgainst(table, record);
    checkReading(table.whole());
}

} // namespace
} // namespace vorandine

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    vorandine::check({bytes, size});
    return 0;
}
