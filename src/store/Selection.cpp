// The executor: key range, conditions on the stored bytes, rows, sort.
#include "store/Selection.h"

#include "store/Comparison.h"
#include "store/RecordText.h"
#include "text/Collation.h"
#include "text/Error.h"

#include <algorithm>
#include <optional>
#include <utility>
#include <vector>

namespace vorandine::store {
namespace {

// One stored record; attribute 0 is its key.
class Fields {
  public:
    Fields(std::string_view key, std::string_view record) noexcept : key_(key), cursor_(record) {}

    [[nodiscard]] std::string_view operator[](int attribute) noexcept {
        return attribute == 0 ? key_ : cursor_.text(attribute);
    }

  private:
    std::string_view key_;
    AttributeCursor cursor_;
};

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

bool selected(const Request& request, Fields& fields) noexcept {
    return std::all_of(
        request.conditions.begin(), request.conditions.end(),
        [&](const Condition& condition) { return holds(condition, fields[condition.attribute]); });
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

// The rows found so far. Their texts and sort keys stand in one text each after the other, not in
// one each: a request may find many.
class Rows {
  public:
    explicit Rows(const Request& request) : request_(request), needed_(request.order), texts_() {
        needed_.insert(needed_.end(), request.wanted.begin(), request.wanted.end());
        std::sort(needed_.begin(), needed_.end());
        needed_.erase(std::unique(needed_.begin(), needed_.end()), needed_.end());
        texts_.resize(needed_.size());
        order_ = placesOf(request.order);
        wanted_ = placesOf(request.wanted);
    }

    void add(Fields& fields) {
        for (std::size_t i = 0; i < needed_.size(); ++i)
            texts_[i] = fields[needed_[i]];
        Row row;
        row.sortKey = bytes_.size();
        for (const std::size_t place : order_) {
            text::AppendCollationKey(bytes_, texts_[place]);
            bytes_.push_back('\0'); // lower than any weight: the shorter of two keys comes first
        }
        row.text = bytes_.size();
        appendRow();
        row.end = bytes_.size();
        rows_.push_back(row);
    }

    [[nodiscard]] data::DBARecord result() {
        // Rows came in key order, which stays where the sort keys are equal.
        if (!request_.order.empty())
            std::stable_sort(rows_.begin(), rows_.end(),
                             [&](const Row& a, const Row& b) { return sortKey(a) < sortKey(b); });
        std::string text;
        text.reserve(bytes_.size());
        for (std::size_t i = 0; i < rows_.size(); ++i) {
            if (i > 0)
                text.push_back(data::AttributeMark);
            text.append(bytes_, rows_[i].text, rows_[i].end - rows_[i].text);
        }
        // An empty text has no attribute: a single row of one empty value must be set to be there.
        const bool oneEmptyRow = rows_.size() == 1 && text.empty();
        data::DBARecord record(nullptr, std::string(), std::move(text));
        if (oneEmptyRow)
            record(1) = std::string();
        return record;
    }

  private:
    struct Row { // positions in bytes_
        std::size_t sortKey = 0;
        std::size_t text = 0;
        std::size_t end = 0;
    };

    const Request& request_;
    std::vector<int> needed_;             // attributes of order and wanted, ascending, once each
    std::vector<std::string_view> texts_; // theirs, of the record in hand
    std::vector<std::size_t> order_;      // places in texts_
    std::vector<std::size_t> wanted_;
    std::string bytes_;
    std::vector<Row> rows_;

    [[nodiscard]] std::string_view sortKey(const Row& row) const noexcept {
        return std::string_view(bytes_).substr(row.sortKey, row.text - row.sortKey);
    }

    [[nodiscard]] std::vector<std::size_t> placesOf(const std::vector<int>& attributes) const {
        std::vector<std::size_t> places;
        places.reserve(attributes.size());
        for (const int attribute : attributes)
            places.push_back(static_cast<std::size_t>(
                std::lower_bound(needed_.begin(), needed_.end(), attribute) - needed_.begin()));
        return places;
    }

    void appendRow() {
        const std::size_t from = bytes_.size();
        for (std::size_t i = 0; i < wanted_.size(); ++i) {
            if (i > 0)
                bytes_.push_back(data::ValueMark);
            bytes_ += texts_[wanted_[i]];
        }
        if (!isPlainRecord(std::string_view(bytes_).substr(from)))
            throw Error(errors::Damaged,
                        "Le fichier « " + request_.file +
                            " » contient une fiche endommagée, qui n'est pas un texte lisible. "
                            "Remplacez la base par une copie de sauvegarde.");
        auto at = bytes_.begin() + static_cast<std::ptrdiff_t>(from);
        for (const std::size_t place : wanted_) {
            const auto end = at + static_cast<std::ptrdiff_t>(texts_[place].size());
            std::replace(at, end, data::ValueMark, data::SubvalueMark);
            at = end == bytes_.end() ? end : end + 1;
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
        Fields fields(key, record);
        if (selected(request, fields))
            rows.add(fields);
        return true;
    });
    return rows.result();
}

} // namespace vorandine::store
