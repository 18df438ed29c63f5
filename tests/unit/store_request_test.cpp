// The retrieval language: what each production gives, and what each refusal says and where.
#include "ports/Query.h"
#include "store/Request.h"

#include "store_support.h"

#include <gtest/gtest.h>
#include <vector>

namespace vorandine::store {
namespace {

using store_test::raisedBy;

// The tree in one line: conditions as `attribute op 'value'`, "*" after a value for "begins with".
std::string describe(const Request& request) {
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

std::string parsed(const std::string& query, const std::string& file, const std::string& wanted) {
    return describe(parseRequest(store_test::request(query, file, wanted)));
}

TEST(StoreRequest, ReadsEachProduction) {
    struct Case {
        const char* query;
        const char* file;
        const char* wanted;
        const char* tree;
    };
    for (const Case& c : std::vector<Case>{
             {"SSELECT ACTIVITES", "ACTIVITES", "0", "ACTIVITES 0"},
             {"SSELECT ACTIVITES PAR 1", "ACTIVITES", "0 1", "ACTIVITES ^1 0 1"},
             {R"(SSELECT DIFAIDANT AVEC 0 = "A1]" AND AVEC 5 = "T01")", "DIFAIDANT", "0",
              "DIFAIDANT [0 ='A1'*] [5 ='T01'] 0"},
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
              "TABLES [1 <>''* ='é'* =']'*] 65535"},
         })
        EXPECT_EQ(parsed(c.query, c.file, c.wanted), c.tree) << c.query;
}

TEST(StoreRequest, RefusalsSayWhatAndWhere) {
    struct Case {
        const char* query;
        const char* where;
        const char* what;
    };
    for (const Case& c : std::vector<Case>{
             {"", "caractère 1 :", "SSELECT attendu"},
             {"select TABLES", "caractère 1 :", "SSELECT attendu"},
             {"SSELECTTABLES", "caractère 1 :", "SSELECT attendu"},
             {"SSELECT ", "caractère 9 :", "nom de fichier"},
             {"SSELECT CONTRAT", "caractère 9 :", "attribut 2"},
             {"SSELECT tables", "caractère 9 :", "attribut 2"},
             {"SSELECT TABLES 1", "caractère 16 :", "AVEC, PAR ou la fin"},
             {"SSELECT TABLES avec 1 = \"\"", "caractère 16 :", "AVEC, PAR ou la fin"},
             {"SSELECT TABLES AVEC", "caractère 20 :", "attribut attendu"},
             {"SSELECT TABLES AVEC Nom = \"\"", "caractère 21 :", "« Nom »"},
             {"SSELECT TABLES AVEC NomAideContrat = \"\"", "caractère 21 :", "dictionnaire"},
             {"SSELECT TABLES AVEC -1 = \"\"", "caractère 21 :", "« -1 »"},
             {"SSELECT TABLES AVEC 65536 = \"\"", "caractère 21 :", "65535"},
             {"SSELECT TABLES AVEC 99999999999999999999 = \"\"", "caractère 21 :", "65535"},
             {"SSELECT TABLES AVEC 1", "caractère 22 :", "opérateur attendu"},
             {"SSELECT TABLES AVEC 1 > \"\"", "caractère 23 :", "opérateur attendu"},
             {"SSELECT TABLES AVEC 1 =\"a\"", "caractère 23 :", "opérateur attendu"},
             {"SSELECT TABLES AVEC 1 = ", "caractère 25 :", "entre guillemets"},
             {"SSELECT TABLES AVEC 1 = a", "caractère 25 :", "entre guillemets"},
             {"SSELECT TABLES AVEC 1 = \"été", "caractère 25 :", "pas fermé"},
             {"SSELECT TABLES AVEC 1 = \"été\"x\"", "caractère 30 :", "guillemet"},
             {"SSELECT TABLES AVEC 1 >= \"été]\"", "caractère 30 :", "commence par"},
             {"SSELECT TABLES AVEC 1 <= \"]\"", "caractère 27 :", "commence par"},
             {"SSELECT TABLES AVEC 1 = \"\" AND 2 = \"\"", "caractère 32 :", "AVEC attendu"},
             {"SSELECT TABLES AVEC 1 = \"\" OR \"\"", "caractère 31 :", "= attendu"},
             {"SSELECT TABLES AVEC 1 = \"\" OR >= \"\"", "caractère 31 :", "= attendu"},
             {"SSELECT TABLES AVEC 1 = \"\" OU = \"\"", "caractère 28 :", "OR =, AND AVEC, PAR"},
             {"SSELECT TABLES AVEC 1 = \"\" AVEC 2 = \"\"", "caractère 28 :", "AND AVEC"},
             {"SSELECT TABLES PAR", "caractère 19 :", "attribut attendu"},
             {"SSELECT TABLES PAR 1 AVEC 1 = \"\"", "caractère 22 :", "PAR ou la fin"},
             {"SSELECT TABLES AVEC 1 = \"é\xFD\"", "caractère 27 :", "pas permis"},
             {"SSELECT TABLES\tPAR 1", "caractère 15 :", "pas permis"},
         }) {
        const auto raised = raisedBy([&] { (void)parsed(c.query, "TABLES", "0"); });
        EXPECT_EQ(raised.number, errors::RequestRefused) << c.query;
        EXPECT_NE(raised.text.find(c.where), std::string::npos) << c.query << "\n" << raised.text;
        EXPECT_NE(raised.text.find(c.what), std::string::npos) << c.query << "\n" << raised.text;
    }
}

TEST(StoreRequest, WantedAttributesAreNumbers) {
    for (const char* const wanted : {"", "  ", "0 x", "NomAideContrat", "-1", "0,1", "65536"}) {
        const auto raised = raisedBy([&] { (void)parsed("SSELECT CONTRAT", "CONTRAT", wanted); });
        EXPECT_EQ(raised.number, errors::RequestRefused) << wanted;
        EXPECT_NE(raised.text.find("attributs demandés"), std::string::npos) << wanted;
    }
}

TEST(StoreRequest, QuotedValuesComeBackAsTheyWere) {
    for (const std::string& value : std::vector<std::string>{"", "Zoé", " a ", "x]y"})
        EXPECT_EQ(parsed("SSELECT TABLES AVEC 0 = " + ports::quoted(value), "TABLES", "0"),
                  "TABLES [0 ='" + value + "'] 0");
    EXPECT_EQ(raisedBy([] { (void)ports::quoted("a\"b"); }).number, errors::RequestRefused);
}

} // namespace
} // namespace vorandine::store
