// Columns are looked up by the heads that the file has, so that a column moved is still found.
#include "exchange/CsvMapping.h"

#include "components/DateConverter.h"
#include "exchange/Naming.h"
#include "records/StoredFiles.h"
#include "rules/Numbers.h"
#include "text/Decimal.h"

#include <algorithm>
#include <charconv>

namespace vorandine::exchange {
namespace {

std::size_t columnNumber(const std::string& word) {
    std::size_t number = 0;
    const char* const end = word.data() + word.size();
    const auto [rest, error] = std::from_chars(word.data(), end, number);
    if (error != std::errc() || rest != end || number == 0)
        throw NamingError("without heads, a column is named by its number, not '" + word + "'");
    return number - 1;
}

std::size_t columnOf(const std::string& word,
                     const std::optional<std::vector<std::string>>& heads) {
    if (!heads)
        return columnNumber(word);
    const auto found = std::find(heads->begin(), heads->end(), word);
    if (found == heads->end()) {
        std::string names;
        for (const std::string& head : *heads)
            names += " '" + head + "'";
        throw NamingError("there is no column '" + word + "'; there are" + names +
                          (heads->size() == 1 ? " (another --separator?)" : ""));
    }
    if (std::find(found + 1, heads->end(), word) != heads->end())
        throw NamingError("there are two columns '" + word + "'");
    return static_cast<std::size_t>(found - heads->begin());
}

records::Kind conversion(const std::string& word) {
    if (word == "date")
        return records::Kind::Date;
    if (word == "hours")
        return records::Kind::Hours;
    if (word == "text")
        return records::Kind::Text;
    throw NamingError("there is no conversion '" + word + "'; there are date, hours and text");
}

MappedColumn mappedColumn(const std::string& file, const std::string& map,
                          const std::optional<std::vector<std::string>>& heads) {
    // A head may hold any of these characters, an attribute and a conversion none.
    const std::size_t equals = map.rfind('=');
    if (equals == std::string::npos)
        throw NamingError("--map takes COLUMN=ATTRIBUTE, not '" + map + "'");
    const std::size_t colon = map.find(':', equals);
    MappedColumn column;
    column.head = map.substr(0, equals);
    column.column = columnOf(column.head, heads);
    column.attribute = attributeOf(file, map.substr(equals + 1, colon - equals - 1));
    if (column.attribute == records::Key)
        throw NamingError("attribute 0 is the key: name its column with --key");
    if (const records::AttributeLayout* const known = records::layout(file, column.attribute)) {
        column.kind = known->kind;
        column.list = known->list();
    }
    if (colon != std::string::npos)
        column.kind = conversion(map.substr(colon + 1));
    return column;
}

ConvertedCell refused(const std::string& cell, const std::string& why) {
    return {{}, "'" + cell + "' is " + why};
}

ConvertedCell storedDate(const std::string& cell) {
    const components::DateConverter dates([] { return widgets::Date{}; });
    const std::string stored = dates.Date_Stockee(cell);
    return stored.empty() ? refused(cell, "no date (dd/mm/yyyy)") : ConvertedCell{stored, {}};
}

ConvertedCell storedHours(const std::string& cell, bool belowZero) {
    const auto hours = text::Decimal::parse(cell);
    if (!hours)
        return refused(cell, "no number of hours (7,50)");
    if (hours->negative() && !belowZero)
        return refused(cell, "below zero");
    const text::Decimal stored = hours->shifted(rules::HundredthsPlaces);
    return stored.whole() ? ConvertedCell{stored.toText(), {}}
                          : refused(cell, "finer than a hundredth of an hour");
}

} // namespace

CsvMapping::CsvMapping(const std::string& file, const std::string& key,
                       const std::vector<std::string>& maps,
                       const std::optional<std::vector<std::string>>& heads) {
    columns_.push_back({columnOf(key, heads), key, records::Key, records::Kind::Text, false});
    for (const std::string& map : maps) {
        columns_.push_back(mappedColumn(file, map, heads));
        for (std::size_t i = 0; i + 1 < columns_.size(); ++i)
            if (columns_[i].attribute == columns_.back().attribute)
                throw NamingError("two columns are mapped to attribute " +
                                  std::to_string(columns_[i].attribute));
    }
}

ConvertedCell convert(const std::string& cell, records::Kind kind) {
    if (cell.empty())
        return {};
    switch (kind) {
    case records::Kind::Date:
        return storedDate(cell);
    case records::Kind::Hours:
        return storedHours(cell, false);
    case records::Kind::Balance:
        return storedHours(cell, true);
    case records::Kind::Figure:
        return text::Decimal::parse(cell) ? ConvertedCell{cell, {}}
                                          : refused(cell, "no number (752,40)");
    default:
        return {cell, {}};
    }
}

} // namespace vorandine::exchange
