// Tables from a spreadsheet: what becomes of their cells, and how wrong ones are told.
#include "dba_support.h"

namespace {

class Csv : public dba_test::Program {
  protected:
    const vorandine::dba::Arguments trainings{
        "import-csv", url,     "FORMVORANDINE", "-",     "--key",   "Code",  "--map",
        "Date=5",     "--map", "Heures=7",      "--map", "Année=3", "--map", "Remarque=8"};

    std::string record(const std::string& file, const std::string& key) {
        return done({"get", "--json", url, file, key});
    }
};

TEST_F(Csv, ConvertsCellsAndGathersTheRowsOfAKey) {
    done({"put", url, "FORMVORANDINE", "2", R"({"4":"reste","7":["1","2","3"]})"});
    in = "\xEF\xBB\xBF"
         "Code;Année;Date;Heures;Remarque;Autre\r\n"
         "1;1995;12/06/2006;7,50;\"a \"\"b\"\"; c\";x\r\n"
         "1;1995;1/3/2005;-;;x\r\n"
         "1;1995;1/3/2005;14;\"deux\r\nlignes\";x\r\n"
         ";;;;;\r\n"
         "2;;;0;é;\r\n";
    EXPECT_EQ(call(trainings), 1);
    EXPECT_EQ(err, "-:3:4: 'Heures': '-' is no number of hours (7,50)\n"
                   "vorandine-dba: nothing was stored\n");
    in.replace(in.find(";-;"), 3, ";;\"\"");
    EXPECT_EQ(done(trainings), "4 rows stored\n");
    EXPECT_EQ(record("FORMVORANDINE", "1"),
              "{\"3\":\"1995\",\"5\":[\"20060612\",\"20050301\",\"20050301\"],"
              "\"7\":[\"750\",\"\",\"1400\"],\"8\":[\"a \\\"b\\\"; c\",\"\",\"deux lignes\"]}\n");
    EXPECT_EQ(record("FORMVORANDINE", "2"), "{\"4\":\"reste\",\"7\":\"0\",\"8\":\"é\"}\n");
}

TEST_F(Csv, TellsEveryBadCellByLineAndColumn) {
    in = "Code;Année;Date;Heures;Remarque\n"
         "1;1995;31/02/2005;7.5;x\n"
         "2;1995;2005-03-01;-1;x\n"
         ";;;1,005;\n"
         "3;1995;1/3/2005;1\n"
         "4;1995;1/3/2005;1;\xE9\n"
         "5;1995;1/3/2005;1;\"x\"y\n"
         "6;1995;1/3/2005;1;x\n"
         "6;1996;1/3/2005;1;x\n"
         "7;;;;x\n"
         "6;1995;1/3/2005;1;x\n"
         "8;;;;\"open\n"
         "9;;;;x\n";
    EXPECT_EQ(call(trainings), 1);
    const std::vector<std::string> expected{
        "-:2:3: 'Date': '31/02/2005' is no date", "-:2:4: 'Heures': '7.5' is no number",
        "-:3:3: 'Date': '2005-03-01' is no date", "-:3:4: 'Heures': '-1' is below zero",
        "-:4:4: 'Heures': '1,005' is finer",      "-:4:1: 'Code': the key is empty",
        "-:5: the row has 4 cells, not 5",        "-:6:5: the cell is not UTF-8",
        "-:7: something stands behind",           "-:9:2: 'Année': differs",
        "-:11:1: 'Code': '6' stands further up",  "-:12: a quote that opens here",
        "vorandine-dba: nothing was stored"};
    std::istringstream lines(err);
    std::string line;
    for (const std::string& beginning : expected) {
        ASSERT_TRUE(std::getline(lines, line)) << beginning;
        EXPECT_TRUE(line.starts_with(beginning)) << line << "\nexpected " << beginning;
    }
    EXPECT_FALSE(std::getline(lines, line)) << line;
    auto skipping = trainings;
    skipping.emplace_back("--skip-bad");
    EXPECT_EQ(done(skipping), "3 rows stored, 9 lines skipped\n");
    EXPECT_EQ(record("FORMVORANDINE", "6"),
              "{\"3\":\"1995\",\"5\":\"20050301\",\"7\":\"100\",\"8\":\"x\"}\n");
}

TEST_F(Csv, AQuoteTooManyTakesNoRowsWithIt) {
    const vorandine::dba::Arguments words{"import-csv", "--skip-bad", url,    "AIDANT",
                                          "-",          "--key",      "Code", "--map",
                                          "Nom=1",      "--map",      "B=2"};
    const auto rows = [&](const std::string& first, const std::string& later, int behind) {
        in = "Code;Nom;B\n1;" + first + "\n2;x;y\n3;" + later + "\n";
        for (int row = 4; row < 4 + behind; ++row)
            in += std::to_string(row) + ";x;y\n";
        return done(words);
    };
    EXPECT_EQ(rows("x;\"y", "x;y", 0), "2 rows stored, 1 line skipped\n");
    EXPECT_EQ(rows("x;\"y", "x;\"y\"", 5), "7 rows stored, 1 line skipped\n");
    EXPECT_EQ(rows("x;\"y", "x;y\"", 5), "7 rows stored, 1 line skipped\n");
    EXPECT_TRUE(err.starts_with("-:2: a quote that opens here takes in the rows up to line 4\n"));
    EXPECT_EQ(rows("\"x;y", "x\";y;z", 5), "6 rows stored, 2 lines skipped\n");
    EXPECT_EQ(rows("x;\"y", "x;y", 3000), "3002 rows stored, 1 line skipped\n");
    EXPECT_EQ(rows("x;\"y\n;y\"", "x;y", 0), "3 rows stored\n"); // a cell of two lines
    EXPECT_EQ(rows(std::string(5U << 20U, 'x') + ";y", "x;y", 1),
              "3 rows stored, 1 line skipped\n");
    EXPECT_TRUE(err.starts_with("-:2: the row is longer than a mebibyte\n")) << err;
}

TEST_F(Csv, TakesWhatSpreadsheetsUnderWindowsWrite) {
    in = "A1,\xC9lo\xEFse \x80,7.5\n";
    EXPECT_EQ(done({"import-csv", url, "CONTRAT", "-", "--no-header", "--separator", ",",
                    "--encoding", "windows-1252", "--key", "1", "--map", "2=NomAideContrat",
                    "--map", "3=7:text", "--json"}),
              "{\"stored\":1,\"bad\":0}\n");
    EXPECT_EQ(record("CONTRAT", "A1"), "{\"4\":\"Éloïse €\",\"7\":\"7.5\"}\n");
}

TEST_F(Csv, RefusesAMappingThatCannotBeMeant) {
    in = "Code;Nom;Nom\n1;x;y\n";
    const vorandine::dba::Arguments wrong[] = {
        {"--key", "Code"},
        {"--map", "Code=1"},
        {"--key", "Kode", "--map", "Code=1"},
        {"--key", "Code", "--map", "Nom=1"},
        {"--key", "Code", "--map", "Code=0"},
        {"--key", "Code", "--map", "Code=1:figure"},
        {"--key", "Code", "--map", "Code=1", "--map", "Code=1"},
        {"--key", "Code", "--map", "Code=1", "--separator", ";;"},
        {"--key", "Code", "--map", "Code=1", "--encoding", "latin"},
        {"--key", "4", "--map", "1=1", "--no-header"}};
    for (const auto& words : wrong) {
        vorandine::dba::Arguments all{"import-csv", url, "AIDANT", "-"};
        all.insert(all.end(), words.begin(), words.end());
        EXPECT_EQ(call(all), 2) << testing::PrintToString(words);
    }
    EXPECT_EQ(done({"export", url}), "");
}

} // namespace
