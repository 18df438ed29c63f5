// The table of files. docs/store.md tells what each attribute holds.
#include "store/Catalogue.h"

#include <array>

namespace vorandine::store {
namespace {

constexpr std::array<DictionaryName, 2> Contrat{{
    {"NomAideContrat", 4},
    {"PrenomAideContrat", 5},
}};

constexpr std::array<DictionaryName, 4> DetailCalcul{{
    {"CodeAideDetailCalcul", 1},
    {"ConvColContratDetailCalcul", 2},
    {"GestionDroitDif", 3},
    {"PeriodeDetailCalcul", 4},
}};

constexpr std::array<CatalogueFile, 11> Files{{
    {"ACTIVITES", {}},
    {"AIDANT", {}},
    {"ASSOCIATION", {}},
    {"CIVILAIDE", {}},
    {"CONTRAT", Contrat},
    {"DETAILCALCUL", DetailCalcul},
    {"DIFAIDANT", {}},
    {"DROITS", {}},
    {"FORMVORANDINE", {}},
    {"TABLES", {}},
    {"UTILISATEURS", {}},
}};

} // namespace

std::span<const CatalogueFile> catalogue() noexcept {
    return Files;
}

std::optional<int> dictionaryAttribute(std::string_view file, std::string_view name) noexcept {
    for (const CatalogueFile& known : Files) {
        if (known.name != file)
            continue;
        for (const DictionaryName& entry : known.dictionary)
            if (entry.name == name)
                return entry.attribute;
    }
    return std::nullopt;
}

} // namespace vorandine::store
