// What requests select and in which order: chosen cases. fuzz/fuzz_request.cpp holds all others
// against a look at every record.
#include "store/Selection.h"

#include "records/RecordText.h"
#include "store/Comparison.h"
#include "store/Store.h"
#include "store/memory/MemoryEngine.h"
#include "store_support.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <map>
#include <random>

namespace vorandine::store {
namespace {

using Marks = std::map<std::string, std::string>; // key to record, "|" and "/" for the separators

std::string withMarks(std::string text) {
    std::replace(text.begin(), text.end(), '|', records::AttributeMark);
    std::replace(text.begin(), text.end(), '/', records::ValueMark);
    return text;
}

std::string readable(std::string text) {
    std::replace(text.begin(), text.end(), records::AttributeMark, '|');
    std::replace(text.begin(), text.end(), records::ValueMark, '/');
    std::replace(text.begin(), text.end(), records::SubvalueMark, ';');
    return text;
}

class StoreSelection : public testing::Test {
  protected:
    std::shared_ptr<MemoryEngine> engine = std::make_shared<MemoryEngine>();
    Store store{engine};

    void fill(const std::string& file, const Marks& records) {
        for (const auto& [key, record] : records)
            engine->file(file)->write(key, withMarks(record));
    }

    // Rows with "|" between, values with "/", values within an attribute with ";".
    std::string rows(const std::string& query, const std::string& wanted = "0") {
        const std::string file = query.substr(0, query.find(' '));
        return readable(std::as_const(*std::make_unique<records::DBARecord>(
            store.Select(store_test::request("SSELECT " + query, file, wanted))))());
    }
};

TEST_F(StoreSelection, ConditionsLookAtEveryValueOfAnAttribute) {
    fill("TABLES", {{"a", "x/y|1"}, {"b", "|2"}, {"c", "y|10"}, {"d", "x/|"}, {"e", "yz"}});
    EXPECT_EQ(rows("TABLES AVEC 1 = \"y\""), "a|c");
    EXPECT_EQ(rows("TABLES AVEC 1 <> \"y\""), "a|b|d|e");
    EXPECT_EQ(rows("TABLES AVEC 1 = \"\""), "b|d");
    EXPECT_EQ(rows("TABLES AVEC 1 = \"y]\""), "a|c|e");
    EXPECT_EQ(rows("TABLES AVEC 1 <> \"y]\""), "a|b|d");
    EXPECT_EQ(rows("TABLES AVEC 1 = \"]\""), "a|b|c|d|e");
    EXPECT_EQ(rows("TABLES AVEC 2 >= \"2\""), "b|c");
    EXPECT_EQ(rows("TABLES AVEC 2 <= \"2\""), "a|b|d|e");
    EXPECT_EQ(rows("TABLES AVEC 2 >= \"5\" OR = \"\" OR = \"1\""), "a|c|d|e");
    EXPECT_EQ(rows("TABLES AVEC 1 = \"y]\" AND AVEC 2 = \"\""), "e");
    EXPECT_EQ(rows("TABLES AVEC 70 = \"\" AND AVEC 0 = \"c\""), "c");
}

TEST_F(StoreSelection, OrderOfValues) {
    const auto order = [](std::string_view a, std::string_view b) {
        const auto there = compareValues(a, b);
        EXPECT_EQ(compareValues(b, a), 0 <=> there) << a << " " << b;
        return there < 0 ? '<' : there > 0 ? '>' : '=';
    };
    EXPECT_EQ(order("9", "10"), '<');
    EXPECT_EQ(order("-10", "-9"), '<');
    EXPECT_EQ(order("-1", "0"), '<');
    EXPECT_EQ(order("-0", "00"), '=');
    EXPECT_EQ(order("007", "7"), '=');
    EXPECT_EQ(order("99999999999999999999999", "100000000000000000000000"), '<');
    EXPECT_EQ(order("9", "10a"), '>'); // as texts
    EXPECT_EQ(order("1,5", "1"), '>');
    EXPECT_EQ(order("-", "1"), '<');
    EXPECT_EQ(order("", "-99"), '<');
    EXPECT_EQ(order("", " "), '<');
    EXPECT_EQ(order("", ""), '=');
    EXPECT_EQ(order("z", "é"), '<');
}

TEST_F(StoreSelection, KeysAreSelectedByRange) {
    const auto range = [](const std::string& conditions) {
        const KeyRange keys = keyRange(
            parseRequest(store_test::request("SSELECT TABLES AVEC " + conditions, "TABLES", "0")));
        return keys.from + ".." + keys.to.value_or("*");
    };
    EXPECT_EQ(range("1 = \"a\""), "..*");
    EXPECT_EQ(range("0 = \"A1]\""), "A1..A2");
    EXPECT_EQ(range("0 = \"é]\""), "é..ê");
    EXPECT_EQ(range("0 = \"]\""), "..*");
    EXPECT_EQ(range("0 = \"A1\""), std::string("A1..A1\0", 7));
    EXPECT_EQ(range("0 <> \"A1]\""), "..*");
    EXPECT_EQ(range("0 >= \"A1\""), "..*");
    EXPECT_EQ(range("0 = \"B]\" OR = \"A]\""), "A..C");
    EXPECT_EQ(range("0 >= \"B\" OR = \"A]\""), "..*");
    EXPECT_EQ(range("1 = \"\" AND AVEC 0 = \"A]\" AND AVEC 0 = \"AB]\""), "AB..AC");
    EXPECT_EQ(range("0 = \"AB]\" AND AVEC 0 = \"A]\""), "AB..AC");
    Request last;
    last.conditions = {{0, {{Operator::Equal, "A\xFF\xFF", true}}}};
    EXPECT_EQ(*keyRange(last).to, "B");
}

TEST_F(StoreSelection, SortsInFrenchWithTheEmptyFirstAndKeysLast) {
    fill("ACTIVITES", {{"1", "Côté"},
                       {"2", "cote"},
                       {"3", ""},
                       {"4", "côte"},
                       {"5", "Été"},
                       {"6", "étage"},
                       {"7", "cote"},
                       {"8", "Zoo"},
                       {"9", "10"},
                       {"A", "9"}});
    EXPECT_EQ(rows("ACTIVITES PAR 1"), "3|9|A|2|7|4|1|6|5|8");
    fill("CONTRAT", {{"1", "||b|DUPONT|Paul|||2"},
                     {"2", "||b|DUPONT|Anne|||3"},
                     {"3", "||a|DUPONT|Paul"},
                     {"4", "||b|DUPONT|Paul|||1"},
                     {"5", "||z|DUPON|Zoé"}});
    EXPECT_EQ(rows("CONTRAT PAR NomAideContrat PAR PrenomAideContrat PAR 3 PAR 8"), "5|2|3|4|1");
}

TEST_F(StoreSelection, ResultHasARowForEachRecordAndAValueForEachAttribute) {
    fill("TABLES", {{"a", "x/y||z"}, {"b", ""}, {"c", "||/"}});
    EXPECT_EQ(rows("TABLES", "0 1 2 3"), "a/x;y//z|b///|c///;");
    const auto result = [&](const std::string& query, const std::string& wanted) {
        return store.Select(store_test::request(query, "TABLES", wanted));
    };
    EXPECT_EQ(result("SSELECT TABLES", "2").DCount(), 3);
    EXPECT_EQ(result("SSELECT TABLES PAR 2", "2").DCount(), 3);
    EXPECT_EQ(result("SSELECT TABLES AVEC 0 = \"b\"", "1").DCount(), 1);
    EXPECT_EQ(result("SSELECT TABLES AVEC 0 = \"q\"", "1").DCount(), 0);
    EXPECT_EQ(
        std::as_const(*std::make_unique<records::DBARecord>(result("SSELECT TABLES", "0 1")))(1, 2),
        std::string("x") + records::SubvalueMark + "y");
}

TEST_F(StoreSelection, RefusesUnknownFilesAndDamagedRecords) {
    EXPECT_EQ(store_test::raisedBy([&] { (void)rows("PERSONNE"); }).number, errors::FileUnknown);
    engine->file("TABLES")->write("a", "x\xFE\xFC");
    EXPECT_EQ(rows("TABLES", "0 1"), "a/x");
    EXPECT_EQ(store_test::raisedBy([&] { (void)rows("TABLES", "2"); }).number, errors::Damaged);
}

// Against text split in full: attributes of all sizes around the blocks that separators are
// counted in, and what lies past the end.
TEST_F(StoreSelection, AttributesAreFoundWhereTheyStand) {
    std::mt19937 random(7);
    for (int round = 0; round < 300; ++round) {
        std::vector<std::string> attributes(random() % 90);
        std::string record;
        for (std::string& attribute : attributes) {
            attribute.assign(random() % (round % 3 == 0 ? 2 : 40), 'x');
            record += attribute + records::AttributeMark;
        }
        if (!record.empty())
            record.pop_back();
        EXPECT_EQ(records::attributeText(record, 0), "");
        for (std::size_t a = 1; a < 95; ++a)
            ASSERT_EQ(records::attributeText(record, static_cast<int>(a)),
                      a <= attributes.size() ? attributes[a - 1] : "");
    }
}

} // namespace
} // namespace vorandine::store
