// Text counted in characters: length, cuts, padding and the checks made where text enters the
// system. A character is a Unicode code point; positions count from 1, as on the screens.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace vorandine::text {

// What stands for "to the end" in Mid.
constexpr std::size_t ToTheEnd = static_cast<std::size_t>(-1);

// All functions below take UTF-8. On text that is not UTF-8 they count each byte that begins no
// character as one character; they never read outside the text and never throw.

// Number of characters.
[[nodiscard]] std::size_t Len(std::string_view text) noexcept;

// The first `count` characters; the whole text if it is shorter.
[[nodiscard]] std::string Left(std::string_view text, std::size_t count);

// `count` characters from character `start` on, which counts from 1 (0 is taken as 1). What lies
// past the end is simply not there.
[[nodiscard]] std::string Mid(std::string_view text, std::size_t start,
                              std::size_t count = ToTheEnd);

// Without the blanks (U+0020 alone) at both ends.
[[nodiscard]] std::string Trim(std::string_view text);

// `text` with blanks on the right up to `width` characters; never cut.
[[nodiscard]] std::string PadRight(std::string_view text, std::size_t width);

// `text` cut or padded on the right to exactly `width` characters: a column.
[[nodiscard]] std::string Column(std::string_view text, std::size_t width);

// The code points of a text, and back. Bytes that begin no character become U+FFFD; so do
// surrogates and values above U+10FFFF on the way back.
[[nodiscard]] std::u32string Decode(std::string_view text);
[[nodiscard]] std::string Encode(std::u32string_view characters);

// Whether `character` is a control character: U+0000 to U+001F, U+007F to U+009F.
[[nodiscard]] constexpr bool IsControl(char32_t character) noexcept {
    return character < 0x20 || (character >= 0x7F && character <= 0x9F);
}

// Whether `text` is UTF-8 (no overlong forms, no surrogates) without control characters: what may
// stand in a record, a key or a field. Linear, fast on ASCII.
[[nodiscard]] bool IsPlain(std::string_view text) noexcept;

// `text` as a terminal may have it: the bytes of control characters, and those that begin no
// character, as \x1B. Plain text stays as it is.
[[nodiscard]] std::string Printable(std::string_view text);

// Throws Error(TextRefused) with a French text that names `what` unless IsPlain(text).
void RequirePlain(std::string_view text, std::string_view what);

} // namespace vorandine::text
