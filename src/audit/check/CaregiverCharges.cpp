// The check of the ledgers, run over the records of one caregiver.
#include "audit/check/CaregiverCharges.h"

#include "audit/check/Checks.h"
#include "records/StoredFiles.h"

namespace vorandine::audit {

void checkCharges(std::string_view code, std::string_view trainingFile,
                  const std::vector<std::pair<std::string, std::string>>& ledgers,
                  const TellFinding& tell) {
    Known known;
    const Caregivers::Number caregiver = known.caregivers().addTrained(code);
    known.caregivers().complete();
    // Balances and figures are told elsewhere.
    const TellFinding charges = [&](const Finding& finding) {
        const bool ofLedger = finding.file == records::ledger::File;
        if (finding.attribute ==
            (ofLedger ? records::ledger::Training : records::training_file::Training))
            tell(finding);
    };
    LedgerCheck check(known, charges);
    Record record;
    if (record.show(code, trainingFile))
        check.trainingFile(record, caregiver);
    for (const auto& [key, text] : ledgers)
        if (record.show(key, text))
            check.ledger(record, LedgerKey{caregiver, std::string_view(key).substr(code.size())});
        else
            check.unreadable({caregiver});
    check.complete();
}

} // namespace vorandine::audit
