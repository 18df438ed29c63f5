// A training taken out of stored ledgers that are odd, damaged or at the end of what numbers hold;
// the scenarios of the typing row show the usual ones.
#include "apps/scenario/RehearsalEngine.h"
#include "unit/dif_support.h"

#include <gtest/gtest.h>

namespace vorandine::control_test {
namespace {

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
        const records::DBARecord record =
            store::Store(below).OpenFile("DIFAIDANT")->ReadRecord(key);
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
