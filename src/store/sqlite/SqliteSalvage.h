// What can still be read of a damaged SQLite store.
#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>

namespace vorandine::store {

// Gets each entry that can be read: the engine's file, the history's among them, key and record.
// The views end with the call.
using SalvageVisitor =
    std::function<void(const std::string& file, std::string_view key, std::string_view record)>;

// Reads the store at `path` page by page and hands over what is sound in itself. Gives how many
// pages and entries could not be read; a page may have held hundreds of entries. Writers wait
// meanwhile. Throws as openEngine where the file is no store, or not one that this program knows;
// where the first page is lost, which says so, it cannot be told from another program's.
[[nodiscard]] std::size_t salvage(const std::string& path, const SalvageVisitor& take);

struct Repaired {
    std::size_t records = 0;  // that were saved
    std::size_t versions = 0; // of the history, likewise
    std::size_t lost = 0;     // as salvage gives it
};

// Makes a new store at `target` of what can be read of the one at `path`, which stays as it is;
// `step` is called for each entry. Throws as salvage, Error(StoreExists) where there is something
// at `target`, and what writing throws; after a failure there is nothing at `target`.
[[nodiscard]] Repaired repair(const std::string& path, const std::string& target,
                              const std::function<void()>& step);

} // namespace vorandine::store
