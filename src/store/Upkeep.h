// What can be done for a store that lasts, beyond its records: looking for damage, copying it
// whole. Engines that can are one of these too.
#pragma once

#include "store/Engine.h"

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

namespace vorandine::store {

// Told how many pages of a copy are made; the count may fall back where the copy begins anew.
using CopyStep = std::function<void(std::size_t pages)>;

class Upkeep {
  public:
    Upkeep() = default;
    Upkeep(const Upkeep&) = delete;
    Upkeep& operator=(const Upkeep&) = delete;
    virtual ~Upkeep() = default;

    // What is wrong with how the engine keeps its files, in its own words; nothing if it is sound.
    // Reads the whole store. Throws Error(Damaged) where it cannot even begin.
    [[nodiscard]] virtual std::vector<std::string> faults() = 0;
    // What may come to damage a store that is sound, in words: where it lies, how it is named.
    [[nodiscard]] virtual std::vector<std::string> dangers() = 0;
    // Copies one state of all files to a new store at `path`, which must not exist, while others
    // read and write; `step` is called on the way. Throws, beyond the engine's errors,
    // Error(StoreExists). After a failure there is nothing at `path`. Not within atomically or
    // consistently.
    virtual void backUp(const std::string& path, const CopyStep& step) = 0;
};

// The upkeep of that engine; null where it has none.
[[nodiscard]] inline Upkeep* upkeepOf(Engine& engine) noexcept {
    return dynamic_cast<Upkeep*>(&engine);
}

} // namespace vorandine::store
