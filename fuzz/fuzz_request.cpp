// Requests: whatever is asked, the parser answers with a tree or with a refusal that can be shown,
// and the rows found are those that a look at every record finds.
// An input is a request's whole text; behind a byte 0xFF may stand a key, behind another a record.
#include "Property.h"
#include "ports/Query.h"
#include "records/RecordText.h"
#include "store/Comparison.h"
#include "store/Selection.h"
#include "store/memory/MemoryEngine.h"
#include "text/Collation.h"

#include <charconv>
#include <memory>
#include <optional>
#include <set>

namespace vorandine::fuzz {
namespace {

struct Row {
    std::string key;
    std::string record;
    std::vector<std::string_view> attributes; // lie in the record

    Row(std::string_view itsKey, std::string_view itsRecord) : key(itsKey), record(itsRecord) {
        attributes = split(record, records::AttributeMark);
    }
    Row(const Row&) = delete;
    Row& operator=(const Row&) = delete;

    [[nodiscard]] std::string_view field(int attribute) const {
        if (attribute == 0)
            return key;
        const auto at = static_cast<std::size_t>(attribute) - 1;
        return at < attributes.size() ? attributes[at] : std::string_view();
    }
};

// Made once: keys that begin each other, equal sort texts, lists, numbers of many forms, nothing.
struct Stored {
    store::MemoryEngine engine;
    store::EngineFile& file = *engine.file("CONTRAT");
    std::vector<std::unique_ptr<Row>> rows;

    Stored() {
        const char* const records[][2] = {
            {"0", "\xFE\xFE"
                  "7"},
            {"00012*1", "\xFE\xFEPSD\xFE"
                        "Ménard\xFELéa\xFE\xFE"
                        "20050501"},
            {"00012*10", "\xFE\xFEPSD\xFE"
                         "MENARD\xFELéa\xFE\xFE"
                         "20050501\xFE"
                         "20061231"},
            {"00012*2", "a\xFD\xFD-7\xFE\xFEGON\xFEmenard\xFE\xFE\xFE-3\xFD"
                        "12\xFD"
                        "007"},
            {"00013", ""},
            {"A", "1\xFE-1\xFE\xFE"
                  "Œuvre\xFE"
                  "2\xFD"
                  "10"},
            {"Été", "-0\xFE"
                    "00\xFE"
                    "99999999999999999999\xFEoeuvre"},
            {"é", "\xFD\xFE\xFD\xFD\xFEx"},
        };
        for (const auto& [key, record] : records) {
            rows.push_back(std::make_unique<Row>(key, record));
            file.write(key, record);
        }
    }
};

// By store::Operator.
constexpr const char* Signs[] = {" = ", " <> ", " >= ", " <= "};

std::string written(const store::Request& request) {
    std::string text = "SSELECT " + request.file;
    const char* before = " AVEC ";
    for (const store::Condition& condition : request.conditions) {
        text += before + std::to_string(condition.attribute);
        before = " AND AVEC ";
        bool first = true;
        for (const store::Alternative& one : condition.alternatives) {
            hold(first || one.op == store::Operator::Equal, "OR goes with = alone");
            text += first ? Signs[static_cast<std::size_t>(one.op)] : " OR = ";
            text += ports::quoted(one.value + (one.beginsWith ? "]" : ""));
            first = false;
        }
        hold(!first, "a condition has an alternative");
    }
    for (const int attribute : request.order)
        text += " PAR " + std::to_string(attribute);
    text += records::AttributeMark + request.file + records::AttributeMark;
    for (const int attribute : request.wanted)
        text += std::to_string(attribute) + " ";
    return text;
}

// Where the refusal's text names a character, it lies in what was asked, or just behind it.
void checkRefusal(const Error& refusal, std::string_view asked) {
    holdError(refusal, errors::RequestRefused);
    const std::string_view told = refusal.what();
    const bool ofWanted = told.starts_with("Requête refusée, attributs demandés");
    const std::string_view before = ofWanted ? "Requête refusée, attributs demandés, caractère "
                                             : "Requête refusée, caractère ";
    if (!told.starts_with(before)) {
        hold(ofWanted, "a refusal says where");
        return;
    }
    std::size_t character = 0;
    const std::string_view number = told.substr(before.size());
    std::from_chars(number.data(), number.data() + number.size(), character);
    const std::string_view part = records::attributeText(asked, ofWanted ? 3 : 1);
    hold(character >= 1 && character <= text::Len(part) + 1, "a refusal's place is in the request");
}

void checkComparison(std::string_view stored, std::string_view asked) {
    const auto order = store::compareValues(stored, asked);
    hold((store::compareValues(asked, stored) <=> 0) == (0 <=> order), "comparing is symmetric");
    std::int64_t numbers[2];
    const auto read = [](std::string_view text, std::int64_t& number) {
        const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
        return error == std::errc() && end == text.data() + text.size();
    };
    if (read(stored, numbers[0]) && read(asked, numbers[1]))
        hold(order == (numbers[0] <=> numbers[1]), "numbers compare as numbers");
}

bool satisfied(const store::Condition& condition, const Row& row) {
    bool any = false;
    for (const std::string_view value : split(row.field(condition.attribute), records::ValueMark))
        for (const store::Alternative& one : condition.alternatives) {
            checkComparison(value, one.value);
            any = any || store::satisfies(value, one);
        }
    return any;
}

// The result's text by looking at every record; none where what is wanted is not plain.
std::optional<std::string> naive(const store::Request& request, const std::vector<const Row*>& rows,
                                 int& found) {
    std::set<std::vector<std::string>> sorted; // keys to sort by, key, text
    for (const Row* const row : rows) {
        if (!std::all_of(request.conditions.begin(), request.conditions.end(),
                         [&](const auto& condition) { return satisfied(condition, *row); }))
            continue;
        std::vector<std::string> line;
        for (const int attribute : request.order)
            line.push_back(text::CollationKey(row->field(attribute)));
        line.push_back(row->key);
        std::string text;
        for (const int attribute : request.wanted) {
            for (const std::string_view value : split(row->field(attribute), records::ValueMark)) {
                if (!text::IsPlain(value))
                    return std::nullopt;
                text.append(value).push_back(records::SubvalueMark);
            }
            text.back() = records::ValueMark;
        }
        text.pop_back();
        line.push_back(text);
        sorted.insert(std::move(line));
    }
    found = static_cast<int>(sorted.size());
    std::string text;
    for (const auto& line : sorted)
        text.append(line.back()).push_back(records::AttributeMark);
    text.erase(text.find_last_not_of(records::AttributeMark) + 1);
    return text;
}

void checkRows(const store::Request& request, store::EngineFile& file,
               const std::vector<const Row*>& rows) {
    int found = 0;
    const std::optional<std::string> expected = naive(request, rows, found);
    try {
        const records::DBARecord result = store::select(request, file);
        hold(expected.has_value(), "what is not plain is not shown");
        same(result(), *expected, "the rows are those of a look at every record");
        hold(result.DCount() == found, "there is an attribute for each row");
    } catch (const Error& error) {
        holdError(error, errors::Damaged);
        hold(!expected, "only a damaged record is told as such");
    }
}

} // namespace

void check(Input input) {
    const std::string_view asked = input.piece();
    store::Request request;
    try {
        request = store::parseRequest(asked);
    } catch (const Error& refusal) {
        checkRefusal(refusal, asked);
        return;
    }
    const std::string again = written(request);
    same(written(store::parseRequest(again)), again, "a request can be written and read");
    if (request.file != "CONTRAT")
        return;

    static Stored stored;
    std::vector<const Row*> rows;
    rows.reserve(stored.rows.size() + 1);
    for (const auto& row : stored.rows)
        rows.push_back(row.get());
    const std::string_view key = input.piece();
    const Row own(key, input.rest());
    const bool taken = !key.empty() && text::IsPlain(key) && !stored.file.read(key);
    if (taken) {
        rows.push_back(&own);
        stored.file.write(own.key, own.record);
    }
    checkRows(request, stored.file, rows);
    if (taken)
        stored.file.erase(own.key);
}

} // namespace vorandine::fuzz
