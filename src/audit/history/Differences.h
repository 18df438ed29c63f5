// Two lists held against each other, entry by entry: what stayed, what left, what came.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace vorandine::audit {

// An entry of either list, or one of each: the same, or the later in place of the earlier.
// Positions count from 0.
struct Step {
    std::optional<std::size_t> before;
    std::optional<std::size_t> after;
    bool same = false;
};

// In the order of both lists. As many entries as possible stay, save in lists of thousands of
// entries that have little in common.
[[nodiscard]] std::vector<Step> differences(const std::vector<std::string>& before,
                                            const std::vector<std::string>& after);

} // namespace vorandine::audit
