// Three-level sort keys. Each level is a run of bytes; a zero byte, lower than any weight, ends the
// first two.
#include "text/Collation.h"

#include "text/Characters.h"

#include <algorithm>
#include <array>
#include <cstdint>

namespace vorandine::text {
namespace {

using namespace std::string_view_literals;

// Base letter (small) of U+00C0..U+017F; 0 where the character has none and stands for itself.
// Ligatures are told apart in `ligature`.
constexpr std::string_view BaseOfLatin1 = "aaaaaa\0ceeeeiiii\0nooooo\0ouuuuy\0\0"
                                          "aaaaaa\0ceeeeiiii\0nooooo\0ouuuuy\0y"sv;
constexpr std::string_view BaseOfExtendedA = "aaaaaacccccccc"         // 0100-010D
                                             "ddddeeeeeeeeeegggggggg" // 010E-0123
                                             "hhhhiiiiiiiiii\0\0jj"   // 0124-0135
                                             "kkkllllllllll"          // 0136-0142
                                             "nnnnnnnnnoooooo\0\0"    // 0143-0153
                                             "rrrrrrssssssss"         // 0154-0161
                                             "ttttttuuuuuuuuuuuu"     // 0162-0173
                                             "wwyyyzzzzzzs"sv;        // 0174-017F
static_assert(BaseOfLatin1.size() == 0x40);
static_assert(BaseOfExtendedA.size() == 0x80);

struct Folded {
    std::array<char32_t, 2> letters{}; // second is 0 unless a ligature
    std::uint8_t accent = 0;           // 0: none
    bool capital = false;
};

// 2 acute, 3 grave, 4 circumflex, 5 diaeresis, 6 tilde, 7 cedilla, 8 ring and stroke; only their
// being apart matters for French.
std::uint8_t accentOfLatin1(char32_t character) {
    constexpr std::string_view accents = "32465887"  // À
                                         "32453245"  // È
                                         "86324658"  // Ð
                                         "83245285"; // Ø
    return static_cast<std::uint8_t>(accents[character & 0x1FU] - '0');
}

std::uint8_t accentOfMark(char32_t mark) {
    switch (mark) {
    case 0x301:
        return 2;
    case 0x300:
        return 3;
    case 0x302:
        return 4;
    case 0x308:
        return 5;
    case 0x303:
        return 6;
    case 0x327:
        return 7;
    case 0x30A:
        return 8;
    default:
        return static_cast<std::uint8_t>(0x10 + (mark - 0x300) % 0xE0);
    }
}

bool ligature(char32_t character, Folded& folded) {
    switch (character) {
    case 0xC6:
    case 0xE6: // Æ æ
        folded.letters = {U'a', U'e'};
        break;
    case 0x152:
    case 0x153: // Œ œ
        folded.letters = {U'o', U'e'};
        break;
    case 0x132:
    case 0x133: // Ĳ ĳ
        folded.letters = {U'i', U'j'};
        break;
    case 0xDF: // ß
        folded.letters = {U's', U's'};
        break;
    default:
        return false;
    }
    folded.accent = 1;
    folded.capital = character == 0xC6 || character == 0x152 || character == 0x132;
    return true;
}

// The plain sign that a typographic one stands for, 0 if none: whoever types one or the other, the
// two belong at the same place.
char32_t plainSign(char32_t character) {
    constexpr std::u32string_view typographic = U"\u00A0\u202F’\u2010\u2011–—«»“”";
    constexpr std::u32string_view plain = U"  '----\"\"\"\"";
    static_assert(typographic.size() == plain.size());
    const std::size_t found = typographic.find(character);
    return found == std::u32string_view::npos ? 0 : plain[found];
}

Folded fold(char32_t character) {
    Folded folded;
    if (character < 0x80) {
        folded.capital = character >= 'A' && character <= 'Z';
        folded.letters[0] = folded.capital ? character + 0x20 : character;
        return folded;
    }
    if (ligature(character, folded))
        return folded;
    if (const char32_t sign = plainSign(character)) {
        folded.letters[0] = sign;
        folded.accent = 1;
        return folded;
    }
    folded.letters[0] = character;
    if (character >= 0xC0 && character <= 0xFF) {
        if (const char base = BaseOfLatin1[character - 0xC0]) {
            folded.letters[0] = static_cast<unsigned char>(base);
            folded.accent = accentOfLatin1(character);
            folded.capital = character < 0xDF;
        }
    } else if (character >= 0x100 && character <= 0x17F) {
        if (const char base = BaseOfExtendedA[character - 0x100]) {
            folded.letters[0] = static_cast<unsigned char>(base);
            // Pairs of capital and small letter share a weight; which one is capital changes sides
            // at U+0138 and U+0149, and Ÿ stands alone.
            const bool oddCapital =
                (character >= 0x139 && character <= 0x148) || character >= 0x179;
            folded.capital = character == 0x178 || ((character & 1U) != 0) == oddCapital;
            folded.accent = character == 0x178
                                ? 5
                                : static_cast<std::uint8_t>(
                                      0x20 + ((character - 0x100 + (oddCapital ? 1 : 0)) >> 1U));
        }
    }
    return folded;
}

// Blanks and punctuation below digits below letters: ASCII has some punctuation above letters.
constexpr char primaryOfAscii(char32_t letter) {
    if (letter >= 'a' && letter <= 'z')
        return static_cast<char>(letter);
    if (letter >= '0' && letter <= '9')
        return static_cast<char>(letter - '0' + 0x50);
    // The four runs of ASCII that are neither, moved together below 0x50 in their own order.
    return static_cast<char>(letter < '0'   ? letter + 1
                             : letter < 'A' ? letter - 0x09
                             : letter < 'a' ? letter - 0x23
                                            : letter - 0x3D);
}

void putPrimary(std::string& key, char32_t letter) {
    if (letter < 0x80)
        key.push_back(primaryOfAscii(letter));
    else
        key += Encode(std::u32string_view(&letter, 1));
}

constexpr bool isCapital(char c) {
    return c >= 'A' && c <= 'Z';
}

constexpr auto AsciiPrimaries = [] {
    std::array<char, 128> table{};
    for (std::size_t c = 0; c < table.size(); ++c)
        table[c] =
            primaryOfAscii(static_cast<char32_t>(isCapital(static_cast<char>(c)) ? c + 0x20 : c));
    return table;
}();

constexpr bool isAscii(char c) {
    return (static_cast<unsigned char>(c) & 0x80U) == 0;
}

char primaryOf(char ascii) {
    return AsciiPrimaries[static_cast<unsigned char>(ascii)];
}

// The key of a text of ASCII alone, which most are: a sort makes one for each row and attribute.
void appendAsciiKey(std::string& key, std::string_view text) {
    const std::size_t length = text.size();
    std::size_t cases = length; // up to the last capital
    while (cases > 0 && !isCapital(text[cases - 1]))
        --cases;
    const std::size_t from = key.size();
    key.resize(from + length + 2 + cases); // with zeros, the ends of the first two levels
    char* const letter = key.data() + from;
    for (std::size_t i = 0; i < length; ++i)
        letter[i] = primaryOf(text[i]);
    for (std::size_t i = 0; i < cases; ++i)
        letter[length + 2 + i] = isCapital(text[i]) ? '\2' : '\1';
}

// The character, beyond ASCII, that begins at text[at]; `at` moves behind it.
char32_t characterAt(std::string_view text, std::size_t& at) {
    const auto lead = static_cast<unsigned char>(text[at]);
    // Letters of Latin-1 and Latin Extended-A take two bytes.
    if (lead >= 0xC2 && lead <= 0xDF && at + 1 < text.size()) {
        const auto trail = static_cast<unsigned char>(text[at + 1]);
        if ((trail & 0xC0U) == 0x80U) {
            at += 2;
            return ((lead & 0x1FU) << 6U) | (trail & 0x3FU);
        }
    }
    const std::string first = Left(text.substr(at), 1);
    at += first.size();
    return Decode(first).front();
}

} // namespace

void AppendCollationKey(std::string& key, std::string_view text) {
    if (std::all_of(text.begin(), text.end(), isAscii)) {
        appendAsciiKey(key, text);
        return;
    }
    // One weight a letter, of which a text has no more than bytes; \1 is "none", and those at the
    // end are left out.
    std::string accents(text.size(), '\1');
    std::string cases(text.size(), '\1');
    std::size_t count = 0;
    for (std::size_t at = 0; at < text.size();) {
        if (isAscii(text[at])) {
            key.push_back(primaryOf(text[at]));
            cases[count++] = isCapital(text[at++]) ? '\2' : '\1';
            continue;
        }
        const char32_t character = characterAt(text, at);
        if (character >= 0x300 && character <= 0x36F && count > 0) {
            accents[count - 1] = static_cast<char>(1 + accentOfMark(character));
            continue;
        }
        const Folded folded = fold(character);
        for (const char32_t letter : folded.letters) {
            if (letter == 0)
                break;
            putPrimary(key, letter);
            accents[count] = static_cast<char>(1 + folded.accent);
            cases[count] = folded.capital ? '\2' : '\1';
            ++count;
        }
    }
    key.push_back('\0');
    key.append(accents, 0, accents.find_last_not_of('\1') + 1);
    key.push_back('\0');
    key.append(cases, 0, cases.find_last_not_of('\1') + 1);
}

std::string CollationKey(std::string_view text) {
    std::string key;
    AppendCollationKey(key, text);
    return key;
}

bool CollatesBefore(std::string_view a, std::string_view b) {
    return CollationKey(a) < CollationKey(b);
}

} // namespace vorandine::text
