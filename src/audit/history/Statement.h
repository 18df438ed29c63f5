// What changes have made of a record, told line by line: of a ledger as a statement of its hours,
// of any other record by attributes.
#pragma once

#include "records/DBARecord.h"
#include "text/Table.h"

#include <memory>
#include <string>

namespace vorandine::audit {

class Statement {
  public:
    Statement() = default;
    Statement(const Statement&) = delete;
    Statement& operator=(const Statement&) = delete;
    virtual ~Statement() = default;

    // A line of its own, across the columns.
    void heading(std::string text) { table_.addLine(std::move(text)); }
    // What a record held before the first change.
    void opening(const records::DBARecord& record) {
        came_ = "";
        tell({nullptr, record.key(), ""}, record);
        came_ = "new";
    }
    // What is in `after` and not in `before`, and the other way round.
    virtual void tell(const records::DBARecord& before, const records::DBARecord& after) = 0;
    void print(std::ostream& out) const { table_.print(out); }

  protected:
    explicit Statement(text::Table table) : table_(std::move(table)) {}

    text::Table table_;
    const char* came_ = "new"; // what a value or line that was not there is called
};

// The statement for records of that file.
[[nodiscard]] std::unique_ptr<Statement> statementFor(const std::string& file);

} // namespace vorandine::audit
