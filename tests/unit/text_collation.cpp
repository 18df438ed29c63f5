// French order, held against lists that stand as a dictionary would have them, and the search that
// goes by its letters.
#include "text/Collation.h"
#include "text/Search.h"

#include <gtest/gtest.h>

#include <vector>

namespace vorandine::text {
namespace {

// Each text comes before all that follow it.
void expectInOrder(const std::vector<const char*>& texts) {
    for (std::size_t i = 0; i < texts.size(); ++i)
        for (std::size_t j = 0; j < texts.size(); ++j)
            EXPECT_EQ(CollatesBefore(texts[i], texts[j]), i < j)
                << "\"" << texts[i] << "\" and \"" << texts[j] << "\"";
}

TEST(Collation, LettersThenAccentsThenCase) {
    expectInOrder({"cote", "Cote", "coté", "Coté", "COTÉ", "côte", "Côte", "côté", "coter"});
    expectInOrder({"a", "A", "à", "À", "â", "ab", "Ab", "AB", "àb", "b"});
    expectInOrder({"PREVOST", "prévost", "PRÉVOST", "PREVOT"});
}

TEST(Collation, SignsThenDigitsThenLetters) {
    expectInOrder({"", " ", " a", "!", "(x)", "-a", "_", "~", "0", "1", "10", "2", "a", "z"});
    expectInOrder({"Aide à domicile", "aide-soignante", "aide1", "aidea", "AIDEB", "zèbre", "Ω"});
}

TEST(Collation, LigaturesStandAsTheirLetters) {
    expectInOrder({"coeur", "cœur", "Cœur", "coffre"});
    expectInOrder({"Aegidius", "Ægidius", "Aerts"});
    expectInOrder({"oe", "OE", "œ", "Œ", "oeb"});
}

TEST(Collation, TypographicSignsStandWithThePlainOnes) {
    expectInOrder({"l'atelier", "l’atelier", "l'étude", "lot"});
    expectInOrder({"a b", "a\u00A0b", "a c", "a-b", "a–b", "a-c"});
}

TEST(Collation, EncodingOfAccentsMakesNoDifference) {
    EXPECT_EQ(CollationKey("Élève"), CollationKey("E\u0301le\u0300ve"));
    EXPECT_EQ(CollationKey("gar\u00E7on"), CollationKey("garc\u0327on"));
    expectInOrder({"Cec", "Čeč", "Ced"});
    expectInOrder({"lodz", "łódź", "Łódź", "loe"});
}

TEST(Search, TakesEachWordAnywhereWithoutAccentsAndCase) {
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
