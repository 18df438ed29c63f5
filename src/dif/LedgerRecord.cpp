// Between the stored lists and the lines of the screen.
#include "dif/LedgerRecord.h"

#include "dif/Columns.h"
#include "dif/Hours.h"
#include "records/StoredFiles.h"
#include "text/Characters.h"
#include "text/Error.h"

#include <optional>
#include <utility>

namespace vorandine::dif {
namespace {

namespace attribute = records::ledger;
using text::Decimal;
using text::Fixed4;

// A stored figure as the screen shows it; one that is no number, as it is stored, save blanks
// around it, which columns could not tell from their own.
std::string shown(const std::string& stored) {
    const std::optional<Decimal> value = Decimal::parse(stored);
    return value ? figureText(value->shifted(-HundredthsPlaces)) : text::Trim(stored);
}

std::string stored(const std::string& shown) {
    const std::optional<Decimal> value = Decimal::parse(shown);
    return value ? value->shifted(HundredthsPlaces).toText() : shown;
}

// A date that was shown as it is stored, since it is none, goes back as it is.
std::string storedDate(const std::string& shown, const ports::DateObject& Conv_Date) {
    std::string date = Conv_Date.Date_Stockee(shown);
    return date.empty() ? text::Trim(shown) : date;
}

std::optional<Fixed4> number(const std::string& figure) {
    const std::optional<Decimal> value = Decimal::parse(figure);
    return value ? std::optional(Fixed4(*value)) : std::nullopt;
}

} // namespace

bool readLedger(ports::Variables& variables, const std::string& key) {
    variables.Rec_DIFAIDANT = records::DBARecord();
    std::optional<records::DBARecord> stored = ports::find(*variables.F_DIFAIDANT, key);
    if (!stored)
        return false;
    variables.Rec_DIFAIDANT = *std::move(stored);
    variables.Dif_Attribut6 = std::as_const(variables.Rec_DIFAIDANT)(attribute::Carried);
    return true;
}

ShownLine shownLine(const records::DBARecord& record, int i, const ports::DateObject& Conv_Date,
                    const records::TrainingLabels& labels) {
    std::string code = record(attribute::Training, i);
    const std::string* const label = labels.find(code);
    std::string balance = shown(record(attribute::Balance, i));
    if (balance.empty())
        balance.assign(DetailLine::Columns.back().width, ' ');
    const DetailLine line{text::Trim(Conv_Date.Date_Affichee(record(attribute::Date, i))),
                          shown(record(attribute::Rights, i)), label == nullptr ? "" : *label,
                          shown(record(attribute::Hours, i)), std::move(balance)};
    return {line.toText(), std::move(code)};
}

std::string rewrittenFigure(const std::string& figure) {
    return stored(shown(figure));
}

std::string rewrittenDate(const std::string& date, const ports::DateObject& Conv_Date) {
    const DetailLine line{text::Trim(Conv_Date.Date_Affichee(date)), {}, {}, {}, {}};
    return storedDate(DetailLine::parse(line.toText()).date, Conv_Date);
}

void replaceLines(records::DBARecord& record, const std::vector<ShownLine>& lines,
                  const ports::DateObject& Conv_Date) {
    for (const ShownLine& line : lines)
        DetailLine::requireInColumns(line.text);
    for (const int list : attribute::Line)
        record(list) = "";
    int i = 0;
    for (const ShownLine& shownLine : lines) {
        ++i;
        const DetailLine line = DetailLine::parse(shownLine.text);
        record(attribute::Date, i) = storedDate(line.date, Conv_Date);
        record(attribute::Rights, i) = stored(line.rights);
        record(attribute::Hours, i) = stored(line.hours);
        record(attribute::Balance, i) = stored(line.balance);
        record(attribute::Training, i) = shownLine.code;
    }
}

std::optional<Fixed4> figure(const records::DBARecord& record, int list, int i) {
    return number(record(list, i));
}

Ledger ledger(const records::DBARecord& record) {
    Ledger lines;
    const int count = record.DCount(attribute::Date);
    lines.reserve(static_cast<std::size_t>(count));
    for (int i = 1; i <= count; ++i)
        lines.push_back({figure(record, attribute::Rights, i), figure(record, attribute::Hours, i),
                         figure(record, attribute::Balance, i).value_or(Fixed4())});
    return lines;
}

void setBalances(records::DBARecord& record, const Ledger& ledger, std::size_t first) {
    for (std::size_t i = first; i < ledger.size(); ++i)
        record(attribute::Balance, static_cast<int>(i) + 1) =
            ledger[i].balance.toDecimal().toText();
}

Figures shownFigures(std::string_view line) {
    const DetailLine pieces = DetailLine::parse(line);
    return {number(pieces.rights), number(pieces.hours), {}};
}

} // namespace vorandine::dif
