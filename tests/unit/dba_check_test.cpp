// What check finds in a store that does not agree with itself, and that it finds nothing else.
#include "dba_support.h"
#include "store/Store.h"

#include <nlohmann/json.hpp>

#include <vector>

namespace {

using nlohmann::json;

class Check : public dba_test::Program {
  protected:
    // The tables, and a caregiver with one employer, sound in itself.
    void importSound() {
        importDemo(false);
        put("AIDANT", "90001", R"({"1":"ESSAI Ève"})");
        put("CONTRAT", "90001*1",
            R"({"3":"PSD012","4":"Présence et soutien à domicile","7":"20050101"})");
        put("FORMVORANDINE", "90001",
            R"({"1":"D","5":["20060612","20050301"],"6":["HYG","MAN"],"7":["750","0"],)"
            R"("12":"20060101","14":["1","0"]})");
        put("DIFAIDANT", "90001PSD",
            R"({"1":["20051231","20060612"],"2":["2000",""],"3":["","750"],)"
            R"("4":["2000","1250"],"5":["","HYG"]})");
    }

    void put(const std::string& file, const std::string& key, const std::string& record) {
        done({"put", url, file, key, record});
    }

    // The one finding after a record was stored, as "attribute/position value: problem".
    void expectOne(const std::string& file, const std::string& key, const std::string& record,
                   const std::string& expected) {
        const bool was = call({"get", "--json", url, file, key}) == 0;
        const std::string old = out;
        put(file, key, record);
        EXPECT_EQ(call({"check", "--json", url}), 1) << record;
        std::vector<std::string> found;
        std::istringstream lines(out);
        for (std::string line; std::getline(lines, line);) {
            const json finding = json::parse(line);
            EXPECT_EQ(finding["file"], file) << line;
            EXPECT_EQ(finding["key"], key) << line;
            EXPECT_NE(finding["advice"], "") << line;
            found.push_back(finding["attribute"].dump() + "/" + finding["position"].dump() + " " +
                            finding["value"].get<std::string>() + ": " +
                            finding["problem"].get<std::string>());
        }
        ASSERT_EQ(found.size(), 1U) << record << testing::PrintToString(found);
        EXPECT_TRUE(found.front().starts_with(expected)) << found.front() << "\n" << expected;
        was ? put(file, key, old) : static_cast<void>(done({"delete", "--yes", url, file, key}));
    }
};

TEST_F(Check, HoldsEveryValueAgainstItsLayout) {
    importSound();
    EXPECT_EQ(done({"check", url}), "0 findings\n");
    const std::vector<std::vector<std::string>> cases{
        {"FORMVORANDINE", R"({"5":"20060612","6":"MAN","7":["0","750"]})", "7/2 750: is beyond"},
        {"FORMVORANDINE", R"({"5":["20060612","","20050301"],"6":["MAN","MAN","MAN"]})",
         "5/3 20050301: is later than"},
        {"FORMVORANDINE", R"({"5":"20060231","6":"MAN"})",
         "5/1 20060231: is no date, and is erased by the next save of the file"},
        {"FORMVORANDINE", R"({"5":["2100","20060228"],"6":["MAN","HYG"]})", "5/1 2100: is no date"},
        {"FORMVORANDINE", R"({"6":"MAN","7":"7,50"})",
         "7/1 7,50: is no whole number of hundredths of an hour, and becomes '8'"},
        {"FORMVORANDINE", R"({"6":"ZZZ"})", "6/1 ZZZ: is no code of the table FO"},
        {"FORMVORANDINE", R"({"16":["","x"]})", "16/2 x: is erased by the next save"},
        {"FORMVORANDINE", R"({"1":"X"})", "1/1 X: is none of the values"},
        {"FORMVORANDINE", R"({"2":"ZZ"})", "2/1 ZZ: is no code of the table DIPLOMES"},
        {"FORMVORANDINE", R"({"10":["MEN","ZZZ"]})", "10/2 ZZZ: is no code of ACTIVITES"},
        {"FORMVORANDINE", R"({"10":"*"})", "10/1 *: is no code of ACTIVITES"},
        {"FORMVORANDINE", R"({"15":"Autre"})", "15/1 Autre: is no entry"},
        {"FORMVORANDINE", R"({"12":"20060101","13":"20051231"})", "13/1 20051231: is earlier than"},
        {"FORMVORANDINE", R"({"4":["a","b"]})", "4/2 b: is one of 2 values"}};
    done({"delete", "--yes", url, "DIFAIDANT", "90001PSD"});
    for (const auto& one : cases)
        expectOne(one[0], "90001", one[1], one[2]);
    put("FORMVORANDINE", "90001", "{}");
    expectOne("TABLES", "FORMPRO", R"({"2":["HYG","MAN"],"3":["Hygiène"]})", "3/2 : is an empty e");
    expectOne("TABLES", "QUALIF", R"({"2":["","Écoutante"]})", "2/1 : is an empty entry");
    expectOne("DETAILCALCUL", "90001*1*200601", R"({"1":"PSD","4":"200613"})", "4/1 200613: is no");
    expectOne("DETAILCALCUL", "90001*1*200601", R"({"1":"PSD","16":"7.5"})", "16/1 7.5: is no n");
    expectOne("DROITS", "sylvie*FORMDIF", R"({"1":"a"})", "1/1 a: is no whole number");
}

TEST_F(Check, RecomputesLedgersAndHoldsThemAgainstTrainings) {
    importSound();
    expectOne("FORMVORANDINE", "90001", // of the same code, on another day
              R"({"5":["20070612","20060612"],"6":["HYG","HYG"],"14":["1","1"]})",
              "6/1 HYG: counts for the D.I.F. (OUI), but");
    const std::string hygiene = R"("1":["20051231","20060612"],"3":["","750"],"5":["","HYG"],)";
    const auto ledger = [&](const std::string& rest) { return "{" + hygiene + rest + "}"; };
    expectOne("DIFAIDANT", "90001PSD", ledger(R"("2":["2000",""],"4":["2000","1500"])"),
              "4/2 1500: does not follow from the line before: 2,50 hours too many, it should be "
              "1250");
    expectOne("DIFAIDANT", "90001PSD", ledger(R"("2":["2000",""],"4":["1900","1250"])"),
              "4/1 1900: does not follow from the hours of the first line: 1,00 hours too few");
    expectOne("DIFAIDANT", "90001PSD", ledger(R"("2":["2000",""],"4":["2000"])"),
              "4/2 : does not follow");
    expectOne("DIFAIDANT", "90001PSD", ledger(R"("2":["2000","1e"],"4":["2000","1250"])"),
              "2/2 1e: is no whole number");
    expectOne("DIFAIDANT", "90001PSD",
              ledger(R"("2":["922337203685477","922337203685477"],"4":["922337203685477","0"])"),
              "0/0 : has figures beyond all hours");
    const auto lines = [](const char* hours) {
        return R"({"1":["20051231","20060612","20060612"],"2":["2000"],"5":["","HYG","HYG"],)" +
               std::string(hours) + "}";
    };
    expectOne(
        "DIFAIDANT", "90001PSD", lines(R"("3":["","750","1"],"4":["2000","1250","1249"])"),
        "3/3 1: is line 2 of that day and code, where the training file has 1 under OUI: 0,01");
    expectOne("DIFAIDANT", "90001PSD", ledger(R"("2":["2000","","900"],"4":["2000","1250"])"),
              "2/3 900: is beyond the 2 values of attribute 1, which tells how many lines there "
              "are, and is erased by the next change on the D.I.F. tab");
    expectOne("DIFAIDANT", "90001PSD", ledger(R"("2":["02000",""],"4":["2000","1250"])"),
              "2/1 02000: becomes '2000' at the next change on the D.I.F. tab");
    // Two contracts of one employer share the hours of a training.
    put("DIFAIDANT", "90001PSD", lines(R"("3":["","400","350"],"4":["2000","1600","1250"])"));
    EXPECT_EQ(call({"check", url}), 0) << out;
    // All three ways of the control to recompute are right, a balance held at zero too.
    put("DIFAIDANT", "90001PSD", ledger(R"("2":["200",""],"4":["200","0"])"));
    EXPECT_EQ(call({"check", url}), 0) << out;
    put("DIFAIDANT", "90001PSD", ledger(R"("2":["200",""],"4":["200","-550"])"));
    EXPECT_EQ(call({"check", url}), 0) << out;

    put("DIFAIDANT", "90001PSD", R"({"1":"20051231","2":"2000","4":"2000"})");
    expectOne("FORMVORANDINE", "90001", R"({"5":"20060612","6":"HYG","14":"1"})",
              "6/1 HYG: counts for the D.I.F. (OUI), but");
    put("FORMVORANDINE", "90001", R"({"5":"20060612","6":"HYG","14":"0"})");
    expectOne("DIFAIDANT", "90001PSD", ledger(R"("2":["2000",""],"4":["2000","1250"])"),
              "5/2 HYG: is charged, but");
}

TEST_F(Check, HoldsRecordsAgainstThoseTheyBelongTo) {
    importSound();
    put("CONTRAT", "90001*2",
        R"({"3":"BAM","4":"Bel Âge à la Maison","7":"20060101","8":"20060101"})"); // of a day
    EXPECT_EQ(done({"check", url}), "0 findings\n");
    done({"delete", "--yes", url, "CONTRAT", "90001*2"});
    expectOne("CONTRAT", "90001*2", R"({"3":"PSD","4":"Autre"})", "4/1 Autre: is not what");
    expectOne("CONTRAT", "90001*2", R"({"3":"P0112","4":"BRÛLÉ"})", "5/1 : is not what");
    expectOne("CONTRAT", "90001*2", R"({"3":"ZZZ"})", "3/1 ZZZ: is no code of ASSOCIATION");
    expectOne("CONTRAT", "90001*2",
              R"({"3":"BAM","4":"Bel Âge à la Maison","7":"20060102","8":"20060101"})",
              "8/1 20060101: is earlier");
    expectOne("CONTRAT", "X*1", R"({"3":"BAM","4":"Bel Âge à la Maison"})",
              "0/0 : begins with the code of no caregiver");
    expectOne("DETAILCALCUL", "90001*9*200601", R"({"1":"BAM"})", "1/1 BAM: is an employer with");
    expectOne("DIFAIDANT", "90001BAM", R"({"1":"20051231","2":"100","4":"100"})",
              "0/0 : belongs to employer 'BAM', with whom");
    expectOne("AIDANT", "900012", R"({"1":"x"})", "0/0 : begins with the code of another");
    expectOne("FORMVORANDINE", "900012", R"({"1":"D"})", "0/0 : begins with the code of another");
    // The screen looks for a code of 4 characters in CIVILAIDE.
    put("ASSOCIATION", "BAMA", R"({"1":"Bel Âge à la Maison"})");
    expectOne("CONTRAT", "90001*2", R"({"3":"BAMA","4":"Bel Âge à la Maison"})",
              "3/1 BAMA: is no code of ASSOCIATION");
    put("CONTRAT", "90001*2", R"({"7":"20050101"})"); // of no employer
    expectOne("DIFAIDANT", "90001", R"({"1":"20051231","2":"100","4":"100"})",
              "0/0 : belongs to employer '', with whom");
    put("CONTRAT", "90001*1", R"({"3":"PSD","4":"Présence et soutien à domicile","65":"X"})");
    EXPECT_EQ(call({"check", url}), 1);
    EXPECT_EQ(out, "DIFAIDANT 90001PSD belongs to employer 'PSD', with whom the caregiver has no "
                   "contract that counts: nobody sees its hours\n"
                   "    add the contract, or delete the record if the hours are not due\n"
                   "1 finding\n");
}

// What stands across the ends of blocks in which a record is read makes no difference.
TEST_F(Check, TellsRecordsThatCannotBeRead) {
    importSound();
    const std::string before(63, 'a');
    const auto store = vorandine::store::openEngine(url, vorandine::store::OpenMode::Existing);
    const auto write = [&](const std::string& key, const std::string& record) {
        store->atomically([&] { store->file("UTILISATEURS")->write(key, record); });
    };
    write("sound", before + "é" + before + "€" + before);
    EXPECT_EQ(done({"check", url}), "0 findings\n");
    for (const char* damage : {"\xC3", "\xA9", "\x01", "\x7F", "\xC2\x80", "\xFC", "\xFF"}) {
        write("damaged", before + damage + before);
        EXPECT_EQ(call({"check", url}), 1);
        EXPECT_TRUE(out.starts_with("UTILISATEURS damaged is damaged")) << out;
    }
    // Who is charged with a training is not known where one of the ledgers is damaged.
    write("damaged", before);
    store->atomically([&] { store->file("DIFAIDANT")->write("90001PSD", "\x01"); });
    EXPECT_TRUE(call({"check", url}) == 1 && out.ends_with("\n1 finding\n")) << out;
}

} // namespace
