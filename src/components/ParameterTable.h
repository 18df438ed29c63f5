// One table of the file TABLES: codes and labels, position by position,
// and the rules by which a user adds to it and changes it.
#pragma once

#include "records/DBARecord.h"

#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace vorandine::components {

struct Parameter {
    std::string code;
    std::string label;
};

// Why something is not taken.
struct Refusal {
    enum class Of { Code, Label };
    Of of;
    std::string text; // in French, with what to do
};

class ParameterTable {
  public:
    ParameterTable() = default;
    explicit ParameterTable(records::DBARecord record) : record_(std::move(record)) {}

    // In table order. What has no code is no entry.
    [[nodiscard]] std::vector<Parameter> entries() const;
    [[nodiscard]] bool holds(const Parameter& entry) const;

    // Puts a new entry at the end of the table, which is its first empty code. Refused: a code that
    // is not of 3 characters, that requests could not look for, or that is in use, a label that is
    // empty or in use.
    [[nodiscard]] std::optional<Refusal> add(const Parameter& entry);
    // Gives the entry of that code the label, in place of `was`. Refused: a code that no entry has,
    // a label that is another than `was` by now, and the same labels; the label that it already has
    // is none of them.
    [[nodiscard]] std::optional<Refusal> change(const Parameter& entry, const std::string& was);
    // The label of that code; "" if no entry has it.
    [[nodiscard]] std::string labelOf(const std::string& wanted) const;

    // Stores the record, with what it holds beside codes and labels. Throws what DBWrite throws.
    void write() { record_.DBWrite(); }

  private:
    records::DBARecord record_;

    [[nodiscard]] std::string code(int position) const;
    [[nodiscard]] std::string label(int position) const;
    // The first position of that code; 0 if no entry has it.
    [[nodiscard]] int withCode(const std::string& wanted) const;
    [[nodiscard]] std::optional<Refusal> checkLabel(const Parameter& entry) const;
    void set(int position, const Parameter& entry);
};

} // namespace vorandine::components
