// A question to the database: put together from the names of attributes, written in the retrieval
// language here alone.
#pragma once

#include "ports/Database.h"

#include <initializer_list>
#include <string>
#include <string_view>

namespace vorandine::ports {

// `value` in double quotes, as a query takes it. A closing bracket at its end means "begins with"
// there, and no query can ask for a text that ends in one itself. Throws Error(RequestRefused) if
// `value` holds a double quote, which a query cannot express.
[[nodiscard]] std::string quoted(const std::string& value);

// What it asks for is one text, in the order of the calls. Attributes are those of
// records/StoredFiles.h, and stand in the text under their dictionary names where they have one.
class Query {
  public:
    // All records of `file`.
    explicit Query(std::string file);

    // One more condition that must hold; `value` is put in quotes, and may refuse it. `relation`
    // is =, <>, >= or <=; a closing bracket at the end of `value` goes with the first two.
    Query& with(int attribute, std::string_view relation, const std::string& value);
    // Another value for the last condition, on the same attribute.
    Query& orEqual(const std::string& value);
    // Sorts by the attribute, after those named before. No condition comes after it.
    Query& by(int attribute);

    [[nodiscard]] const std::string& file() const noexcept { return file_; }
    [[nodiscard]] const std::string& text() const noexcept { return text_; }

  private:
    std::string file_;
    std::string text_;
    bool conditional_ = false;
};

// Asks the database: value v of a row of the result is that of the v-th attribute `wanted`. What
// Select throws goes through.
[[nodiscard]] records::DBARecord select(DBADatabase& database, const Query& query,
                                        std::initializer_list<int> wanted);
// Likewise, by way of `W_Params`, in which the request stays.
[[nodiscard]] records::DBARecord select(DBADatabase& database, records::DBARecord& W_Params,
                                        const Query& query, std::initializer_list<int> wanted);

} // namespace vorandine::ports
