// The executor: key range, conditions on the stored bytes, rows, sort.
#include "store/Selection.h"

#include "records/RecordText.h"
#include "records/StoredFiles.h"
#include "store/Comparison.h"
#include "text/Collation.h"
#include "text/Error.h"

#include <algorithm>
#include <cstdint>
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
        return attribute == records::Key ? key_ : cursor_.text(attribute);
    }

  private:
    std::string_view key_;
    records::AttributeCursor cursor_;
};

// An attribute of several values satisfies a condition if one of its values does; an empty one
// counts as one empty value.
bool holds(const Condition& condition, std::string_view field) noexcept {
    for (std::size_t from = 0;;) {
        const std::size_t to = std::min(field.find(records::ValueMark, from), field.size());
        const std::string_view value = field.substr(from, to - from);
        if (std::any_of(condition.alternatives.begin(), condition.alternatives.end(),
                        [&](const Alternative& one) { return satisfies(value, one); }))
            return true;
        if (to == field.size())
            return false;
        from = to + 1;
    }
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

// The rows found so far. They stand in one text each after the other, not in one each: a request
// may find many.
class Rows {
  public:
    explicit Rows(const Request& request) : request_(request) {
        bytes_.reserve(UsualBytes);
        rows_.reserve(UsualRows);
    }

    void add(Fields& fields) {
        Row row;
        row.begin = bytes_.size();
        for (const int attribute : request_.order) {
            bytes_ += fields[attribute];
            bytes_.push_back(records::AttributeMark);
        }
        row.text = bytes_.size();
        appendText(fields);
        row.end = bytes_.size();
        rows_.push_back(row);
    }

    [[nodiscard]] records::DBARecord result() {
        sort();
        std::string text;
        text.reserve(bytes_.size());
        for (std::size_t i = 0; i < rows_.size(); ++i) {
            if (i > 0)
                text.push_back(records::AttributeMark);
            text.append(bytes_, rows_[i].text, rows_[i].end - rows_[i].text);
        }
        if (!records::isPlainResult(text))
            refuseDamaged();
        // An empty text has no attribute: a single row of one empty value must be set to be there.
        const bool oneEmptyRow = rows_.size() == 1 && text.empty();
        records::DBARecord record(nullptr, std::string(), std::move(text));
        if (oneEmptyRow)
            record(1) = std::string();
        return record;
    }

  private:
    // Room made at once: what a request on one caregiver finds.
    static constexpr std::size_t UsualRows = 16;
    static constexpr std::size_t UsualBytes = 1024;
    static constexpr std::size_t UsualKey = 24;

    struct Row {               // positions in bytes_
        std::size_t begin = 0; // of the texts to sort by, an attribute mark behind each
        std::size_t text = 0;  // of the row's text
        std::size_t end = 0;
        // The sort key being compared: its place in the text that holds them, and its beginning
        // as a number, which tells most keys apart.
        std::size_t key = 0;
        std::size_t keyEnd = 0;
        std::uint64_t keyStart = 0;
    };

    const Request& request_;
    std::string bytes_;
    std::vector<Row> rows_;

    // Sorts by the first attribute, then each run of rows that are equal so far by the next one: a
    // key is made once a row, and most often the first one settles it. Rows that are equal to the
    // end keep the order of their keys in the file, in which they stand in bytes_.
    void sort() {
        struct Run {
            std::size_t first, last, level;
        };
        std::vector<Run> runs{{0, rows_.size(), 0}};
        while (!runs.empty()) {
            const Run run = runs.back();
            runs.pop_back();
            if (run.level == request_.order.size() || run.last - run.first < 2)
                continue;
            const std::string keys = makeKeys(run.first, run.last, run.level);
            const auto key = [&](const Row& row) {
                return std::string_view(keys).substr(row.key, row.keyEnd - row.key);
            };
            const auto place = [&](std::size_t i) {
                return rows_.begin() + static_cast<std::ptrdiff_t>(i);
            };
            std::sort(place(run.first), place(run.last), [&](const Row& a, const Row& b) {
                if (a.keyStart != b.keyStart)
                    return a.keyStart < b.keyStart;
                const auto order = key(a) <=> key(b);
                return order != 0 ? order < 0 : a.begin < b.begin;
            });
            for (std::size_t first = run.first, i = first + 1; i <= run.last; ++i) {
                if (i < run.last && key(rows_[i]) == key(rows_[first]))
                    continue;
                runs.push_back({first, i, run.level + 1});
                first = i;
            }
        }
    }

    // The collation keys of rows `first` to `last` by sort attribute `level`, noted in the rows.
    [[nodiscard]] std::string makeKeys(std::size_t first, std::size_t last, std::size_t level) {
        std::string keys;
        keys.reserve((last - first) * UsualKey);
        for (std::size_t i = first; i < last; ++i) {
            Row& row = rows_[i];
            const std::string_view texts =
                std::string_view(bytes_).substr(row.begin, row.text - row.begin);
            row.key = keys.size();
            text::AppendCollationKey(keys,
                                     records::attributeText(texts, static_cast<int>(level) + 1));
            row.keyEnd = keys.size();
            row.keyStart = startOf(std::string_view(keys).substr(row.key));
        }
        return keys;
    }

    // The first eight bytes, zeros behind a shorter text, as a number of the same order.
    [[nodiscard]] static std::uint64_t startOf(std::string_view key) noexcept {
        std::uint64_t number = 0;
        for (std::size_t i = 0; i < sizeof number; ++i)
            number = number << 8U | (i < key.size() ? static_cast<unsigned char>(key[i]) : 0U);
        return number;
    }

    void appendText(Fields& fields) {
        for (std::size_t i = 0; i < request_.wanted.size(); ++i) {
            if (i > 0)
                bytes_.push_back(records::ValueMark);
            appendField(fields[request_.wanted[i]]);
        }
    }

    void appendField(std::string_view field) {
        // Most fields are one value; result() judges what they hold besides separators.
        if (std::none_of(field.begin(), field.end(), isMark)) {
            bytes_ += field;
            return;
        }
        for (const char c : field) {
            if (isMark(c) && c != records::ValueMark)
                refuseDamaged();
            bytes_.push_back(c == records::ValueMark ? records::SubvalueMark : c);
        }
    }

    // A separator of any kind, in a result.
    [[nodiscard]] static bool isMark(char c) noexcept {
        return static_cast<unsigned char>(c) >= static_cast<unsigned char>(records::SubvalueMark);
    }

    [[noreturn]] void refuseDamaged() const {
        throw Error(errors::Damaged,
                    "Le fichier « " + request_.file +
                        " » contient une fiche endommagée, qui n'est pas un texte lisible. "
                        "Remplacez la base par une copie de sauvegarde.");
    }
};

} // namespace

KeyRange keyRange(const Request& request) {
    KeyRange range;
    for (const Condition& condition : request.conditions) {
        if (condition.attribute != records::Key)
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

namespace {

// The conditions that the key range leaves to be looked at, those of the first attributes first: a
// record is then passed over once.
std::vector<const Condition*> remaining(const Request& request) {
    std::vector<const Condition*> conditions;
    for (const Condition& condition : request.conditions) {
        const bool settled = condition.attribute == records::Key &&
                             condition.alternatives.size() == 1 &&
                             condition.alternatives.front().op == Operator::Equal;
        if (!settled)
            conditions.push_back(&condition);
    }
    std::stable_sort(
        conditions.begin(), conditions.end(),
        [](const Condition* a, const Condition* b) { return a->attribute < b->attribute; });
    return conditions;
}

} // namespace

records::DBARecord select(const Request& request, EngineFile& file) {
    const std::vector<const Condition*> conditions = remaining(request);
    Rows rows(request);
    file.scan(keyRange(request), [&](std::string_view key, std::string_view record) {
        Fields fields(key, record);
        if (std::all_of(conditions.begin(), conditions.end(), [&](const Condition* condition) {
                return holds(*condition, fields[condition->attribute]);
            }))
            rows.add(fields);
        return true;
    });
    return rows.result();
}

} // namespace vorandine::store
