// A record's whole text, read where it lies: attributes found by counting separators, never by
// splitting the record.
#pragma once

#include <string_view>

namespace vorandine::store {

// The text of attribute `number` (from 1) of a record's whole text; empty if there is none. The
// view lies in `record`. Any bytes are taken.
[[nodiscard]] std::string_view attributeText(std::string_view record, int number) noexcept;

// Whether all values of a record's whole text are plain (text::IsPlain): UTF-8 without control
// characters between the separators of attributes and values, and no other byte.
[[nodiscard]] bool isPlainRecord(std::string_view record) noexcept;

} // namespace vorandine::store
