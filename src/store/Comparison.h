// How a stored value stands to a value of a request.
#pragma once

#include "store/Request.h"

#include <compare>
#include <string_view>

namespace vorandine::store {

// As whole numbers (an optional "-", then digits, however many) when both sides are, else as texts
// byte by byte. The empty text is below everything else.
[[nodiscard]] std::strong_ordering compareValues(std::string_view a, std::string_view b) noexcept;

// Whether one stored value, possibly empty, satisfies the alternative.
[[nodiscard]] bool satisfies(std::string_view value, const Alternative& alternative) noexcept;

} // namespace vorandine::store
