// Text counted in characters, the check of what may enter the system, French order, and the search
// that goes by its letters. Numbers and dates are held by fuzz/.
#include "text/Characters.h"
#include "text/Collation.h"
#include "text/Error.h"
#include "text/Search.h"

#include <gtest/gtest.h>

#include <vector>

namespace vorandine::text {
namespace {

TEST(Text, CutsAndPaddingCountCharacters) {
    EXPECT_EQ(Len("Éléonore œuvre"), 14U);
    EXPECT_EQ(Left("Éléonore", 3), "Élé");
    EXPECT_EQ(Mid("Éléonore", 0, 2), "Él");
    EXPECT_EQ(Mid("Éléonore", 7), "re");
    EXPECT_EQ(Mid("abc", 4, 2), "");
    EXPECT_EQ(PadRight("né", 4), "né  ");
    EXPECT_EQ(PadRight("déjà", 2), "déjà");
    EXPECT_EQ(Column("éèê", 2), "éè");
    EXPECT_EQ(Column("é", 3), "é  ");
    EXPECT_EQ(Trim("  \u00A0a b\u00A0 "), "\u00A0a b\u00A0");
    // A lead byte without its followers, an overlong form, a surrogate, a lone follower: each byte
    // counts for one.
    const std::string damaged = "a\xC3\x62\xC0\xAF\xED\xA0\x80\xBFz";
    EXPECT_EQ(Len(damaged), damaged.size());
    EXPECT_EQ(Decode(damaged).size(), damaged.size());
    EXPECT_EQ(Mid(damaged, 2, 2), "\xC3\x62");
    EXPECT_EQ(Left("ab\xE2\x82", 9), "ab\xE2\x82");
    EXPECT_EQ(Encode(U"\x7F\x80\x7FF\x800\xFFFF\x10000"),
              "\u007F\u0080\u07FF\u0800\uFFFF\U00010000");
    EXPECT_EQ(Encode(std::u32string{0xD800, 0x110000}), "\uFFFD\uFFFD");
}

TEST(Text, WhatIsNotPlainIsFoundWhereverItStandsAndRefused) {
    // Around the blocks of eight bytes in which ASCII is read, between letters and accents.
    const std::string whole = "Aide à domicile, 12 heures, employeur particulier";
    ASSERT_TRUE(IsPlain(whole) && IsPlain("") && IsPlain("~ \u00A0é€😀"));
    using namespace std::string_literals;
    for (const std::string& bad :
         {"\0"s, "\1"s, "\t"s, "\x1F"s, "\x7F"s, "\xFC"s, "\xFE"s, "\u0080"s, "\u009F"s,
          "\xE2\x82"s, "\xC0\xAF"s, "\xED\xA0\x80"s, "\xF4\x90\x80\x80"s, "\x80"s})
        for (std::size_t at = 0; at <= whole.size(); ++at)
            EXPECT_FALSE(IsPlain(std::string(whole).insert(at, bad)))
                << int(bad[0]) << " at " << at;
    const auto refusal = [](std::string_view text) -> std::string {
        try {
            RequirePlain(text, "Le code");
        } catch (const Error& error) {
            EXPECT_EQ(error.number(), errors::TextRefused);
            return error.what();
        }
        return {};
    };
    EXPECT_EQ(Printable("Aide à 7,50 €"), "Aide à 7,50 €");
    EXPECT_EQ(Printable("a\x1B[31m\n\u009Bé\x9B\x7F"), R"(a\x1B[31m\x0A\xC2\x9Bé\x9B\x7F)");
    EXPECT_EQ(refusal("Éléonore"), "");
    EXPECT_EQ(refusal("a\tb"), "Le code est refusé : le texte contient un caractère de contrôle.");
    EXPECT_EQ(refusal("a\xE9 b"), "Le code est refusé : le texte n'est pas codé en UTF-8.");
}

// Each text comes before all that follow it, as a dictionary would have them.
TEST(Text, CollatesInFrenchOrder) {
    const std::vector<std::vector<const char*>> Orders{
        {"cote", "Cote", "coté", "Coté", "COTÉ", "côte", "Côte", "côté", "coter"},
        {"a", "A", "à", "À", "â", "ab", "Ab", "AB", "àb", "b"},
        {"PREVOST", "prévost", "PRÉVOST", "PREVOT"},
        {"", " ", " a", "!", "(x)", "-a", "_", "~", "0", "1", "10", "2", "a", "z"},
        {"Aide à domicile", "aide-soignante", "aide1", "aidea", "AIDEB", "zèbre", "Ω"},
        {"coeur", "cœur", "Cœur", "coffre"},
        {"Aegidius", "Ægidius", "Aerts"},
        {"oe", "OE", "œ", "Œ", "oeb"},
        {"l'atelier", "l’atelier", "l'étude", "lot"},
        {"a b", "a\u00A0b", "a c", "a-b", "a–b", "a-c"},
        {"Cec", "Čeč", "Ced"},
        {"lodz", "łódź", "Łódź", "loe"}};
    for (const auto& texts : Orders)
        for (std::size_t i = 0; i < texts.size(); ++i)
            for (std::size_t j = 0; j < texts.size(); ++j)
                EXPECT_EQ(CollatesBefore(texts[i], texts[j]), i < j)
                    << "\"" << texts[i] << "\" and \"" << texts[j] << "\"";
    EXPECT_EQ(CollationKey("Élève"), CollationKey("E\u0301le\u0300ve"));
    EXPECT_EQ(CollationKey("gar\u00E7on"), CollationKey("garc\u0327on"));
}

TEST(Text, SearchTakesEachWordAnywhereWithoutAccentsAndCase) {
    const std::string folded = Search::folded({"A012", "LE CŒUR-D’ALÈNE Hélène"});
    for (const char* const typed :
         {"", "  ", "helene", "HÉLÈNE", "ene  le", "coeur", "Cœur", "a012", "12 alen", "d'alène",
          "he\xCC\x81lene", "r-d", "le\xC2\xA0hel"})
        EXPECT_TRUE(Search(typed).finds(folded)) << typed;
    for (const char* const typed : {"helena", "012le", "le durand", "13", "lecoeur"})
        EXPECT_FALSE(Search(typed).finds(folded)) << typed;
}

} // namespace
} // namespace vorandine::text
