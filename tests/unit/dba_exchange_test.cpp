// Records come into a store from the exchange format, all or none, and go back out in the one form
// that the files of demo/ have. fuzz/fuzz_import.cpp holds the two ways through a line together.
#include "dba_support.h"
#include "store/Store.h"

#include <functional>
#include <set>

namespace {

using namespace std::string_literals;

class Exchange : public dba_test::Program {
  protected:
    std::string stored(const std::string& file, const std::string& key) {
        return call({"get", "--json", url, file, key}) == 0 ? out.substr(0, out.size() - 1)
                                                            : "none";
    }
};

TEST_F(Exchange, ExportIsInOrderAndComesBackTheSame) {
    in = "{\"file\":\"CONTRAT\",\"key\":\"1*1\",\"record\":{\"3\":\"ABC\"}}\n"
         "  \t\r\n"
         "\n"
         "{ \"record\": {\"10\": [\"\\u00e9\", \"\"], \"2\": [\"seul\"], \"3\": [], \"4\": \"\"},"
         " \"key\": \"1\", \"file\": \"FORMVORANDINE\" }\r\n"
         "{\"file\":\"CONTRAT\",\"key\":\"1*1\",\"record\":{\"7\":\"20050101\"}}\n"
         "{\"file\":\"AIDANT\",\"key\":\"2\",\"record\":{\"1\":\"É \\\"x\\\" \\\\\"}}";
    EXPECT_EQ(done({"import", url, "-"}), "4 records stored\n");
    const std::string all = done({"export", url});
    EXPECT_EQ(all, "{\"file\":\"AIDANT\",\"key\":\"2\",\"record\":{\"1\":\"É \\\"x\\\" \\\\\"}}\n"
                   "{\"file\":\"CONTRAT\",\"key\":\"1*1\",\"record\":{\"7\":\"20050101\"}}\n"
                   "{\"file\":\"FORMVORANDINE\",\"key\":\"1\",\"record\":{\"2\":\"seul\","
                   "\"10\":[\"é\",\"\"]}}\n");
    EXPECT_EQ(done({"export", url, "FORMVORANDINE", "CONTRAT", "AIDANT", "CONTRAT"}), all);
    EXPECT_EQ(done({"export", url, "AIDANT"}), all.substr(0, all.find('\n') + 1));
    in = all;
    const std::string copy = "sqlite:" + folder / "copy.vor";
    EXPECT_EQ(done({"import", "--create", "--json", copy, "-"}), "{\"stored\":3,\"bad\":0}\n");
    EXPECT_EQ(done({"export", copy}), all);
}

TEST_F(Exchange, EveryWrongLineIsToldAndNothingStored) {
    done({"put", url, "AIDANT", "1", R"({"1":"avant"})"});
    const std::string good =
        write("bon.jsonl", R"({"file":"AIDANT","key":"1","record":{"1":"après"}})");
    const std::string bad =
        write("mauvais.jsonl", R"({"file":"AIDANT","key":"2","record":{"1":"bon"}}
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
    EXPECT_EQ(call({"import", "--json", url, good, bad}), 1);
    EXPECT_EQ(out, "{\"stored\":0,\"bad\":19}\n");
    std::istringstream lines(err);
    for (int number = 2; number <= 20; ++number) {
        std::string line;
        std::getline(lines, line);
        EXPECT_TRUE(line.starts_with(bad + ":" + std::to_string(number) + ": ")) << line;
    }
    EXPECT_EQ(stored("AIDANT", "1"), R"({"1":"avant"})");
    EXPECT_EQ(stored("AIDANT", "2") + stored("AIDANT", "3"), "nonenone");
    EXPECT_EQ(call({"import", url, good, folder.path()}), 2) << "cannot be read to its end";
    EXPECT_EQ(stored("AIDANT", "1"), R"({"1":"avant"})");
    EXPECT_EQ(done({"import", "--json", "--skip-bad", url, bad}), "{\"stored\":2,\"bad\":19}\n");
    EXPECT_EQ(stored("AIDANT", "2") + stored("AIDANT", "3"), R"({"1":"bon"}{"1":"bon"})");
}

// Input that comes slowly: others write to the store before it has all come.
TEST_F(Exchange, WhoeverFeedsAPipeKeepsNobodyFromWriting) {
    class Pipe : public std::streambuf {
      public:
        Pipe(std::string& text, std::function<void()> meanwhile)
            : text_(text), meanwhile_(std::move(meanwhile)) {}

      private:
        std::string& text_;
        std::function<void()> meanwhile_;

        int_type underflow() override {
            meanwhile_();
            if (gptr() != nullptr)
                return traits_type::eof();
            setg(text_.data(), text_.data(), text_.data() + text_.size());
            return traits_type::to_int_type(text_.front());
        }
    };
    int written = 0;
    const auto write = [&] {
        done({"put", url, "AIDANT", "2", "{\"1\":\"" + std::to_string(++written) + "\"}"});
    };
    const auto feed = [&](std::string text, const vorandine::dba::Arguments& words) {
        Pipe pipe(text, write);
        std::istream input(&pipe);
        std::ostringstream printed;
        return vorandine::dba::run(words, {input, printed, printed});
    };
    EXPECT_EQ(feed(R"({"file":"AIDANT","key":"1","record":{"1":"x"}})", {"import", url, "-"}), 0);
    EXPECT_EQ(feed("Code;Nom\n3;y\n",
                   {"import-csv", url, "AIDANT", "-", "--key", "Code", "--map", "Nom=1"}),
              0);
    EXPECT_GE(written, 4);
    EXPECT_EQ(stored("AIDANT", "1") + stored("AIDANT", "3"), R"({"1":"x"}{"1":"y"})");
}

TEST_F(Exchange, AFileThatIsThereAlreadyLeavesNoVersions) {
    importDemo(false);
    importDemo(false);
    EXPECT_NE(done({"verify", url}).find(" and 0 versions"), std::string::npos) << out;
    in = R"({"file":"AIDANT","key":"1","record":{"1":")" + std::string(17U << 20U, 'x') + "\"}}\n" +
         R"({"file":"AIDANT","key":"1","record":{"1":"court"}})";
    EXPECT_EQ(done({"import", "--skip-bad", url, "-"}), "1 record stored, 1 line skipped\n");
    EXPECT_EQ(err, "-:1: La ligne dépasse 16 Mio.\n");
}

TEST_F(Exchange, DamagedRecordsAreLeftOutAndTold) {
    const auto engine = vorandine::store::openEngine(url, vorandine::store::OpenMode::Existing);
    engine->atomically([&] {
        for (const auto& [key, record] :
             {std::pair("1", "bon"), {"2", "\xFF"}, {"\xE9", "x"}, {"3", "bon"}})
            engine->file("AIDANT")->write(key, record);
    });
    EXPECT_EQ(call({"export", url}), 1);
    EXPECT_EQ(out, "{\"file\":\"AIDANT\",\"key\":\"1\",\"record\":{\"1\":\"bon\"}}\n"
                   "{\"file\":\"AIDANT\",\"key\":\"3\",\"record\":{\"1\":\"bon\"}}\n");
    EXPECT_NE(err.find("AIDANT 2"), std::string::npos) << err;
    EXPECT_NE(err.find("AIDANT (unreadable key)"), std::string::npos) << err;
}

// The demonstration data agrees with itself, and is in the form that the export has.
TEST_F(Exchange, TheDemonstrationDataIsSoundAndComesBackAsItsOwnLines) {
    importDemo();
    EXPECT_EQ(done({"check", url}), "0 findings\n");
    EXPECT_EQ(done({"check", "--json", url}), "");
    std::multiset<std::string> lines;
    const auto demo = std::filesystem::path(__FILE__).parent_path() / "../../demo";
    for (const auto& entry : std::filesystem::directory_iterator(demo)) {
        std::ifstream file(entry.path());
        if (entry.path().extension() == ".jsonl")
            for (std::string line; std::getline(file, line);)
                lines.insert(line);
    }
    std::istringstream exported(done({"export", url}));
    for (std::string line; std::getline(exported, line);)
        ASSERT_EQ(lines.erase(line), 1U) << line;
    EXPECT_TRUE(lines.empty());
}

} // namespace
