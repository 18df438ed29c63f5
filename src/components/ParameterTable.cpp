// Finding, checking and setting the entries of a table, always both attributes at one position.
#include "components/ParameterTable.h"

#include "records/StoredFiles.h"
#include "text/Characters.h"

#include <utility>

namespace vorandine::components {
namespace {

using records::table::Codes;
using records::table::Labels;
constexpr std::size_t CodeLength = 3;

Refusal wrongCode(const std::string& text) {
    return {Refusal::Of::Code, text};
}

Refusal wrongLabel(const std::string& text) {
    return {Refusal::Of::Label, text};
}

} // namespace

std::string ParameterTable::code(int position) const {
    return record_(Codes, position);
}

std::string ParameterTable::label(int position) const {
    return record_(Labels, position);
}

std::vector<Parameter> ParameterTable::entries() const {
    std::vector<Parameter> all;
    const int count = record_.DCount(Codes);
    for (int k = 1; k <= count; ++k)
        if (std::string found = code(k); !found.empty())
            all.push_back({.code = std::move(found), .label = label(k)});
    return all;
}

bool ParameterTable::holds(const Parameter& entry) const {
    const int position = withCode(entry.code);
    return position > 0 && label(position) == entry.label;
}

std::optional<Refusal> ParameterTable::add(const Parameter& entry) {
    // Requests look for a code between quotes, and take a bracket at its end for "begins with".
    if (text::Len(entry.code) != CodeLength ||
        entry.code.find_first_of(" \"]") != std::string::npos)
        return wrongCode("Le code doit compter exactement 3 caractères, sans espace, guillemet ni "
                         "crochet. Veuillez le ressaisir.");
    if (const int taken = withCode(entry.code); taken > 0)
        return wrongCode("Le code « " + entry.code + " » est déjà celui de « " + label(taken) +
                         " ». Veuillez en saisir un autre.");
    if (auto refusal = checkLabel(entry))
        return refusal;
    int end = 1;
    while (!code(end).empty())
        ++end;
    set(end, entry);
    return std::nullopt;
}

std::string ParameterTable::labelOf(const std::string& wanted) const {
    const int position = withCode(wanted);
    return position == 0 ? "" : label(position);
}

std::optional<Refusal> ParameterTable::change(const Parameter& entry, const std::string& was) {
    const int position = withCode(entry.code);
    if (position == 0)
        return wrongCode(
            (entry.code.empty() ? "" : "Aucune ligne n'a le code « " + entry.code + " ». ") +
            "Veuillez choisir dans la liste la ligne à modifier.");
    if (label(position) == entry.label)
        return std::nullopt;
    if (label(position) != was)
        return wrongLabel("Le libellé du code « " + entry.code + " » est maintenant « " +
                          label(position) +
                          " ». Modifiez-le à nouveau si le vôtre doit le remplacer.");
    if (auto refusal = checkLabel(entry))
        return refusal;
    set(position, entry);
    return std::nullopt;
}

int ParameterTable::withCode(const std::string& wanted) const {
    const int count = wanted.empty() ? 0 : record_.DCount(Codes);
    for (int k = 1; k <= count; ++k)
        if (code(k) == wanted)
            return k;
    return 0;
}

std::optional<Refusal> ParameterTable::checkLabel(const Parameter& entry) const {
    if (entry.label.empty())
        return wrongLabel("Le libellé est obligatoire. Veuillez le saisir.");
    const int count = record_.DCount(Codes);
    for (int k = 1; k <= count; ++k)
        if (label(k) == entry.label && code(k) != entry.code && !code(k).empty())
            return wrongLabel("Le libellé « " + entry.label + " » est déjà celui du code « " +
                              code(k) + " ». Veuillez en saisir un autre.");
    return std::nullopt;
}

void ParameterTable::set(int position, const Parameter& entry) {
    record_(Codes, position) = entry.code;
    record_(Labels, position) = entry.label;
}

} // namespace vorandine::components
