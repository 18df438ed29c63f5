// The losses of the file, then those of the ledgers, each with its employer.
#include "apps/host/SavingNotice.h"

#include "audit/saving/Losses.h"
#include "records/StoredFiles.h"

#include <utility>
#include <vector>

namespace vorandine::host {

std::optional<Notice> savingNotice(const CaregiverRecords& caregiver) {
    audit::Choices choices;
    choices.read(records::table::Diplomas, caregiver.tables.F_DIPLOMES());
    choices.read(records::table::Qualifications, caregiver.tables.F_QUALIF());
    std::vector<audit::Loss> losses = audit::lossesOfSaving(caregiver.file(), choices);
    for (const auto& [key, ledger] : caregiver.ledgers)
        for (audit::Loss& loss : audit::lossesOfLedger(ledger())) {
            loss.sentence += " (" + key.substr(caregiver.code.size()) + ")";
            losses.push_back(std::move(loss));
        }
    std::string text = audit::lossNotice(losses);
    if (text.empty())
        return std::nullopt;
    return Notice{.name = "saving",
                  .kind = NoticeKind::Warning,
                  .head = {},
                  .text = std::move(text),
                  .button = {}};
}

} // namespace vorandine::host
