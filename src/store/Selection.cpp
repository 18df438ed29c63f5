// The executor: key range, conditions on the stored bytes, rows, sort.
#include "store/Selection.h"

#include "store/Comparison.h"
#include "store/RecordText.h"
#include "text/Collation.h"
#include "text/Error.h"

#include <algorithm>
#include <optional>
#include <utility>

namespace vorandine::store {
namespace {

std::string_view fieldText(std::string_view key, std::string_view record, int attribute) noexcept {
    return attribute == 0 ? key : attributeText(record, attribute);
}

// An attribute of several values satisfies a condition if one of its values does; an empty one
// counts as one empty value.
bool holds(const Condition& condition, std::string_view field) noexcept {
    for (std::size_t from = 0;;) {
        const std::size_t to = std::min(field.find(data::ValueMark, from), field.size());
        const std::string_view value = field.substr(from, to - from);
        if (std::any_of(condition.alternatives.begin(), condition.alternatives.end(),
                        [&](const Alternative& one) { return satisfies(value, one); }))
            return true;
        if (to == field.size())
            return false;
        from = to + 1;
    }
}

bool selected(const Request& request, std::string_view key, std::string_view record) noexcept {
    return std::all_of(request.conditions.begin(), request.conditions.end(),
                       [&](const Condition& condition) {
                           return holds(condition, fieldText(key, record, condition.attribute));
                       });
}

// The first text above all that begin with `prefix`; none if there is no such text.
std::optional<std::string> above(std::string prefix) {
    while (!prefix.empty() && prefix.back() == '\xFF')
        prefix.pop_back();
    if (prefix.empty())
        return std::nullopt;
    prefix.back() = static_cast<char>(static_cast<unsigned char>(prefix.back()) + 1);
    return prefix;
}

KeyRange rangeOf(const Alternative& alternative) {
    if (alternative.op != Operator::Equal)
        return {};
    if (alternative.beginsWith)
        return {alternative.value, above(alternative.value)};
    return {alternative.value, alternative.value + '\0'};
}

bool endsBefore(const std::optional<std::string>& a, const std::optional<std::string>& b) {
    return a && (!b || *a < *b);
}

// One row of the result, on its way to its place.
struct Row {
    std::string sortKey;
    std::string text;
};

class Rows {
  public:
    explicit Rows(const Request& request) : request_(request) {}

    void add(std::string_view key, std::string_view record) {
        if (request_.order.empty()) {
            if (count_++ > 0)
                unsorted_.push_back(data::AttributeMark);
            appendRow(unsorted_, key, record);
            return;
        }
        ++count_;
        Row& row = rows_.emplace_back();
        row.sortKey = sortKey(key, record);
        appendRow(row.text, key, record);
    }

    [[nodiscard]] data::DBARecord result() {
        std::string text = std::move(unsorted_);
        // Rows came in key order, which stays where the sort keys are equal.
        std::stable_sort(rows_.begin(), rows_.end(),
                         [](const Row& a, const Row& b) { return a.sortKey < b.sortKey; });
        for (std::size_t i = 0; i < rows_.size(); ++i) {
            if (i > 0)
                text.push_back(data::AttributeMark);
            text += rows_[i].text;
        }
        // An empty text has no attribute: a single row of one empty value must be set to be there.
        const bool oneEmptyRow = count_ == 1 && text.empty();
        data::DBARecord record(nullptr, std::string(), std::move(text));
        if (oneEmptyRow)
            record(1) = std::string();
        return record;
    }

  private:
    const Request& request_;
    std::size_t count_ = 0;
    std::string unsorted_;
    std::vector<Row> rows_;

    // All sort attributes in one text: no collation key holds a zero byte but its two of always.
    [[nodiscard]] std::string sortKey(std::string_view key, std::string_view record) const {
        std::string joined;
        for (const int attribute : request_.order) {
            joined += text::CollationKey(fieldText(key, record, attribute));
            joined.push_back('\0');
        }
        return joined;
    }

    void appendRow(std::string& row, std::string_view key, std::string_view record) const {
        for (std::size_t i = 0; i < request_.wanted.size(); ++i) {
            if (i > 0)
                row.push_back(data::ValueMark);
            const std::string_view field = fieldText(key, record, request_.wanted[i]);
            if (!isPlainRecord(field))
                throw Error(
                    errors::Damaged,
                    "Le fichier « " + request_.file +
                        " » contient une fiche endommagée, "
                        "qui n'est pas un texte lisible. Remplacez la base par une copie de "
                        "sauvegarde.");
            const std::size_t from = row.size();
            row += field;
            std::replace(row.begin() + static_cast<std::ptrdiff_t>(from), row.end(),
                         data::ValueMark, data::SubvalueMark);
        }
    }
};

} // namespace

KeyRange keyRange(const Request& request) {
    KeyRange range;
    for (const Condition& condition : request.conditions) {
        if (condition.attribute != 0)
            continue;
        // The hull of the alternatives, then what it has in common with the other conditions.
        KeyRange hull = rangeOf(condition.alternatives.front());
        for (const Alternative& alternative : condition.alternatives) {
            KeyRange one = rangeOf(alternative);
            hull.from = std::min(hull.from, one.from);
            if (endsBefore(hull.to, one.to))
                hull.to = std::move(one.to);
        }
        range.from = std::max(range.from, hull.from);
        if (endsBefore(hull.to, range.to))
            range.to = std::move(hull.to);
    }
    return range;
}

data::DBARecord select(const Request& request, EngineFile& file) {
    Rows rows(request);
    file.scan(keyRange(request), [&](std::string_view key, std::string_view record) {
        if (selected(request, key, record))
            rows.add(key, record);
        return true;
    });
    return rows.result();
}

} // namespace vorandine::store
