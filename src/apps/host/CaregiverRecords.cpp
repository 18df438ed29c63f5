// Ledgers are found by the caregiver's code, which their keys begin with.
#include "apps/host/CaregiverRecords.h"

#include "ports/Query.h"
#include "records/StoredFiles.h"
#include "text/Error.h"

namespace vorandine::host {

CaregiverRecords readCaregiver(const std::shared_ptr<ports::DBADatabase>& database,
                               const std::string& code) {
    CaregiverRecords read;
    read.code = code;
    read.tables.TheDatabase = database;
    ports::Ouvrir_Fichiers(read.tables);
    if (auto file = ports::find(*read.tables.F_FORMVORANDINE, code))
        read.file() = std::as_const(*file)();
    const records::DBARecord rows = ports::select(
        *database, ports::Query(records::ledger::File).with(records::Key, "=", code + "]"),
        {records::Key});
    for (int row = 1; row <= rows.DCount(); ++row) {
        const std::string key = rows(row);
        try {
            read.ledgers.emplace(key, read.tables.F_DIFAIDANT->ReadRecord(key));
        } catch (const Error&) {
            read.all = false;
        }
    }
    return read;
}

} // namespace vorandine::host
