// French order of texts, for sorted lists and for the sort keys of requests: letters first, then
// accents, then case.
#pragma once

#include <string>
#include <string_view>

namespace vorandine::text {

// A key such that comparing two keys byte by byte (std::string's own order) compares their texts in
// French order:
// - first the letters alone: case and accents ignored, "œ" as "oe", "æ" as "ae"; the empty text
//   comes first, then blanks, punctuation, digits, letters, other characters by code point;
//   typographic quotes, dashes and blanks stand with the plain ones;
// - where these are equal, the accents, from left to right, no accent first;
// - where these are equal too, the case, from left to right, small letters first.
// Accented letters are those of Latin-1 and Latin Extended-A, precomposed or with combining marks
// (U+0300 to U+036F). Two texts with one key differ at most in how an accent is encoded.
// The levels follow ISO 14651 / Unicode TR 10 in spirit; no table of either is used.
[[nodiscard]] std::string CollationKey(std::string_view text);

// Puts that key behind what `key` holds. Keys hold no zero byte but the two that end their first
// levels: with a zero byte between, several keys in a row compare as a sort by several texts.
void AppendCollationKey(std::string& key, std::string_view text);

// Whether `a` comes before `b`.
[[nodiscard]] bool CollatesBefore(std::string_view a, std::string_view b);

} // namespace vorandine::text
