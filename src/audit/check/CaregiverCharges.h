// The hours charged on one caregiver's ledgers held against the trainings of the file, for who
// opens it: what LedgerCheck finds in a whole store.
#pragma once

#include "audit/check/Findings.h"

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace vorandine::audit {

// Tells, by key and position, each line of a ledger that is charged to a training which the file
// does not have under the D.I.F. on that day, and then each training of the file under the D.I.F.
// that no ledger is charged with, unless one of them is no readable text. `trainingFile` is the
// whole text of the caregiver's record, "" where there is none; `ledgers` are keys, which begin
// with `code`, and whole texts. What is no readable text is passed over.
void checkCharges(std::string_view code, std::string_view trainingFile,
                  const std::vector<std::pair<std::string, std::string>>& ledgers,
                  const TellFinding& tell);

} // namespace vorandine::audit
