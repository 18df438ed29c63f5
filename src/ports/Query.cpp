// Putting queries into words.
#include "ports/Query.h"

#include "records/Layout.h"
#include "text/Error.h"

#include <utility>

namespace vorandine::ports {

std::string quoted(const std::string& value) {
    if (value.find('"') != std::string::npos)
        throw Error(
            errors::RequestRefused,
            "Une valeur qui contient un guillemet ne peut pas figurer dans une requête : « " +
                value + " ».");
    return '"' + value + '"';
}

Query::Query(std::string file) : file_(std::move(file)), text_("SSELECT " + file_) {}

Query& Query::with(int attribute, std::string_view relation, const std::string& value) {
    text_ += std::exchange(conditional_, true) ? " AND AVEC " : " AVEC ";
    text_ += records::headOf(file_, attribute) + ' ' + std::string(relation) + ' ' + quoted(value);
    return *this;
}

Query& Query::orEqual(const std::string& value) {
    text_ += " OR = " + quoted(value);
    return *this;
}

Query& Query::by(int attribute) {
    text_ += " PAR " + records::headOf(file_, attribute);
    return *this;
}

records::DBARecord select(DBADatabase& database, const Query& query,
                          std::initializer_list<int> wanted) {
    records::DBARecord request;
    return select(database, request, query, wanted);
}

records::DBARecord select(DBADatabase& database, records::DBARecord& W_Params, const Query& query,
                          std::initializer_list<int> wanted) {
    std::string numbers;
    for (const int attribute : wanted)
        numbers += (numbers.empty() ? "" : " ") + std::to_string(attribute);
    W_Params() = "";
    W_Params(1) = query.text();
    W_Params(2) = query.file();
    W_Params(3) = numbers;
    return database.Select(W_Params());
}

} // namespace vorandine::ports
