// Whether what a store holds can be read to its last byte. Whether it agrees with itself is asked
// by audit/check/.
#pragma once

#include "store/Engine.h"

#include <cstddef>
#include <functional>
#include <string>

namespace vorandine::audit {

struct Verified {
    std::size_t records = 0;  // that can be read
    std::size_t versions = 0; // of the history, likewise
    std::size_t findings = 0; // faults that were told
};

// Looks for the faults that the engine knows of itself, then reads every record and every version;
// `tell` is given each fault in words, `step` called for each entry. To be run within
// Engine::consistently. Throws what the engine throws, save Error(Damaged), which is a fault, and
// what both functions throw.
[[nodiscard]] Verified verify(store::Engine& engine,
                              const std::function<void(const std::string&)>& tell,
                              const std::function<void()>& step);

} // namespace vorandine::audit
