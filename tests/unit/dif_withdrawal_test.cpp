// A training taken out of the stored ledgers, as the control does it for a training that is deleted
// or leaves the D.I.F.: which lines go, what becomes of the balances, and what failures leave.
#include "apps/scenario/RehearsalEngine.h"
#include "unit/dif_support.h"

#include <gtest/gtest.h>

namespace vorandine::control_test {
namespace {

using widgets::Label;
using widgets::ListBox;
using widgets::TextField;
using Journal = std::vector<std::string>;

// The training of line 1 of `caregiver(4)`, which is open: MAN on the 27th of December 2005.
class Withdrawal : public testing::Test {
  protected:
    Desk desk;
    std::shared_ptr<scenario::RehearsalEngine> rehearsal =
        std::make_shared<scenario::RehearsalEngine>(desk.engine);
    std::shared_ptr<store::Engine> below = std::exchange(desk.engine, rehearsal);

    Withdrawal() {
        desk.put("FORMVORANDINE", "00012", caregiver(4));
        employ(desk, "00012", "ADM");
        employ(desk, "00012", "BEL");
        desk.put("DIFAIDANT", "00012ADM",
                 {{1, {"20050101", "20051227", "20060310"}},
                  {2, {"2000", "", "100"}},
                  {3, {"", "500", ""}},
                  {4, {"2000", "1500", "1600"}},
                  {5, {"", "MAN", ""}},
                  {6, {"six"}}});
    }

    std::unique_ptr<host::CaregiverForm> openLine() {
        auto form = desk.open("00012");
        widgets::doubleClickLine(at<ListBox>(*form, "Lst_DatFormAidant"), 1);
        EXPECT_EQ(at<TextField>(*form, "Txt_DatFormAidant").Text(), "27/12/2005");
        static_cast<void>(rehearsal->takeJournal()); // of the stage
        return form;
    }

    void expectStored(const std::string& key, const Content& content) {
        const data::DBARecord record = store::Store(below).OpenFile("DIFAIDANT")->ReadRecord(key);
        for (int attribute = 1; attribute <= 6; ++attribute) {
            std::vector<std::string> values;
            for (int v = 1; v <= record.DCount(attribute); ++v)
                values.push_back(record(attribute, v));
            EXPECT_EQ(values, content.count(attribute) > 0 ? content.at(attribute)
                                                           : std::vector<std::string>{})
                << key << ", attribute " << attribute;
        }
    }
};

TEST_F(Withdrawal, EveryEmployerLosesTheLineAndOnlyTheyAreWritten) {
    desk.put("DIFAIDANT", "00012BEL",
             {{1, {"20051227", "20060101", "20060102", "20060103"}},
              {2, {"", "", "300", "100"}},
              {3, {"700", "900", "", "50"}},
              {4, {"-700", "100", "400", "350"}},
              {5, {"MAN", "HYG", "", "HYG"}}});
    // The code on another date alone; another's code; an employer gone from the contracts; another
    // caregiver.
    desk.put("DIFAIDANT", "00012CAR", {{1, {"20051228"}}, {3, {"100"}}, {4, {"0"}}, {5, {"MAN"}}});
    desk.put("DIFAIDANT", "00012DOM", {{1, {"20051227"}}, {3, {"100"}}, {4, {"0"}}, {5, {"HYG"}}});
    desk.put("DIFAIDANT", "00012PAR", {{1, {"20051227"}}, {3, {"100"}}, {4, {"0"}}, {5, {"MAN"}}});
    desk.put("DIFAIDANT", "00013ADM", {{1, {"20051227"}}, {3, {"100"}}, {4, {"0"}}, {5, {"MAN"}}});
    const auto form = openLine();
    form->control().Recherche_DifAidant();
    EXPECT_EQ(rehearsal->takeJournal(),
              (Journal{"write DIFAIDANT 00012ADM", "write DIFAIDANT 00012BEL",
                       "write DIFAIDANT 00012PAR"}));
    expectStored("00012ADM", {{1, {"20050101", "20060310"}},
                              {2, {"2000", "100"}},
                              {3, {"", ""}},
                              {4, {"2000", "2100"}},
                              {5, {"", ""}},
                              {6, {"six"}}});
    // The line that becomes the first keeps its balance; below zero, a balance becomes 0; hours
    // win.
    expectStored("00012BEL", {{1, {"20060101", "20060102", "20060103"}},
                              {2, {"", "300", "100"}},
                              {3, {"900", "", "50"}},
                              {4, {"100", "400", "350"}},
                              {5, {"HYG", "", "HYG"}}});
    expectStored("00012PAR", {});
    EXPECT_EQ(notice(*form), "");
    // It is not a change of the screen: the lists of employers are made anew on arrival.
    form->control().Recherche_DifAidant();
    EXPECT_EQ(rehearsal->takeJournal(), Journal{});
    press(*form, "Cmd_AnnulerForm");
    showDif(*form);
    EXPECT_EQ(at<ListBox>(*form, "Lst_DifEmpl").List(0),
              "Association ADM" + std::string(30, ' ') + "      21,00       0,00      21,00");
}

TEST_F(Withdrawal, NeighboursGoTogetherAndARecordOfNoLineStays) {
    desk.put("DIFAIDANT", "00012ADM",
             {{1, {"20051227", "20051227", "20051227"}},
              {2, {"", "", ""}},
              {3, {"100", "200", "300"}},
              {4, {"0", "-200", "-500"}},
              {5, {"MAN", "MAN", "MAN"}},
              {6, {"six"}}});
    desk.put("DIFAIDANT", "00012BEL",
             {{1, {"20051201", "20051227", "20051227", "20051230"}},
              {2, {"100", "", "", ""}},
              {3, {"", "100", "200", "250"}},
              {4, {"100", "0", "-200", "-450"}},
              {5, {"", "MAN", "MAN", "HYG"}}});
    const auto form = openLine();
    form->control().Recherche_DifAidant();
    expectStored("00012ADM", {{6, {"six"}}});
    expectStored("00012BEL", {{1, {"20051201", "20051230"}},
                              {2, {"100", ""}},
                              {3, {"", "250"}},
                              {4, {"100", "0"}},
                              {5, {"", "HYG"}}});
    press(*form, "Cmd_AnnulerForm");
    showDif(*form);
    EXPECT_EQ(at<ListBox>(*form, "Lst_DifEmpl").List(0),
              "Association ADM" + std::string(30, ' ') + "       0,00       0,00       0,00");
}

TEST_F(Withdrawal, OnlyTheDateInTheFieldAndTheLineInTheListsCount) {
    auto form = openLine();
    widgets::erase(at<TextField>(*form, "Txt_DatFormAidant"));
    widgets::typeText(at<TextField>(*form, "Txt_DatFormAidant"), "28/12/2005");
    form->control().Recherche_DifAidant();
    EXPECT_EQ(rehearsal->takeJournal(), Journal{}) << "the date was changed";
    press(*form, "Cmd_AnnulerForm");
    at<TextField>(*form, "Txt_DatFormAidant").Text("27/12/2005");
    form->control().Recherche_DifAidant();
    EXPECT_EQ(rehearsal->takeJournal(), Journal{}) << "no line is selected";
    // Another label chosen in the row changes nothing of the line.
    form = openLine();
    widgets::choose(at<widgets::ComboBox>(*form, "Cbo_CodFormAidant"), "Hygiène");
    form->control().Recherche_DifAidant();
    EXPECT_EQ(rehearsal->takeJournal(), Journal{"write DIFAIDANT 00012ADM"});
}

TEST_F(Withdrawal, ListsOfDifferentLengthsLoseNoOtherLine) {
    desk.put("DIFAIDANT", "00012ADM",
             {{1, {"20050101", "20051227", "vers Noël"}},
              {2, {"2000"}},
              {3, {"", "500", "à voir"}},
              {4, {"n/a"}},
              {5, {"", "MAN", "HYG", "PSC"}}});
    const auto form = openLine();
    form->control().Recherche_DifAidant();
    expectStored("00012ADM", {{1, {"20050101", "vers Noël"}},
                              {2, {"2000"}},
                              {3, {"", "à voir"}},
                              {4, {"n/a", "0"}},
                              {5, {"", "HYG", "PSC"}}});
}

TEST_F(Withdrawal, WhatCanNotBeReadOrWrittenStaysAndIsTold) {
    const std::string before = storedLedger(desk, "00012ADM");
    const auto form = openLine();
    const std::string lost = "Heures de la formation du 27/12/2005 à retirer";
    const auto expectTold = [&](const std::string& why) {
        EXPECT_EQ(storedLedger(desk, "00012ADM"), before);
        EXPECT_EQ(rehearsal->takeJournal(), Journal{});
        EXPECT_NE(notice(*form).find(why), std::string::npos) << notice(*form);
        EXPECT_NE(notice(*form).find(lost), std::string::npos) << notice(*form);
        EXPECT_TRUE(form->control().Enabled() &&
                    form->control().MousePointer() == widgets::NormalPointer);
    };
    rehearsal->failWrites("DIFAIDANT");
    form->control().Recherche_DifAidant();
    expectTold("n'a pas pu être écrit");
    rehearsal->failNothing();
    rehearsal->failReads("DIFAIDANT");
    form->control().Recherche_DifAidant();
    rehearsal->failNothing();
    expectTold("illisible");
    // One ledger is damaged, so its own line stays; the others lose theirs.
    const std::string damaged = before + "\xE9";
    below->file("DIFAIDANT")->write("00012BEL", damaged);
    form->control().Recherche_DifAidant();
    EXPECT_EQ(storedLedger(desk, "00012BEL"), damaged);
    EXPECT_EQ(rehearsal->takeJournal(), Journal{"write DIFAIDANT 00012ADM"});
    EXPECT_NE(notice(*form).find(lost), std::string::npos) << notice(*form);
}

TEST_F(Withdrawal, SumsThatOverflowStoreNothing) {
    const std::string most = "922337203685477";
    desk.put("DIFAIDANT", "00012ADM",
             {{1, {"20050101", "20051227", "20060101"}},
              {2, {most, "", most}},
              {3, {"", "1", ""}},
              {4, {most, most, most}},
              {5, {"", "MAN", ""}}});
    const std::string before = storedLedger(desk, "00012ADM");
    const auto form = openLine();
    form->control().Recherche_DifAidant();
    EXPECT_EQ(storedLedger(desk, "00012ADM"), before);
    EXPECT_NE(notice(*form), "");
    EXPECT_TRUE(desk.errors.empty());
}

} // namespace
} // namespace vorandine::control_test
