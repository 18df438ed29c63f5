// UTF-8 walked one character at a time. One decoder serves every function, so that all agree on
// where a character ends, also in text that is damaged.
#include "text/Characters.h"

#include "text/Error.h"

#include <cstdint>
#include <cstring>

namespace vorandine::text {
namespace {

constexpr char32_t Replacement = 0xFFFD;

struct Step {
    char32_t character = Replacement;
    std::size_t bytes = 1;
    bool valid = false;
};

// The character that begins at text[at]; `at` must be inside the text.
Step stepAt(std::string_view text, std::size_t at) noexcept {
    const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(text[i]); };
    const unsigned char lead = byte(at);
    if (lead < 0x80)
        return {lead, 1, true};
    std::size_t length = 0;
    char32_t value = 0;
    char32_t least = 0;
    if (lead >= 0xC2 && lead <= 0xDF) {
        length = 2;
        value = lead & 0x1FU;
        least = 0x80;
    } else if (lead >= 0xE0 && lead <= 0xEF) {
        length = 3;
        value = lead & 0x0FU;
        least = 0x800;
    } else if (lead >= 0xF0 && lead <= 0xF4) {
        length = 4;
        value = lead & 0x07U;
        least = 0x10000;
    } else {
        return {};
    }
    if (at + length > text.size())
        return {};
    for (std::size_t i = 1; i < length; ++i) {
        if ((byte(at + i) & 0xC0U) != 0x80U)
            return {};
        value = (value << 6U) | (byte(at + i) & 0x3FU);
    }
    if (value < least || value > 0x10FFFF || (value >= 0xD800 && value <= 0xDFFF))
        return {};
    return {value, length, true};
}

// The byte offset of the character `count` characters after byte `from`.
std::size_t offsetAfter(std::string_view text, std::size_t from, std::size_t count) noexcept {
    std::size_t at = from;
    for (; count > 0 && at < text.size(); --count)
        at += stepAt(text, at).bytes;
    return at;
}

} // namespace

std::size_t Len(std::string_view text) noexcept {
    std::size_t count = 0;
    for (std::size_t at = 0; at < text.size(); ++count)
        at += stepAt(text, at).bytes;
    return count;
}

std::string Left(std::string_view text, std::size_t count) {
    return std::string(text.substr(0, offsetAfter(text, 0, count)));
}

std::string Mid(std::string_view text, std::size_t start, std::size_t count) {
    const std::size_t from = offsetAfter(text, 0, start > 0 ? start - 1 : 0);
    const std::size_t to = count == ToTheEnd ? text.size() : offsetAfter(text, from, count);
    return std::string(text.substr(from, to - from));
}

std::string Trim(std::string_view text) {
    const std::size_t first = text.find_first_not_of(' ');
    if (first == std::string_view::npos)
        return {};
    return std::string(text.substr(first, text.find_last_not_of(' ') - first + 1));
}

std::string PadRight(std::string_view text, std::size_t width) {
    std::string padded(text);
    const std::size_t length = Len(text);
    if (length < width)
        padded.append(width - length, ' ');
    return padded;
}

std::string Column(std::string_view text, std::size_t width) {
    return PadRight(Left(text, width), width);
}

std::u32string Decode(std::string_view text) {
    std::u32string characters;
    characters.reserve(text.size());
    for (std::size_t at = 0; at < text.size();) {
        const Step step = stepAt(text, at);
        characters.push_back(step.character);
        at += step.bytes;
    }
    return characters;
}

std::string Encode(std::u32string_view characters) {
    std::string text;
    text.reserve(characters.size());
    const auto put = [&](char32_t byte) { text.push_back(static_cast<char>(byte)); };
    const auto tail = [&](char32_t bits) { put(0x80U | (bits & 0x3FU)); };
    for (char32_t character : characters) {
        if (character > 0x10FFFF || (character >= 0xD800 && character <= 0xDFFF))
            character = Replacement;
        if (character < 0x80) {
            put(character);
        } else if (character < 0x800) {
            put(0xC0U | (character >> 6U));
            tail(character);
        } else if (character < 0x10000) {
            put(0xE0U | (character >> 12U));
            tail(character >> 6U);
            tail(character);
        } else {
            put(0xF0U | (character >> 18U));
            tail(character >> 12U);
            tail(character >> 6U);
            tail(character);
        }
    }
    return text;
}

bool IsPlain(std::string_view text) noexcept {
    std::size_t at = 0;
    while (at < text.size()) {
        // Eight bytes at a time while all are printable ASCII: a value may be a mebibyte long.
        while (text.size() - at >= 8) {
            std::uint64_t block = 0;
            std::memcpy(&block, text.data() + at, 8);
            const std::uint64_t high = 0x8080808080808080U;
            const std::uint64_t below20 = (block - 0x2020202020202020U) & ~block & high;
            const std::uint64_t above7E = (block + 0x0101010101010101U) & high;
            if (((block & high) | below20 | above7E) != 0)
                break;
            at += 8;
        }
        if (at >= text.size())
            break;
        const Step step = stepAt(text, at);
        if (!step.valid || IsControl(step.character))
            return false;
        at += step.bytes;
    }
    return true;
}

std::string Printable(std::string_view text) {
    constexpr std::string_view Digits = "0123456789ABCDEF";
    std::string shown;
    for (std::size_t at = 0; at < text.size();) {
        const Step step = stepAt(text, at);
        const std::string_view bytes = text.substr(at, step.bytes);
        at += step.bytes;
        if (step.valid && !IsControl(step.character)) {
            shown += bytes;
            continue;
        }
        for (const char c : bytes) {
            const auto byte = static_cast<unsigned char>(c);
            shown += {'\\', 'x', Digits[byte >> 4U], Digits[byte & 0xFU]};
        }
    }
    return shown;
}

void RequirePlain(std::string_view text, std::string_view what) {
    if (IsPlain(text))
        return;
    bool utf8 = true;
    for (std::size_t at = 0; utf8 && at < text.size();) {
        const Step step = stepAt(text, at);
        utf8 = step.valid;
        at += step.bytes;
    }
    throw Error(errors::TextRefused,
                std::string(what) + " est refusé : le texte " +
                    (utf8 ? "contient un caractère de contrôle." : "n'est pas codé en UTF-8."));
}

} // namespace vorandine::text
