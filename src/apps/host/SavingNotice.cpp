// The stored record and its tables, read apart from those of the control.
#include "apps/host/SavingNotice.h"

#include "audit/saving/Losses.h"
#include "records/StoredFiles.h"
#include "text/Error.h"

#include <utility>

namespace vorandine::host {

std::optional<Notice> savingNotice(ports::DBADatabase& database, const std::string& code) {
    namespace table = records::table;
    try {
        const records::DBARecord file =
            database.OpenFile(records::training_file::File)->ReadRecord(code);
        const auto tables = database.OpenFile(table::File);
        audit::Choices choices;
        for (const char* const name : {table::Diplomas, table::Qualifications}) {
            const records::DBARecord record = tables->ReadRecord(name);
            choices.read(name, record());
        }
        std::string text = audit::lossNotice(audit::lossesOfSaving(file(), choices));
        if (text.empty())
            return std::nullopt;
        return Notice{.name = "saving",
                      .kind = NoticeKind::Warning,
                      .head = {},
                      .text = std::move(text),
                      .button = {}};
    } catch (const Error&) {
        return std::nullopt; // the control tells, or there is nothing to save over
    }
}

} // namespace vorandine::host
