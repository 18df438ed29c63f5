// What an administrator does with the history of a store and with copies of it.
#include "dba_support.h"
#include "store/Store.h"

#include <nlohmann/json.hpp>

namespace {

class History : public dba_test::Program {
  protected:
    void put(const std::string& file, const std::string& record, const std::string& user) {
        done({"put", "--user", user, url, file, "00012PSD", record});
    }
    // The history as it is printed, with "MOMENT" for each moment; the moments are in `moments`.
    std::string told(const std::string& file) {
        std::istringstream lines(done({"history", url, file, "00012PSD"}));
        std::string text;
        moments.clear();
        for (std::string line; std::getline(lines, line);) {
            constexpr std::size_t Size = 27; // "2026-11-23T02:03:04.567890Z"
            if (line.size() > Size && line[10] == 'T' && line[Size - 1] == 'Z') {
                moments.push_back(line.substr(0, Size));
                line.replace(0, Size, "MOMENT");
            }
            text += line + '\n';
        }
        return text;
    }
    std::vector<std::string> moments;
};

TEST_F(History, OfALedgerReadsAsAStatement) {
    put("DIFAIDANT", R"({"1":["20051231","20061231"],"2":["2000","2000"],"4":["2000","4000"]})",
        "sylvie");
    put("DIFAIDANT",
        R"({"1":["20051231","20060612","20061231"],"2":["2000","","2000"],"3":["","750",""],)"
        R"("4":["2000","1250","3250"],"5":["","HYG"]})",
        "karim");
    put("DIFAIDANT",
        R"({"1":["20060612","20061231"],"2":["","1x"],"3":"700","4":["-700","1300"],)"
        R"("5":"HYG","6":["é","ê"]})",
        "karim");
    done({"delete", "--yes", "--user", "odile", url, "DIFAIDANT", "00012PSD"});
    EXPECT_EQ(told("DIFAIDANT"),
              "CHANGE   LINE  DATE        GAINED  USED  TRAINING  BALANCE  WAS\n"
              "MOMENT created by sylvie\n"
              "new      1     31/12/2005  20,00                   20,00\n"
              "new      2     31/12/2006  20,00                   40,00\n"
              "MOMENT changed by karim\n"
              "new      2     12/06/2006          7,50  HYG       12,50\n"
              "balance  3     31/12/2006  20,00                   32,50    40,00\n"
              "MOMENT changed by karim\n"
              "was      1     31/12/2005  20,00                   20,00\n"
              "is       1     12/06/2006          7,00  HYG       -7,00\n"
              "was      2     12/06/2006          7,50  HYG       12,50\n"
              "is       2     31/12/2006  1x                      13,00\n"
              "gone     3     31/12/2006  20,00                   32,50\n"
              "attribute 6 was '', is 'é | ê'\n"
              "MOMENT deleted by odile\n"
              "gone     1     12/06/2006          7,00  HYG       -7,00\n"
              "gone     2     31/12/2006  1x                      13,00\n"
              "attribute 6 was 'é | ê', is ''\n");
}

TEST_F(History, OfOtherRecordsIsToldByAttributes) {
    in = R"({"file":"CONTRAT","key":"00012PSD","record":{"3":"PSD","4":"Présence"}})";
    done({"import", url, "-"});
    EXPECT_EQ(call({"history", url, "CONTRAT", "00012PSD"}), 1); // a load: nothing was replaced
    const std::string after = R"({"4":"Autre","7":["20050101","20060101"]})";
    put("CONTRAT", after, "sylvie");
    put("CONTRAT", after, "sylvie");
    EXPECT_EQ(told("CONTRAT"),
              "CHANGE   ATTRIBUTE       VALUE  BEFORE    AFTER     MEANING\n"
              "as first kept\n"
              "         3                                PSD       employer\n"
              "         NomAideContrat                   Présence  employer's name\n"
              "MOMENT changed by sylvie\n"
              "gone     3                      PSD                 employer\n"
              "changed  NomAideContrat         Présence  Autre     employer's name\n"
              "new      7               1                20050101  first day\n"
              "new      7               2                20060101  first day\n"
              "MOMENT stored again as it was by sylvie\n");
    const auto json = [&](std::size_t i, const std::string& before) {
        return "{\"version\":\"" + moments[i] + "\",\"user\":\"sylvie\",\"before\":" + before +
               ",\"after\":" + after + "}\n";
    };
    EXPECT_EQ(done({"history", "--json", url, "CONTRAT", "00012PSD"}),
              json(0, R"({"3":"PSD","4":"Présence"})") + json(1, after));
}

TEST_F(History, RestoresWhatWasAndIsItselfRestored) {
    put("AIDANT", R"({"1":"un"})", "sylvie");
    put("AIDANT", R"({"1":"deux"})", "sylvie");
    done({"delete", "--yes", url, "AIDANT", "00012PSD"});
    (void)told("AIDANT");
    const auto restore = [&](const std::string& version) {
        return call({"restore", "--user", "odile", url, "AIDANT", "00012PSD", version});
    };
    const auto content = [&] {
        return call({"get", "--json", url, "AIDANT", "00012PSD"}) == 0 ? out : "none";
    };
    EXPECT_EQ(restore(moments[1]), 0); // before "deux"
    EXPECT_EQ(content(), "{\"1\":\"un\"}\n");
    EXPECT_EQ(restore(moments[1]), 0);
    EXPECT_NE(out.find("already"), std::string::npos) << out;
    EXPECT_EQ(restore(moments[2]), 0);
    EXPECT_EQ(content(), "{\"1\":\"deux\"}\n");
    EXPECT_EQ(restore(moments[0]), 0); // before there was one
    EXPECT_EQ(content(), "none");
    for (const char* const none : {"2", "", "x"}) // the first begins all of them
        EXPECT_EQ(restore(none), 2);
    const std::string all = told("AIDANT");
    EXPECT_NE(all.find("MOMENT created by odile"), std::string::npos) << all;
    EXPECT_EQ(restore(moments[5]), 0); // undoes the last restore
    EXPECT_EQ(content(), "{\"1\":\"deux\"}\n");

    EXPECT_EQ(call({"prune", url, "0"}), 2); // nobody to be asked
    EXPECT_EQ(call({"prune", "--yes", url, "-1"}), 2);
    EXPECT_EQ(done({"prune", "--yes", url, "1"}), "0 versions dropped\n");
    EXPECT_EQ(done({"prune", "--yes", "--json", url, "0"}), "{\"dropped\":7}\n");
    EXPECT_EQ(call({"history", url, "AIDANT", "00012PSD"}), 1);
    EXPECT_EQ(content(), "{\"1\":\"deux\"}\n");
    // A version that is damaged is told, and the others with it.
    const auto engine = vorandine::store::openEngine(url, vorandine::store::OpenMode::Existing);
    engine->atomically([&] { engine->file("AIDANT")->write("00012PSD", "\xFF"); });
    put("AIDANT", R"({"1":"trois"})", "sylvie");
    EXPECT_EQ(call({"history", url, "AIDANT", "00012PSD"}), 1);
    EXPECT_NE(err.find("a version is damaged"), std::string::npos) << err;
}

TEST_F(History, GoesWithABackupWhichIsAStoreItself) {
    put("AIDANT", R"({"1":"un"})", "sylvie");
    put("AIDANT", R"({"1":"deux"})", "sylvie");
    const std::string copy = folder / "copie.vor";
    // Nothing that is there is touched: what a copy that was interrupted left, or another program,
    // and what SQLite would undo the new file with.
    for (const std::string name : {"copie.vor", "copie.vor.part", "copie.vor-journal"}) {
        const std::string path = write(name, "x");
        EXPECT_EQ(call({"backup", url, copy}), 2) << name;
        EXPECT_EQ(call({"repair", folder / "base.vor", copy}), 2) << name;
        EXPECT_EQ(std::filesystem::file_size(path), 1U) << name;
        std::filesystem::remove(path);
    }
    done({"backup", url, "sqlite:" + copy});
    EXPECT_FALSE(std::filesystem::exists(copy + ".part"));
    put("AIDANT", R"({"1":"trois"})", "sylvie");
    EXPECT_EQ(call({"backup", url, copy}), 2); // never written over
    EXPECT_EQ(done({"verify", copy}), "1 record and 2 versions can be read, the store is sound\n");
    EXPECT_EQ(done({"get", "--json", "sqlite:" + copy, "AIDANT", "00012PSD"}),
              "{\"1\":\"deux\"}\n");
    EXPECT_EQ(call({"backup", "memory:", folder / "m.vor"}), 2);
    EXPECT_EQ(call({"backup", url, folder / "missing/m.vor"}), 2);
    EXPECT_EQ(call({"verify", folder / "missing.vor"}), 2);
}

// Each page in turn is lost: that is found, and all that does not stand in it is saved.
TEST_F(History, DamageIsFoundAndTheRestSaved) {
    const std::string path = folder / "base.vor";
    const std::string bad = folder / "bad.vor";
    const std::string saved = folder / "saved.vor";
    put("AIDANT", R"({"1":")" + std::string(50'000, 'x') + "\"}", "sylvie");
    put("AIDANT", R"({"1":"un"})", "sylvie");
    for (int i = 0; i < 100; ++i)
        in += R"({"file":"TABLES","key":"é)" + std::to_string(i) + R"(","record":{"2":")" +
              std::string(1000, 'y') + "\"}}\n";
    done({"import", url, "-"});
    EXPECT_EQ(done({"verify", "--json", path}),
              "{\"records\":101,\"versions\":2,\"findings\":0}\n");
    constexpr std::size_t Page = 16384;
    const std::size_t pages = std::filesystem::file_size(path) / Page;
    int apart = 0; // pages without which those that are left do not hang together
    int whole = 0; // repairs that saved everything: the page was of an empty file
    int few = 0;   // that lost more than a page can hold: it was the root of the large file
    for (std::size_t page = 1; page < pages; ++page) {
        std::filesystem::copy_file(path, bad, std::filesystem::copy_options::overwrite_existing);
        std::fstream(bad, std::ios::in | std::ios::out | std::ios::binary)
            .seekp(static_cast<std::streamoff>(page * Page))
            .write(std::string(Page, '\xA5').data(), Page);
        EXPECT_EQ(call({"verify", bad}), 1) << page << out << err;
        apart += err.find("do not hang together") != std::string::npos;
        const int status = call({"repair", "--json", bad, saved});
        const auto outcome = nlohmann::json::parse(out);
        EXPECT_EQ(status, outcome["lost"]) << page; // 0 for a page that nothing is in
        whole += outcome["records"] == 101 && outcome["versions"] == 2;
        few += outcome["records"] < 101 - 16;
        done({"verify", saved});
        std::filesystem::remove(saved);
    }
    EXPECT_GE(apart, 1);
    EXPECT_GE(whole, 9);
    EXPECT_LE(few, 1);
    std::filesystem::resize_file(bad, Page * (pages - 2));
    EXPECT_EQ(call({"verify", "--json", bad}), 1) << out << err;
    EXPECT_EQ(call({"repair", "--json", bad, saved}), 1) << err;
    EXPECT_GT(nlohmann::json::parse(out)["records"], 50);
    std::filesystem::remove(saved);
    done({"repair", path, saved});
    EXPECT_EQ(done({"export", "sqlite:" + saved}), done({"export", url}));
    EXPECT_EQ(call({"repair", path, saved}), 2); // it is there
}

} // namespace
