// A stored ledger: one record for a caregiver and an employer, with lists of the same lines,
// oldest line first. Figures are whole hundredths of an hour.
#pragma once

#include "dif/Balances.h"
#include "ports/DateObject.h"
#include "ports/Variables.h"
#include "records/DBARecord.h"
#include "records/StoredFiles.h"
#include "records/TrainingLabels.h"

#include <optional>
#include <string>
#include <vector>

namespace vorandine::dif {

// Reads the ledger under `key` into Rec_DIFAIDANT, and its attribute 6 into Dif_Attribut6. False if
// there is none; throws where it cannot be read. In both cases the record in hand is then a free
// one: it must not stay another employer's.
bool readLedger(ports::Variables& variables, const std::string& key);

// A line as the detail shows it, with the code of its training beside it.
struct ShownLine {
    std::string text; // dif::DetailLine
    std::string code;
};

// The line `i`, from 1. What does not convert is shown as it is stored, so that it can be written
// back; a training that has left the table has no label.
[[nodiscard]] ShownLine shownLine(const records::DBARecord& record, int i,
                                  const ports::DateObject& Conv_Date,
                                  const records::TrainingLabels& labels);

// What becomes of a stored figure, and date, that is shown and stored back untouched.
[[nodiscard]] std::string rewrittenFigure(const std::string& figure);
[[nodiscard]] std::string rewrittenDate(const std::string& date,
                                        const ports::DateObject& Conv_Date);

// Puts `lines` in place of all lines of `record`; what else it holds stays. Throws
// Error(FigureTooWide) for a line that does not stand in its columns, and then the record is as it
// was.
void replaceLines(records::DBARecord& record, const std::vector<ShownLine>& lines,
                  const ports::DateObject& Conv_Date);

// The figure of line `i`, from 1, in one of the lists, and the figures of all lines, in hundredths.
// Throw Error(Overflow) for a number beyond all hours.
[[nodiscard]] std::optional<text::Fixed4> figure(const records::DBARecord& record, int list, int i);
[[nodiscard]] Ledger ledger(const records::DBARecord& record);

// Writes the balances of `ledger` into the lines from `first` (from 0) on.
void setBalances(records::DBARecord& record, const Ledger& ledger, std::size_t first);

// The figures of lines as the detail shows them, in hours.
[[nodiscard]] Figures shownFigures(std::string_view line);

} // namespace vorandine::dif
