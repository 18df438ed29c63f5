// Building and cutting of the lines.
#include "dif/Columns.h"

#include "text/Characters.h"
#include "text/Error.h"

namespace vorandine::dif {
namespace {

using text::Column;
using text::Len;
using text::Mid;
using text::Trim;

// Of a summary line.
constexpr Piece Name = SummaryLine::Columns[0];
constexpr Piece End = SummaryLine::Columns[1];
constexpr Piece Acquired = SummaryLine::Columns[2];
constexpr Piece Consumed = SummaryLine::Columns[3];

// Of a detail line.
constexpr Piece Date = DetailLine::Columns[0];
constexpr Piece Rights = DetailLine::Columns[1];
constexpr Piece Label = DetailLine::Columns[2];
constexpr Piece Hours = DetailLine::Columns[3];
constexpr Piece Balance = DetailLine::Columns[4];
constexpr std::size_t LastColumn = Balance.column + Balance.width - 1;

// Of a line of Lst_Dif.
constexpr Piece Employer = ChargeLine::Columns[0];
constexpr Piece LastBalance = ChargeLine::Columns[1];
constexpr Piece ChargedHours = ChargeLine::Columns[2];
constexpr std::size_t HeadWidth = ChargedHours.column - 1;

// At the right of `width` columns; not cut.
std::string right(std::string_view figure, std::size_t width) {
    const std::size_t length = Len(figure);
    return std::string(width > length ? width - length : 0, ' ').append(figure);
}

std::string cut(std::string_view line, Piece piece) {
    return Mid(line, piece.column, piece.width);
}

} // namespace

std::string SummaryLine::toText() const {
    std::string line = Column(employer, Name.width) + Column(end, End.width);
    // The last figure stands as it was written: nothing follows that it could put out of line.
    if (!acquired.empty())
        line += right(acquired, Acquired.width) + right(consumed, Consumed.width) + remaining;
    return line;
}

std::string DetailLine::toText() const {
    return text::PadRight(date, Date.width) + ' ' + right(rights, Rights.width) + ' ' +
           Column(label, Label.width) + ' ' + right(hours, Hours.width) + ' ' + balance;
}

DetailLine DetailLine::parse(std::string_view line) {
    return {.date = cut(line, Date),
            .rights = Trim(cut(line, Rights)),
            .label = cut(line, Label),
            .hours = Trim(cut(line, Hours)),
            .balance = Trim(cut(line, Balance))};
}

std::string DetailLine::dateOf(std::string_view line) {
    return cut(line, Date);
}

void DetailLine::requireInColumns(std::string_view line) {
    if (Len(line) <= LastColumn && withBalance(parse(line).toText(), "") == withBalance(line, ""))
        return;
    throw Error(errors::FigureTooWide,
                "Une ligne ne tient pas dans ses colonnes, car un nombre ou "
                "une date y est trop long : « " +
                    std::string(line) +
                    " ». Rien n'est enregistré ; corrigez ou supprimez cette ligne.");
}

std::string DetailLine::withBalance(std::string_view line, std::string_view balance) {
    return text::Left(line, Balance.column - 1).append(balance);
}

std::string ChargeLine::head(std::string_view employer, std::string_view balance) {
    if (Len(balance) > LastBalance.width)
        throw Error(errors::FigureTooWide,
                    "Le solde « " + std::string(balance) + " » ne tient pas dans ses colonnes.");
    return Column(employer, Employer.width).append(balance);
}

std::string ChargeLine::headOf(std::string_view line) {
    return text::Left(line, HeadWidth);
}

std::string ChargeLine::cleared(std::string_view head) {
    return text::PadRight(head, HeadWidth) + ' ';
}

ChargeLine ChargeLine::parse(std::string_view line) {
    return {.employer = Trim(cut(line, Employer)),
            .balance = Trim(cut(line, LastBalance)),
            .hours = Trim(cut(line, ChargedHours))};
}

std::string ChargeLine::withBalance(std::string_view line, std::string_view balance) {
    std::string changed = head(parse(line).employer, balance);
    if (touched(line))
        changed =
            text::PadRight(changed, HeadWidth) + Mid(line, ChargedHours.column, ChargedHours.width);
    return changed;
}

bool ChargeLine::touched(std::string_view line) {
    return !cut(line, ChargedHours).empty();
}

} // namespace vorandine::dif
