// The retrieval language: what each production gives, what each refusal says and where, what values
// satisfy a condition. fuzz/fuzz_request.cpp holds the rows found against a look at every record.
#include "ports/Query.h"
#include "records/RecordText.h"
#include "store/Comparison.h"
#include "store/Store.h"
#include "store_support.h"

#include <gtest/gtest.h>

namespace vorandine::store {
namespace {

using store_test::marks;
using store_test::numberOf;

Request parsed(const std::string& query, const std::string& file, const std::string& wanted) {
    return parseRequest(query + marks("^" + file + "^") + wanted);
}

// The tree in one line: conditions as `attribute op 'value'`, "*" after a value for "begins with".
std::string described(const Request& request) {
    const std::vector<std::string> operators{"=", "<>", ">=", "<="};
    std::string text = request.file;
    for (const Condition& condition : request.conditions) {
        text += " [" + std::to_string(condition.attribute);
        for (const Alternative& one : condition.alternatives)
            text += " " + operators[static_cast<std::size_t>(one.op)] + "'" + one.value + "'" +
                    (one.beginsWith ? "*" : "");
        text += "]";
    }
    for (const int attribute : request.order)
        text += " ^" + std::to_string(attribute);
    for (const int attribute : request.wanted)
        text += " " + std::to_string(attribute);
    return text;
}

TEST(StoreRequest, ReadsEachProduction) {
    const char* const cases[][4] = {
        {"SSELECT ACTIVITES PAR 1", "ACTIVITES", "0 1", "ACTIVITES ^1 0 1"},
        {R"(SSELECT CONTRAT AVEC 65 = "" AND AVEC 8 >= "20050501" OR = "" PAR NomAideContrat)"
         " PAR PrenomAideContrat PAR 3 PAR 8",
         "CONTRAT", "0 3 8", "CONTRAT [65 =''] [8 >='20050501' =''] ^4 ^5 ^3 ^8 0 3 8"},
        {R"(SSELECT DETAILCALCUL AVEC ConvColContratDetailCalcul <> "02")"
         R"( AND AVEC PeriodeDetailCalcul <= "202401" AND AVEC CodeAideDetailCalcul = "A]")"
         R"( AND AVEC GestionDroitDif = "1")",
         "DETAILCALCUL", "0 6 16",
         "DETAILCALCUL [2 <>'02'] [4 <='202401'] [1 ='A'*] [3 ='1'] 0 6 16"},
        // Blanks between words; blanks, brackets and keywords within values.
        {"  SSELECT   TABLES  AVEC  007  =  \" OR = ]x AND \"   PAR  0 ", "TABLES", " 2   1 ",
         "TABLES [7 =' OR = ]x AND '] ^0 2 1"},
        {R"(SSELECT TABLES AVEC 1 <> "]" OR = "é]" OR = "]]")", "TABLES", "65535",
         "TABLES [1 <>''* ='é'* =']'*] 65535"}};
    for (const auto& [query, file, wanted, tree] : cases)
        EXPECT_EQ(described(parsed(query, file, wanted)), tree) << query;
    for (const std::string value : {"", "Zoé", " a ", "x]y"})
        EXPECT_EQ(
            described(parsed("SSELECT TABLES AVEC 0 = " + ports::quoted(value), "TABLES", "0")),
            "TABLES [0 ='" + value + "'] 0");
    EXPECT_EQ(numberOf([] { (void)ports::quoted("a\"b"); }), errors::RequestRefused);
}

TEST(StoreRequest, RefusalsSayWhatAndWhere) {
    struct Case {
        std::string query; // behind "SSELECT TABLES", unless it is whole
        std::string wanted;
        const char* where;
        const char* what;
    };
    for (const Case& one : std::vector<Case>{
             {"select TABLES", "0", "caractère 1 :", "SSELECT attendu"},
             {" 1", "0", "caractère 16 :", "AVEC, PAR ou la fin"},
             {" AVEC Nom = \"\"", "0", "caractère 21 :", "« Nom »"},
             {" AVEC NomAideContrat = \"\"", "0", "caractère 21 :", "dictionnaire"},
             {" AVEC 65536 = \"\"", "0", "caractère 21 :", "65535"},
             {" AVEC 1 =\"a\"", "0", "caractère 23 :", "opérateur attendu"},
             {" AVEC 1 = \"été\"x\"", "0", "caractère 30 :", "guillemet"},
             {" AVEC 1 >= \"été]\"", "0", "caractère 30 :", "commence par"},
             {" AVEC 1 = \"\" AND 2 = \"\"", "0", "caractère 32 :", "AVEC attendu"},
             {" AVEC 1 = \"\" OR >= \"\"", "0", "caractère 31 :", "= attendu"},
             {" AVEC 1 = \"\" OU = \"\"", "0", "caractère 28 :", "OR =, AND AVEC, PAR"},
             {" PAR 1 AVEC 1 = \"\"", "0", "caractère 22 :", "PAR ou la fin"},
             {" AVEC 1 = \"é\xFD\"", "0", "caractère 27 :", "pas permis"},
             {"", "0 x", "attributs demandés", "caractère 3 :"},
             {"", "65536", "attributs demandés", "65535"}}) {
        const bool whole = one.query.starts_with("SSELECT") || one.query.starts_with("select");
        const auto raised = store_test::raisedBy([&] {
            (void)parsed(whole ? one.query : "SSELECT TABLES" + one.query, "TABLES", one.wanted);
        });
        EXPECT_EQ(raised.number, errors::RequestRefused) << one.query;
        EXPECT_NE(raised.text.find(one.where), std::string::npos) << one.query << raised.text;
        EXPECT_NE(raised.text.find(one.what), std::string::npos) << one.query << raised.text;
    }
}

class StoreRows : public testing::TestWithParam<const char*> {};

INSTANTIATE_TEST_SUITE_P(Engines, StoreRows, testing::ValuesIn(store_test::Kinds),
                         [](const auto& kind) { return std::string(kind.param); });

TEST_P(StoreRows, AreThoseOfWhichOneValueSatisfiesEachCondition) {
    const store_test::Folder folder;
    const std::shared_ptr<Engine> engine =
        openEngine(store_test::urlOf(GetParam(), folder), OpenMode::Create);
    for (const auto& [key, record] :
         {std::pair("a", "x]y^1"), {"b", "^2"}, {"c", "y^10"}, {"d", "x]^"}, {"e", "yz"}})
        engine->file("TABLES")->write(key, marks(record));
    const auto rows = [&](const std::string& conditions) {
        std::string keys = std::as_const(*std::make_unique<records::DBARecord>(
            Store(engine).Select("SSELECT TABLES " + conditions + marks("^TABLES^0"))))();
        std::erase(keys, records::AttributeMark);
        return keys;
    };
    const char* const cases[][2] = {
        {"AVEC 1 = \"y\"", "ac"},
        {"AVEC 1 <> \"y\"", "abde"},
        {"AVEC 1 = \"\"", "bd"},
        {"AVEC 1 = \"y]\"", "ace"},
        {"AVEC 1 <> \"y]\"", "abd"},
        {"AVEC 1 = \"]\"", "abcde"},
        {"AVEC 2 >= \"2\"", "bc"},
        {"AVEC 2 <= \"2\"", "abde"},
        {"AVEC 2 >= \"5\" OR = \"\" OR = \"1\"", "acde"},
        {"AVEC 1 = \"y]\" AND AVEC 2 = \"\"", "e"},
        {"AVEC 70 = \"\" AND AVEC 0 = \"c\"", "c"},
        {"PAR 1", "bdace"}, // the empty first, then in French, of equal ones the key decides
    };
    for (const auto& [conditions, keys] : cases)
        EXPECT_EQ(rows(conditions), keys) << conditions;
    EXPECT_EQ(numberOf([&] { (void)Store(engine).Select(marks("SSELECT X^X^0")); }),
              errors::FileUnknown);
}

TEST(StoreRequest, ValuesCompareAsNumbersOrAsTexts) {
    const char* const cases[][3] = {{"9", "<", "10"},
                                    {"-10", "<", "-9"},
                                    {"-1", "<", "0"},
                                    {"-0", "=", "00"},
                                    {"007", "=", "7"},
                                    {"9", ">", "10a"},
                                    {"1,5", ">", "1"},
                                    {"-", "<", "1"},
                                    {"", "<", "-99"},
                                    {"", "<", " "},
                                    {"", "=", ""},
                                    {"z", "<", "é"},
                                    {"99999999999999999999999", "<", "100000000000000000000000"}};
    for (const auto& [a, sign, b] : cases) {
        const auto order = compareValues(a, b);
        EXPECT_STREQ(order < 0 ? "<" : order > 0 ? ">" : "=", sign) << a << " " << b;
        EXPECT_EQ(compareValues(b, a), 0 <=> order) << a << " " << b;
    }
}

} // namespace
} // namespace vorandine::store
