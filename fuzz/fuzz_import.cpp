// What is imported: the short way through a line of the exchange format gives what the long way
// gives, what is written reads back, and the rows of a table come to an end in plain cells.
// An input is a line; one that begins with C a table, with the separator and then w for
// Windows-1252 in front of it.
#include "Property.h"
#include "components/DateConverter.h"
#include "exchange/Csv.h"
#include "exchange/CsvMapping.h"
#include "exchange/ExchangeLine.h"
#include "exchange/RecordJson.h"
#include "records/RecordText.h"
#include "text/Decimal.h"

#include <nlohmann/json.hpp>
#include <optional>
#include <sstream>

namespace vorandine::fuzz {
namespace {

struct Taken {
    std::string file;
    std::string key;
    std::string record;
};

using Json = nlohmann::json;

std::optional<Json> parsed(std::string_view line) {
    try {
        return exchange::parseJson(line);
    } catch (const Error& error) {
        holdError(error, errors::TextRefused);
        return std::nullopt;
    }
}

// By way of a tree; none where the line is no record's.
std::optional<Taken> longWay(const std::optional<Json>& line) {
    if (!line || !line->is_object() || line->size() != 3)
        return std::nullopt;
    const auto file = line->find("file");
    const auto key = line->find("key");
    const auto content = line->find("record");
    if (file == line->end() || key == line->end() || content == line->end() || !file->is_string() ||
        !key->is_string())
        return std::nullopt;
    try {
        records::DBARecord record;
        exchange::fill(record, *content, [](const std::string&) { return 0; });
        return Taken{*file, *key, std::as_const(record)()};
    } catch (const Error& error) {
        holdError(error, errors::TextRefused);
        return std::nullopt;
    }
}

bool sameAs(const Taken& a, std::string_view file, std::string_view key, std::string_view record) {
    return a.file == file && a.key == key && a.record == record;
}

void checkLine(std::string_view line) {
    exchange::ExchangeLine read;
    const bool isShort = exchange::readExchangeLine(line, read);
    const std::optional<Json> tree = parsed(line);
    // No JSON goes on with a bracket.
    hold(!tree || !parsed(std::string(line) + ']'), "nothing but blanks stands behind a value");
    const std::optional<Taken> taken = longWay(tree);
    if (isShort)
        hold(taken && sameAs(*taken, read.file, read.key, read.record),
             "both ways make the same of a line");
    // A key that is not plain is refused by the store.
    if (!taken || !text::IsPlain(taken->file) || !text::IsPlain(taken->key))
        return;
    hold(records::isPlainRecord(taken->record), "a record that is taken is plain");

    std::string written;
    exchange::appendExchangeLine(written, taken->file, taken->key, taken->record);
    hold(written.ends_with('\n'), "a line ends in its break");
    written.pop_back();
    const auto again = longWay(parsed(written));
    hold(again && sameAs(*again, taken->file, taken->key, taken->record),
         "what is written reads back");
    if (written.find('\\') == std::string::npos)
        hold(exchange::readExchangeLine(written, read) &&
                 sameAs(*taken, read.file, read.key, read.record),
             "what is written without escapes is read the short way");
}

void checkConversions(const std::string& cell) {
    using records::Kind;
    const auto shown = [](const std::string& stored) {
        return text::Decimal::require(stored).shifted(-2).toText();
    };
    for (const Kind kind : {Kind::Text, Kind::Date, Kind::Hours, Kind::Balance, Kind::Figure}) {
        const auto [stored, fault] = exchange::convert(cell, kind);
        hold(text::IsPlain(stored) && text::IsPlain(fault), "cells and complaints are plain");
        hold(fault.empty() || stored.empty(), "a cell is stored or refused");
        hold(!fault.empty() || stored.empty() == cell.empty(), "a cell is not lost");
        if (stored.empty())
            continue;
        if (kind == Kind::Date) {
            const components::DateConverter dates([] { return widgets::Date{}; });
            hold(stored.size() == 8, "a stored date has eight digits");
            same(dates.Date_Stockee(dates.Date_Affichee(stored)), stored, "a date comes back");
        } else if (kind == Kind::Hours || kind == Kind::Balance) {
            hold(stored.find_first_not_of("0123456789", kind == Kind::Balance &&
                                                            stored[0] == '-') == std::string::npos,
                 "hours are stored as whole hundredths");
            same(shown(stored), text::Decimal::require(cell).toText(), "hours keep their value");
        } else {
            same(stored, cell, "other cells are taken as they are");
        }
    }
}

void checkRow(const exchange::CsvRow& row, char separator) {
    std::string written;
    for (const std::string& cell : row.cells) {
        hold(text::IsPlain(cell) && !cell.starts_with(' ') && !cell.ends_with(' '),
             "cells are plain, without blanks around");
        checkConversions(cell);
        written += written.empty() ? "\"" : std::string(1, separator) + '"';
        for (const char c : cell)
            written.append(c == '"' ? 2 : 1, c);
        written += '"';
    }
    std::istringstream in(written);
    exchange::CsvReader reader(in, separator, exchange::Encoding::Utf8);
    exchange::CsvRow again;
    hold(reader.next(again) && !again.fault && again.cells == row.cells, "cells read back");
    hold(!reader.next(again), "as one row");
}

void checkTable(Input input) {
    const char separator = static_cast<char>(input.byte());
    const auto encoding =
        input.byte() == 'w' ? exchange::Encoding::Windows1252 : exchange::Encoding::Utf8;
    if (separator == '"' || separator == '\n' || separator == '\r')
        return;
    std::istringstream in{std::string(input.rest())};
    const auto lines =
        static_cast<std::size_t>(std::count(input.rest().begin(), input.rest().end(), '\n') + 1);
    exchange::CsvReader reader(in, separator, encoding);
    exchange::CsvRow row;
    for (std::size_t last = 0; reader.next(row); last = row.line) {
        hold(row.line > last && row.line <= lines, "each row has a line of its own");
        hold(!row.cells.empty() && row.faultColumn <= row.cells.size(), "a fault is of a cell");
        if (!row.fault)
            checkRow(row, separator);
        else
            hold(text::IsPlain(*row.fault) && !row.empty(), "a complaint says why");
    }
    hold(!reader.failed(), "a table is read to its end");
}

} // namespace

void check(Input input) {
    if (!input.rest().starts_with('C'))
        return checkLine(input.rest());
    (void)input.byte();
    checkTable(input);
}

} // namespace vorandine::fuzz
