// Records come into a store from the exchange format, all or none, and go back out in the one form
// that the files of demo/ have.
#include "apps/host/Exchange.h"
#include "apps/host/RecordJson.h"
#include "text/Error.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <sstream>

namespace vorandine {
namespace {

class Import : public testing::Test {
  protected:
    store::Store store{store::openEngine("memory:", store::OpenMode::Create)};
    std::vector<std::string> complaints;

    std::optional<std::size_t> importAll(const std::vector<host::ImportSource>& sources) {
        complaints.clear();
        return host::importRecords(store, sources,
                                   [this](const std::string& text) { complaints.push_back(text); });
    }

    std::optional<std::size_t> importText(const std::string& text) {
        std::istringstream lines(text);
        return importAll({{"in", lines}});
    }

    std::string stored(const std::string& file, const std::string& key) {
        try {
            return host::toJson(store.OpenFile(file)->ReadRecord(key)).dump();
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
                           R"({"file":"AIDANT","key":"3","record":{"1":"bon"}})");
    EXPECT_EQ(importAll({{"bon.jsonl", good}, {"mauvais.jsonl", bad}}), std::nullopt);
    ASSERT_EQ(complaints.size(), 18U);
    for (std::size_t i = 0; i < complaints.size(); ++i)
        EXPECT_TRUE(complaints[i].starts_with("mauvais.jsonl:" + std::to_string(i + 2) + ": "))
            << complaints[i];
    EXPECT_EQ(stored("AIDANT", "1"), R"({"1":"avant"})");
    EXPECT_EQ(stored("AIDANT", "2"), "none");
    EXPECT_EQ(stored("AIDANT", "3"), "none");
}

TEST_F(Import, ASourceThatCannotBeReadToItsEndStoresNothing) {
    std::istringstream good(R"({"file":"AIDANT","key":"1","record":{"1":"x"}})");
    std::ifstream folder(std::filesystem::temp_directory_path());
    EXPECT_THROW(static_cast<void>(importAll({{"bon", good}, {"dossier", folder}})), Error);
    EXPECT_EQ(stored("AIDANT", "1"), "none");
}

TEST_F(Import, DemonstrationDataComesBackAsItIsWritten) {
    const auto demo = std::filesystem::path(__FILE__).parent_path() / "../../demo";
    std::vector<std::filesystem::path> files;
    for (const auto& entry : std::filesystem::directory_iterator(demo))
        if (entry.path().extension() == ".jsonl")
            files.push_back(entry.path());
    ASSERT_FALSE(files.empty());
    for (const auto& file : files) {
        std::ifstream lines(file);
        ASSERT_TRUE(importAll({{file.filename(), lines}})) << complaints.front();
    }
    for (const auto& file : files) {
        std::ifstream lines(file);
        for (std::string line; std::getline(lines, line);) {
            auto entry = nlohmann::ordered_json::parse(line);
            ASSERT_EQ(stored(entry.at("file"), entry.at("key")), entry.at("record").dump());
        }
    }
}

TEST(RecordJson, TakesDictionaryNamesAndChangesNothingWhenRefused) {
    const auto names = [](const std::string& name) { return name == "Nom" ? 4 : 0; };
    data::DBARecord record;
    record(9) = "ancien";
    host::fill(record, {{"Nom", "DURAND"}, {"1", {"a", "b"}}}, names);
    EXPECT_EQ(host::toJson(record).dump(), R"({"1":["a","b"],"4":"DURAND"})");
    const nlohmann::json refused[] = {
        {{"1", "x"}, {"Prenom", "y"}}, {{"4", "x"}, {"Nom", "y"}}, {{"5", {"x", "\n"}}}, "x"};
    for (const nlohmann::json& object : refused) {
        EXPECT_THROW(host::fill(record, object, names), Error) << object;
        EXPECT_EQ(host::toJson(record).dump(), R"({"1":["a","b"],"4":"DURAND"})");
    }
}

} // namespace
} // namespace vorandine
