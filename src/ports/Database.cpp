// Looking for records, and requests.
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

std::string quoted(const std::string& value) {
    if (value.find('"') != std::string::npos)
        throw Error(
            errors::RequestRefused,
            "Une valeur qui contient un guillemet ne peut pas figurer dans une requête : « " +
                value + " ».");
    return '"' + value + '"';
}

DBARecord select(DBADatabase& database, DBARecord& W_Params, const std::string& query,
                 const std::string& file, const std::string& wanted) {
    W_Params() = "";
    W_Params(1) = query;
    W_Params(2) = file;
    W_Params(3) = wanted;
    return database.Select(W_Params());
}

} // namespace vorandine::ports
