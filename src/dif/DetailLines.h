// The lines of one ledger as the detail shows them: where a new one goes, their balances, and what
// tells one line from another.
#pragma once

#include "dif/LedgerRecord.h"
#include "ports/DateObject.h"
#include "records/DBARecord.h"
#include "records/TrainingLabels.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace vorandine::dif {

[[nodiscard]] std::vector<ShownLine> shownLines(const records::DBARecord& record,
                                                const ports::DateObject& Conv_Date,
                                                const records::TrainingLabels& labels);

// Where a line of that date goes, as it is shown: behind all lines that are not later.
[[nodiscard]] std::size_t placeOf(const std::string& date, const std::vector<ShownLine>& lines,
                                  const ports::DateObject& Conv_Date);

// Sets the balance of every line. Throws Error(Overflow) or Error(FigureTooWide) where one does not
// fit; the lines are then as they were.
void recompute(std::vector<ShownLine>& lines);

// What was done on the detail.
struct LineChange {
    enum class Kind { Added, Changed, Deleted };
    Kind kind;
    std::size_t line; // of those shown, from 0: the one changed or deleted
    ShownLine typed;  // what it now is; nothing of one deleted
    std::string date; // of one added, as it is shown
};

// Makes the change in `record`, which holds other lines than `shown`, those that the detail was
// made of. False, and nothing is changed, where the line to be changed or deleted is not there as
// it was shown, or more than once; its balance does not count.
[[nodiscard]] bool repeat(const LineChange& change, const records::DBARecord& shown,
                          records::DBARecord& record, const ports::DateObject& Conv_Date,
                          const records::TrainingLabels& labels);

// Whether both hold the same lines, balances included.
[[nodiscard]] bool sameLines(const records::DBARecord& a, const records::DBARecord& b);

// What has come and gone from one to the other, in words, `most` of it: "ajouté 10/01/2006 20,00",
// and "modifié 10/01/2006 20,00 → 25,00" where one line of a date and training took the place of
// one. "" if only balances differ.
[[nodiscard]] std::string difference(const records::DBARecord& before,
                                     const records::DBARecord& now,
                                     const ports::DateObject& Conv_Date, std::size_t most);

} // namespace vorandine::dif
