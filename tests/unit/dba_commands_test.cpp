// What a user of vorandine-dba sees of a store: records looked at, changed, queried, taken out.
#include "dba_support.h"

#include <array>

namespace {

class Commands : public dba_test::Program {
  protected:
    void SetUp() override {
        Program::SetUp();
        for (const auto& [key, record] : contracts)
            done({"put", url, "CONTRAT", key, record});
    }
    bool left(int count) {
        return done({"files", url}).find("CONTRAT        " + std::to_string(count) + "\n") !=
               std::string::npos;
    }

    const std::array<std::array<std::string, 2>, 3> contracts{
        {{"00012*1", R"({"3":"PSD","NomAideContrat":"Présence","7":"20090706"})"},
         {"00012*2", R"({"3":"P01","4":"ROUX","7":"20110201","8":"20150831"})"},
         {"00027*1", R"({"3":"BAM","4":"Bel Âge","7":["a","b"]})"}}};
};

TEST_F(Commands, HelpTellsEveryCommandWithExamples) {
    const std::string all = done({"--help"});
    for (const std::string name :
         {"create", "files", "get", "put", "delete", "query", "export", "import", "import-csv",
          "check", "history", "restore", "prune", "backup", "verify"}) {
        EXPECT_NE(all.find("\n  " + name + " "), std::string::npos) << name;
        const std::string help = done({name, "--help"});
        EXPECT_NE(help.find("Examples:\n  "), std::string::npos) << name;
        EXPECT_NE(help.find("vorandine-dba " + name + " "), std::string::npos) << name;
    }
}

TEST_F(Commands, WrongWordsAreToldAndNothingIsRun) {
    const vorandine::dba::Arguments wrong[] = {
        {},
        {"unknown"},
        {"create"},
        {"create", url},
        {"get", url, "CONTRAT"},
        {"get", url, "CONTRAT", "00012*1", "more"},
        {"get", url, "NOSUCH", "00012*1"},
        {"get", url, "HISTORIQUE", "00012*1"},
        {"get", "--jason", url, "CONTRAT", "00012*1"},
        {"get", "--json", "--json", url, "CONTRAT", "00012*1"},
        {"get", "sqlite:" + folder / "missing", "CONTRAT", "1"},
        {"query", url, "SSELECT CONTRAT", "--attributes"},
        {"query", url, "SSELECT CONTRAT", "--attributes", "0 Unknown"},
        {"query", url, "SSELECT CONTRAT AVEC"},
        {"put", url, "CONTRAT", "1", "{"},
        {"put", url, "CONTRAT", "1", R"({"Unknown":"x"})"},
        {"put", url, "CONTRAT", "1", R"({"4":"x","NomAideContrat":"y"})"},
        {"put", url, "CONTRAT", "", "{}"},
        {"import", url, "-", "-"},
        {"import", url, folder / "missing.jsonl"}};
    for (const auto& words : wrong) {
        EXPECT_EQ(call(words), 2) << testing::PrintToString(words);
        EXPECT_EQ(out, "");
        EXPECT_TRUE(err.starts_with("vorandine-dba: ")) << err;
    }
    EXPECT_TRUE(left(3)) << out;
}

TEST_F(Commands, NothingThatATerminalObeysIsPrinted) {
    const std::string escape = "\x1B[31m\u009B";
    in = R"({"file":"\u001b[31m","key":"\u009b","record":{}})";
    for (const vorandine::dba::Arguments& words : std::initializer_list<vorandine::dba::Arguments>{
             {escape},
             {"get", url, "CONTRAT" + escape, "1"},
             {"get", url, "CONTRAT", escape},
             {"import", url, folder / escape},
             {"import", url, "-"},
             {"backup", url, folder / escape},
             {"backup", url, folder / escape}, // which exists now
             {"repair", folder / escape, folder / (escape + "new")}}) {
        call(words);
        for (const char* const obeyed : {"\x1B", "\u009B"})
            EXPECT_EQ((out + err).find(obeyed), std::string::npos) << out << err;
    }
}

TEST_F(Commands, GetShowsARecordToPeopleAndToPrograms) {
    EXPECT_EQ(done({"get", url, "CONTRAT", "00027*1"}),
              "ATTRIBUTE       VALUE  CONTENT  MEANING\n"
              "3                      BAM      employer\n"
              "NomAideContrat         Bel Âge  employer's name\n"
              "7               1      a        first day\n"
              "7               2      b        first day\n");
    EXPECT_EQ(done({"get", "--json", url, "CONTRAT", "00012*1"}),
              "{\"3\":\"PSD\",\"4\":\"Présence\",\"7\":\"20090706\"}\n");
    EXPECT_EQ(call({"get", url, "CONTRAT", "00099*1"}), 1);
    EXPECT_EQ(out, "");
    in = R"({"1":"a\"b\\c"})";
    done({"put", url, "AIDANT", "1", "-"});
    EXPECT_EQ(done({"get", "--json", url, "AIDANT", "1"}), in + "\n");
}

TEST_F(Commands, DeleteAsksSomebodyOrNeedsYes) {
    const vorandine::dba::Arguments words{"delete", url, "CONTRAT", "00012*1"};
    in = "y\n";
    EXPECT_EQ(call(words), 2);
    inIsTerminal = true;
    in = "\n";
    EXPECT_EQ(call(words), 1);
    EXPECT_TRUE(left(3));
    in = "y\n";
    EXPECT_EQ(call(words), 0);
    EXPECT_NE(err.find("Delete CONTRAT 00012*1? "), std::string::npos) << err;
    EXPECT_EQ(call({"get", url, "CONTRAT", "00012*1"}), 1);
    inIsTerminal = false;
    EXPECT_EQ(call({"delete", "--yes", url, "CONTRAT", "00012*2"}), 0);
    EXPECT_EQ(call({"delete", "--yes", url, "CONTRAT", "00012*2"}), 1);
    EXPECT_TRUE(left(1));
}

TEST_F(Commands, QueryShowsColumnsInStepAndHowItFoundThem) {
    EXPECT_EQ(done({"query", url, "SSELECT CONTRAT PAR NomAideContrat", "--explain",
                    "--attributes=0 NomAideContrat 7 8"}),
              "KEY      NomAideContrat  7         8\n"
              "00027*1  Bel Âge         a | b\n"
              "00012*1  Présence        20090706\n"
              "00012*2  ROUX            20110201  20150831\n");
    EXPECT_EQ(err, "full scan of CONTRAT: 3 records read, 3 rows found\n");
    EXPECT_EQ(done({"query", "--json", "--explain", "--attributes", "0 7", url,
                    R"(SSELECT CONTRAT AVEC 0 = "00012]" AND AVEC 8 = "")"}),
              "[\"00012*1\",\"20090706\"]\n");
    EXPECT_EQ(err, "key range of CONTRAT, from \"00012\" to before \"00013\": 2 records read, "
                   "1 row found\n");
    EXPECT_EQ(
        done({"query", "--json", "--attributes", "7", url, R"(SSELECT CONTRAT AVEC 3 = "BAM")"}),
        "[[\"a\",\"b\"]]\n");
}

} // namespace
