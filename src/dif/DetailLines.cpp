// Lines as texts of the screen where they are shown and placed, as stored values where they are
// told apart.
#include "dif/DetailLines.h"

#include "dif/Columns.h"
#include "dif/Hours.h"
#include "records/StoredFiles.h"
#include "text/Listing.h"

#include <algorithm>
#include <array>
#include <utility>

namespace vorandine::dif {
namespace {

namespace attribute = records::ledger;

// All that a line says, but for the balance, which every change recomputes.
using Content = std::array<std::string, 4>;
enum At { AtDate, AtRights, AtHours, AtTraining };

Content contentOf(const records::DBARecord& record, int i) {
    return {record(attribute::Date, i), record(attribute::Rights, i), record(attribute::Hours, i),
            record(attribute::Training, i)};
}

std::vector<Content> contents(const records::DBARecord& record) {
    std::vector<Content> all;
    const int count = record.DCount(attribute::Date);
    for (int i = 1; i <= count; ++i)
        all.push_back(contentOf(record, i));
    return all;
}

// Rights or hours, both where an odd line has both.
std::string figures(const Content& line) {
    const auto hours = [](const std::string& figure) {
        const std::optional<text::Decimal> value = text::Decimal::parse(figure);
        return value ? value->shifted(-HundredthsPlaces).toText(Decimals) : figure;
    };
    const bool both = !line[AtRights].empty() && !line[AtHours].empty();
    return hours(line[AtRights]) + (both ? " et " : "") + hours(line[AtHours]);
}

std::string told(const Content& line, const std::string& figures,
                 const ports::DateObject& Conv_Date) {
    return Conv_Date.Date_Affichee(line[AtDate]) + " " + figures +
           (line[AtTraining].empty() ? "" : " " + line[AtTraining]);
}

// The lines that the others are not.
std::vector<Content> without(std::vector<Content> lines, const std::vector<Content>& others) {
    for (const Content& other : others)
        if (const auto at = std::find(lines.begin(), lines.end(), other); at != lines.end())
            lines.erase(at);
    return lines;
}

} // namespace

std::vector<ShownLine> shownLines(const records::DBARecord& record,
                                  const ports::DateObject& Conv_Date,
                                  const records::TrainingLabels& labels) {
    std::vector<ShownLine> lines;
    const int count = record.DCount(attribute::Date);
    for (int i = 1; i <= count; ++i)
        lines.push_back(shownLine(record, i, Conv_Date, labels));
    return lines;
}

std::size_t placeOf(const std::string& date, const std::vector<ShownLine>& lines,
                    const ports::DateObject& Conv_Date) {
    const auto number = [&](const std::string& shown) {
        const std::string stored = Conv_Date.Date_Stockee(shown);
        return stored.empty() ? 0L : std::stol(stored);
    };
    const long typed = number(date);
    std::size_t place = 0;
    for (; place < lines.size(); ++place) {
        const long here = number(DetailLine::dateOf(lines[place].text));
        if (here == 0 || typed < here)
            break;
    }
    return place;
}

void recompute(std::vector<ShownLine>& lines) {
    Ledger ledger;
    for (const ShownLine& line : lines)
        ledger.push_back(shownFigures(line.text));
    balances::allLines(ledger);
    std::vector<std::string> texts;
    for (std::size_t i = 0; i < lines.size(); ++i) {
        texts.push_back(
            DetailLine::withBalance(lines[i].text, figureText(ledger[i].balance.toDecimal())));
        DetailLine::requireInColumns(texts.back());
    }
    for (std::size_t i = 0; i < lines.size(); ++i)
        lines[i].text = std::move(texts[i]);
}

bool repeat(const LineChange& change, const records::DBARecord& shown, records::DBARecord& record,
            const ports::DateObject& Conv_Date, const records::TrainingLabels& labels) {
    std::vector<ShownLine> lines = shownLines(record, Conv_Date, labels);
    if (change.kind == LineChange::Kind::Added) {
        const std::size_t place = placeOf(change.date, lines, Conv_Date);
        lines.insert(lines.begin() + static_cast<std::ptrdiff_t>(place), change.typed);
    } else {
        const std::vector<Content> stored = contents(record);
        const Content wanted = contentOf(shown, static_cast<int>(change.line) + 1);
        const auto at = std::find(stored.begin(), stored.end(), wanted);
        if (std::count(at, stored.end(), wanted) != 1)
            return false;
        const auto line = lines.begin() + (at - stored.begin());
        if (change.kind == LineChange::Kind::Deleted)
            lines.erase(line);
        else
            *line = change.typed;
    }
    recompute(lines);
    replaceLines(record, lines, Conv_Date);
    return true;
}

bool sameLines(const records::DBARecord& a, const records::DBARecord& b) {
    return std::all_of(attribute::Line.begin(), attribute::Line.end(),
                       [&](int list) { return a(list) == b(list); });
}

std::string difference(const records::DBARecord& before, const records::DBARecord& now,
                       const ports::DateObject& Conv_Date, std::size_t most) {
    std::vector<Content> come = without(contents(now), contents(before));
    std::vector<Content> gone = without(contents(before), contents(now));
    std::vector<std::string> changes;
    const std::vector<Content> allGone = gone;
    for (const Content& line : allGone) {
        const auto like = [&](const Content& other) {
            return other[AtDate] == line[AtDate] && other[AtTraining] == line[AtTraining];
        };
        const auto to = std::find_if(come.begin(), come.end(), like);
        if (std::count_if(come.begin(), come.end(), like) != 1 ||
            std::count_if(allGone.begin(), allGone.end(), like) != 1)
            continue;
        changes.push_back("modifié " + told(line, figures(line) + " → " + figures(*to), Conv_Date));
        come.erase(to);
        std::erase(gone, line);
    }
    for (const Content& line : come)
        changes.push_back("ajouté " + told(line, figures(line), Conv_Date));
    for (const Content& line : gone)
        changes.push_back("retiré " + told(line, figures(line), Conv_Date));
    return text::Listed(changes, most, ", ", " ");
}

} // namespace vorandine::dif
