// Looking for records.
#include "ports/Database.h"

#include "text/Error.h"

namespace vorandine::ports {

using records::DBARecord;

std::optional<DBARecord> find(DBAFile& file, const std::string& key) {
    try {
        return file.ReadRecord(key);
    } catch (const Error& error) {
        if (error.number() != errors::RecordMissing)
            throw;
        return std::nullopt;
    }
}

} // namespace vorandine::ports
