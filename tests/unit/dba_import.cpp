// Records come into a store from the exchange format, all or none, and go back out in the one form
// that the files of demo/ have.
#include "exchange/Exchange.h"
#include "exchange/RecordJson.h"
#include "store/sqlite/SqliteEngine.h"
#include "store_support.h"
#include "text/Error.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <sstream>

namespace vorandine {
namespace {

using namespace std::string_literals;

std::string json(const records::DBARecord& record) {
    std::string text;
    exchange::appendJson(text, record());
    return text;
}

class Import : public testing::Test {
  protected:
    store::Store store{store::openEngine("memory:", store::OpenMode::Create)};
    std::vector<std::string> complaints;

    std::optional<std::size_t>
    importAll(const std::vector<exchange::ImportSource>& sources,
              exchange::BadLines bad = exchange::BadLines::StoreNothing) {
        complaints.clear();
        exchange::ImportWatch watch;
        watch.complain = [this](const std::string& text) { complaints.push_back(text); };
        const exchange::ImportResult result = exchange::importRecords(store, sources, watch, bad);
        EXPECT_EQ(result.bad, complaints.size());
        return result.stored ? std::optional(result.good) : std::nullopt;
    }

    std::optional<std::size_t> importText(const std::string& text) {
        std::istringstream lines(text);
        return importAll({{"in", lines}});
    }

    std::string stored(const std::string& file, const std::string& key) {
        try {
            return json(store.OpenFile(file)->ReadRecord(key));
        } catch (const Error& error) {
            return error.number() == errors::RecordMissing ? "none" : error.what();
        }
    }
};

TEST_F(Import, StoresEveryRecordOfAGoodFile) {
    const auto count = importText(
        "{\"file\":\"CONTRAT\",\"key\":\"1*1\",\"record\":{\"3\":\"ABC\"}}\n"
        "  \t\r\n"
        "\n"
        "{ \"record\": {\"10\": [\"é\", \"\"], \"2\": [\"seul\"], \"3\": [], \"4\": \"\"},"
        " \"key\": \"1\", \"file\": \"FORMVORANDINE\" }\r\n"
        "{\"file\":\"CONTRAT\",\"key\":\"1*1\",\"record\":{\"7\":\"20050101\"}}");
    EXPECT_EQ(complaints, std::vector<std::string>());
    EXPECT_EQ(count, 3U);
    EXPECT_EQ(stored("CONTRAT", "1*1"), R"({"7":"20050101"})");
    EXPECT_EQ(stored("FORMVORANDINE", "1"), R"({"2":"seul","10":["é",""]})");
    EXPECT_EQ(store.OpenFile("FORMVORANDINE")->ReadRecord("1").DCount(10), 2);
}

TEST_F(Import, TellsEveryWrongLineAndStoresNothing) {
    ASSERT_EQ(importText(R"({"file":"AIDANT","key":"1","record":{"1":"avant"}})"), 1U);
    std::istringstream good(R"({"file":"AIDANT","key":"1","record":{"1":"après"}})");
    std::istringstream bad(R"({"file":"AIDANT","key":"2","record":{"1":"bon"}}
{"file":"AIDANT","key":
{"file":"AIDANT","key":"2","record":{"1":"x"}} {}
["AIDANT","2",{}]
{"file":"AIDANT","record":{"1":"x"}}
{"file":"AIDANT","key":2,"record":{"1":"x"}}
{"file":"AIDANT","key":"","record":{"1":"x"}}
{"file":"AIDANT","key":"2","record":{"1":"x"},"note":""}
{"file":"INCONNU","key":"2","record":{"1":"x"}}
{"file":"AIDANT","key":"2","record":["x"]}
{"file":"AIDANT","key":"2","record":{"0":"x"}}
{"file":"AIDANT","key":"2","record":{"01":"x"}}
{"file":"AIDANT","key":"2","record":{"65536":"x"}}
{"file":"AIDANT","key":"2","record":{"nom":"x"}}
{"file":"AIDANT","key":"2","record":{"1":"x","1":"y"}}
{"file":"AIDANT","key":"2","record":{"1":7}}
{"file":"AIDANT","key":"2","record":{"1":["x",null]}}
{"file":"AIDANT","key":"2","record":{"1":"a\tb"}}
)"
                           "{\"file\":\"AIDANT\",\"key\":\"2\",\"record\":{\"1\":\"\xE9\"}}\n"
                           // Behind a zero byte too, nothing may stand unseen.
                           "{\"file\":\"AIDANT\",\"key\":\"2\",\"record\":{}}\0x\n"s
                           R"({"file":"AIDANT","key":"3","record":{"1":"bon"}})");
    EXPECT_EQ(importAll({{"bon.jsonl", good}, {"mauvais.jsonl", bad}}), std::nullopt);
    ASSERT_EQ(complaints.size(), 19U);
    for (std::size_t i = 0; i < complaints.size(); ++i)
        EXPECT_TRUE(complaints[i].starts_with("mauvais.jsonl:" + std::to_string(i + 2) + ": "))
            << complaints[i];
    EXPECT_EQ(stored("AIDANT", "1"), R"({"1":"avant"})");
    EXPECT_EQ(stored("AIDANT", "2"), "none");
    EXPECT_EQ(stored("AIDANT", "3"), "none");
}

// One line in the form that programs write, and the same said otherwise, which the full reader
// takes.
TEST_F(Import, BothReadersMakeTheSameOfALine) {
    const std::string members[][2] = {
        {R"({"1":"é","3":["a","","b"]})", R"({"3":["a","","b"],"1":"\u00e9"})"},
        {R"({"2":["",""]})", R"({ "2":["",""]})"},
        {R"({"1":["seul"],"4":[],"5":""})", R"({"1": "seul"})"},
        {R"({"65535":"x"})", R"({"65535" :"x"})"},
        {R"({})", R"({"1":"","9":[""]})"},
    };
    for (const auto& [short_, full] : members) {
        ASSERT_EQ(importText(R"({"file":"AIDANT","key":"c","record":)" + short_ +
                             "}\r\n{ \"file\":\"AIDANT\",\"key\":\"f\",\"record\":" + full + "}"),
                  2U)
            << short_;
        EXPECT_EQ(std::string(store.OpenFile("AIDANT")->ReadRecord("c")()),
                  std::string(store.OpenFile("AIDANT")->ReadRecord("f")()))
            << short_;
    }
}

TEST_F(Import, SkipsWrongLinesWhereAskedTo) {
    std::istringstream lines(
        "{\"file\":\"AIDANT\",\"key\":\"1\",\"record\":{\"1\":\"bon\"}}\n"
        "{\"file\":\"AIDANT\",\"key\":\"2\",\"record\":{\"2\":\"x\",\"1\":7}}\n"
        "{\"file\":\"AIDANT\",\"key\":\"3\",\"record\":{\"1\":\"bon\"}}\n");
    EXPECT_EQ(importAll({{"in", lines}}, exchange::BadLines::Skip), 2U);
    ASSERT_EQ(complaints.size(), 1U);
    EXPECT_TRUE(complaints.front().starts_with("in:2: "));
    EXPECT_EQ(stored("AIDANT", "2"), "none");
    EXPECT_EQ(stored("AIDANT", "3"), R"({"1":"bon"})");
}

TEST_F(Import, ASourceThatCannotBeReadToItsEndStoresNothing) {
    std::istringstream good(R"({"file":"AIDANT","key":"1","record":{"1":"x"}})");
    std::ifstream folder(std::filesystem::temp_directory_path());
    EXPECT_THROW(static_cast<void>(importAll({{"bon", good}, {"dossier", folder}})), Error);
    EXPECT_EQ(stored("AIDANT", "1"), "none");
}

TEST(Export, LeavesOutDamagedRecordsAndSaysWhich) {
    const auto engine = store::openEngine("memory:", store::OpenMode::Create);
    store::EngineFile& file = *engine->file("AIDANT");
    engine->atomically([&] {
        file.write("1", "bon");
        file.write("2", "\xFF");
        file.write("\xE9", "x");
        file.write("3", "bon");
    });
    std::ostringstream out;
    std::vector<std::string> told;
    const auto result = exchange::exportRecords(
        file, "AIDANT", out, [&](const std::string& text) { told.push_back(text); }, [] {});
    EXPECT_EQ(out.str(), "{\"file\":\"AIDANT\",\"key\":\"1\",\"record\":{\"1\":\"bon\"}}\n"
                         "{\"file\":\"AIDANT\",\"key\":\"3\",\"record\":{\"1\":\"bon\"}}\n");
    EXPECT_EQ(result.damaged, 2U);
    ASSERT_EQ(told.size(), 2U);
    EXPECT_TRUE(told[0].starts_with("AIDANT 2: ")) << told[0];
    EXPECT_TRUE(told[1].starts_with("AIDANT (unreadable key): ")) << told[1];
}

// Between two files, nobody writes.
TEST(Export, SeesOneStateOfAllFiles) {
    const store_test::Folder folder;
    const auto reading = store::openEngine("sqlite:" + folder / "a.vor", store::OpenMode::Create);
    store::SqliteEngine writing(folder / "a.vor", store::OpenMode::Existing,
                                std::chrono::milliseconds(10));
    const auto write = [&] {
        return store_test::raisedBy(
                   [&] { writing.atomically([&] { writing.file("CONTRAT")->write("1", "x"); }); })
            .number;
    };
    reading->consistently([&] {
        EXPECT_EQ(reading->file("AIDANT")->read("1"), std::nullopt);
        EXPECT_EQ(write(), errors::Locked);
        EXPECT_EQ(reading->file("CONTRAT")->read("1"), std::nullopt);
    });
    EXPECT_EQ(write(), 0U);
    EXPECT_EQ(reading->file("CONTRAT")->read("1"), "x");
}

TEST(RecordJson, TakesDictionaryNamesAndChangesNothingWhenRefused) {
    const auto names = [](const std::string& name) { return name == "Nom" ? 4 : 0; };
    records::DBARecord record;
    record(9) = "ancien";
    exchange::fill(record, {{"Nom", "DURAND"}, {"1", {"a", "b"}}}, names);
    EXPECT_EQ(json(record), R"({"1":["a","b"],"4":"DURAND"})");
    const nlohmann::json refused[] = {
        {{"1", "x"}, {"Prenom", "y"}}, {{"4", "x"}, {"Nom", "y"}}, {{"5", {"x", "\n"}}}, "x"};
    for (const nlohmann::json& object : refused) {
        EXPECT_THROW(exchange::fill(record, object, names), Error) << object;
        EXPECT_EQ(json(record), R"({"1":["a","b"],"4":"DURAND"})");
    }
}

} // namespace
} // namespace vorandine
