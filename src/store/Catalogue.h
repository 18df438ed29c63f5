// The files that every store has from the start, and the dictionary names of their attributes: one
// table, served to all engines and to the request parser.
#pragma once

#include <optional>
#include <span>
#include <string_view>

namespace vorandine::store {

// Above any attribute that a record may reasonably have; requests name none beyond it.
constexpr int LastAttribute = 65535;

// A name that requests may use for a stored attribute.
struct DictionaryName {
    std::string_view name;
    int attribute;
};

struct CatalogueFile {
    std::string_view name;
    std::span<const DictionaryName> dictionary;
};

// All files, sorted by name.
[[nodiscard]] std::span<const CatalogueFile> catalogue() noexcept;

// The engine's file in which records are kept as they were (store/Changes.h). Every store has it;
// it is none of those above, and no host opens it.
constexpr std::string_view HistoryFile = "HISTORIQUE";

// The attribute that `name` stands for in the file `file`; none if the file or the name is unknown.
// Names are letter for letter.
[[nodiscard]] std::optional<int> dictionaryAttribute(std::string_view file,
                                                     std::string_view name) noexcept;

} // namespace vorandine::store
