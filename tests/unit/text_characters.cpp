// Text counted in characters, and the check of what may enter the system.
#include "text/Characters.h"
#include "text/Error.h"

#include <gtest/gtest.h>

namespace vorandine::text {
namespace {

TEST(Characters, CutsAndPaddingCountCharacters) {
    EXPECT_EQ(Len("Éléonore œuvre"), 14U);
    EXPECT_EQ(Left("Éléonore", 3), "Élé");
    EXPECT_EQ(Left("ab", 9), "ab");
    EXPECT_EQ(Mid("Éléonore", 2, 2), "lé");
    EXPECT_EQ(Mid("Éléonore", 0, 2), "Él");
    EXPECT_EQ(Mid("Éléonore", 7), "re");
    EXPECT_EQ(Mid("abc", 4, 2), "");
    EXPECT_EQ(PadRight("né", 4), "né  ");
    EXPECT_EQ(PadRight("déjà", 2), "déjà");
    EXPECT_EQ(Column("éèê", 2), "éè");
    EXPECT_EQ(Column("é", 3), "é  ");
}

TEST(Characters, TrimTakesBlanksAlone) {
    EXPECT_EQ(Trim("  a b  "), "a b");
    EXPECT_EQ(Trim("   "), "");
    EXPECT_EQ(Trim("\u00A0a\u00A0"), "\u00A0a\u00A0");
}

TEST(Characters, DamagedTextIsCountedByteByByte) {
    // A lead byte without its followers, an overlong form, a surrogate, a lone follower.
    const std::string damaged = "a\xC3"
                                "b\xC0\xAF\xED\xA0\x80\xBFz";
    EXPECT_EQ(Len(damaged), damaged.size());
    EXPECT_EQ(Decode(damaged).size(), damaged.size());
    EXPECT_EQ(Mid(damaged, 2, 2), "\xC3"
                                  "b");
    EXPECT_EQ(Left("ab\xE2\x82", 9), "ab\xE2\x82");
}

TEST(Characters, EncodingAndDecodingAgree) {
    const std::u32string ends = {1,      0x7F,   0x80,   0x7FF,   0x800,
                                 0xD7FF, 0xE000, 0xFFFF, 0x10000, 0x10FFFF};
    EXPECT_EQ(Decode(Encode(ends)), ends);
    EXPECT_EQ(Encode(U"\xD800"), "\uFFFD");
    EXPECT_EQ(Encode(std::u32string(1, char32_t(0x110000))), "\uFFFD");
}

TEST(Characters, ControlCharactersAreFoundWhereverTheyStand) {
    // Around the blocks of eight bytes in which ASCII is read, between letters and accents.
    const std::string long_text = "Aide à domicile, 12 heures, employeur particulier";
    ASSERT_TRUE(IsPlain(long_text));
    EXPECT_TRUE(IsPlain(""));
    EXPECT_TRUE(IsPlain("~ \u00A0é€😀"));
    for (const char bad : {'\0', '\1', '\t', '\n', '\x1F', '\x7F', '\xFC', '\xFE', '\xFF'})
        for (std::size_t at = 0; at <= long_text.size(); ++at) {
            std::string spoilt = long_text;
            spoilt.insert(at, 1, bad);
            EXPECT_FALSE(IsPlain(spoilt)) << "byte " << int(bad) << " at " << at;
        }
    for (const char* bad : {"\u0080", "\u009F", "a\xC3", "\xE2\x82", "\xC0\xAF", "\xED\xA0\x80",
                            "\xF4\x90\x80\x80", "\xF5\x80\x80\x80", "\x80"})
        EXPECT_FALSE(IsPlain(bad)) << bad;
}

TEST(Characters, TheRefusalSaysWhatIsWrong) {
    const auto refusal = [](std::string_view text) -> std::string {
        try {
            RequirePlain(text, "Le code");
        } catch (const Error& error) {
            EXPECT_EQ(error.number(), errors::TextRefused);
            return error.what();
        }
        return {};
    };
    EXPECT_EQ(refusal("Éléonore"), "");
    EXPECT_EQ(refusal("a\tb"), "Le code est refusé : le texte contient un caractère de contrôle.");
    EXPECT_EQ(refusal("a\xE9 b"), "Le code est refusé : le texte n'est pas codé en UTF-8.");
}

} // namespace
} // namespace vorandine::text
