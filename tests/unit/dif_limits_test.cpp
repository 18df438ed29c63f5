// The D.I.F. tab at its limits: thousands of lines, more than a list can hold, damaged ledgers, and
// a host that calls its members out of turn.
#include "unit/dif_support.h"

#include <gtest/gtest.h>

namespace vorandine::control_test {
namespace {

using widgets::ListBox;

// One employer, ADM, and the tab that shows it.
struct DifLimits : testing::Test {
    Desk desk{{[](const widgets::Message&) { return widgets::Answer::Yes; }, {}, {}, {}, {}}};
    std::string before;
    std::unique_ptr<host::CaregiverForm> form;

    void openLedger(const Content& content) {
        employ(desk, "00012", "ADM");
        desk.put("DIFAIDANT", "00012ADM", content);
        before = stored();
        form = desk.open("00012");
        showDif(*form);
        openEmployer(*form, 0);
    }
    std::string stored() { return storedLedger(desk, "00012ADM"); }
    ListBox& detail() { return at<ListBox>(*form, "Lst_DetailDif"); }
};

TEST_F(DifLimits, FiveThousandLinesTakeOneBeforeOneBetweenAndOneLess) {
    openLedger(ledger(5000));
    EXPECT_EQ(at<ListBox>(*form, "Lst_DifEmpl").List(0),
              "Association ADM" + std::string(30, ' ') + "    2500,00    1250,00    1250,00");
    ASSERT_EQ(detail().ListCount(), 5000);
    addRights(*form, "01/01/1899", "7,25");
    addRights(*form, "28/12/1905", "1000");
    EXPECT_EQ(detail().ListCount(), 5002);
    EXPECT_EQ(detail().List(0).substr(0, 21), "01/01/1899       7,25");
    EXPECT_EQ(at<ListBox>(*form, "Lst_DifEmpl").List(0).substr(45),
              "    3507,25    1250,00    2257,25");
    for (const int line : {0, 2016}) {
        widgets::doubleClickLine(detail(), line);
        press(*form, "Cmd_SupprDif");
    }
    EXPECT_EQ(detail().ListCount(), 5000);
    EXPECT_EQ(stored(), before);
    EXPECT_TRUE(desk.errors.empty());
}

TEST_F(DifLimits, ALedgerAtTheLimitCanShrinkButNotGrow) {
    openLedger(ledger(widgets::MaxLines));
    const auto& codes = at<ListBox>(*form, "Lst_CodeFormDif");
    ASSERT_EQ(detail().ListCount(), widgets::MaxLines);
    addRights(*form, "01/01/2006", "1");
    ASSERT_EQ(desk.errors.size(), 1U);
    EXPECT_EQ(desk.errors[0].number(), errors::TooManyLines);
    EXPECT_EQ(stored(), before);
    EXPECT_TRUE(form->control().Enabled());
    EXPECT_EQ(form->control().MousePointer(), widgets::NormalPointer);
    press(*form, "Cmd_AnnuleDif");
    widgets::doubleClickLine(detail(), widgets::MaxLines - 1);
    press(*form, "Cmd_SupprDif");
    EXPECT_EQ(detail().ListCount(), widgets::MaxLines - 1);
    addRights(*form, "01/01/2006", "1");
    EXPECT_EQ(detail().ListCount(), widgets::MaxLines);
    EXPECT_EQ(codes.ListCount(), widgets::MaxLines);
    EXPECT_EQ(desk.errors.size(), 1U);
}

TEST_F(DifLimits, ALedgerLongerThanTheListIsShownButNeverRewritten) {
    openLedger(ledger(widgets::MaxLines + 1));
    EXPECT_EQ(detail().ListCount(), widgets::MaxLines);
    EXPECT_NE(notice(*form).find("32768 lignes"), std::string::npos) << notice(*form);
    widgets::doubleClickLine(detail(), 2);
    press(*form, "Cmd_OkDif");
    widgets::doubleClickLine(detail(), 2);
    press(*form, "Cmd_SupprDif");
    EXPECT_EQ(stored(), before);
    EXPECT_EQ(detail().ListCount(), widgets::MaxLines);
    EXPECT_NE(notice(*form), "");
}

TEST_F(DifLimits, MoreEmployersThanAListCanHoldKeepTheListsInStep) {
    for (int i = 0; i < widgets::MaxLines + 2; ++i)
        desk.put("CONTRAT", "00012-" + std::to_string(100000 + i),
                 {{3, {"Privé" + std::to_string(i)}}});
    form = desk.open("00012");
    showDif(*form);
    for (const char* list : {"Lst_DifEmpl", "Lst_CodeEmplDif", "Lst_ContratDif"})
        EXPECT_EQ(at<ListBox>(*form, list).ListCount(), widgets::MaxLines) << list;
    EXPECT_TRUE(form->control().Enabled());
}

TEST_F(DifLimits, ADamagedLedgerIsNeverReplaced) {
    const std::string damaged = "20060110\xFE\x32\xE9";
    employ(desk, "00012", "ADM");
    employ(desk, "00012", "BEL");
    desk.put("DIFAIDANT", "00012BEL", ledger(2));
    desk.engine->file("DIFAIDANT")->write("00012ADM", damaged);
    form = desk.open("00012");
    showDif(*form);
    EXPECT_NE(notice(*form), "");
    EXPECT_EQ(at<ListBox>(*form, "Lst_DifEmpl").List(0), "Association ADM" + std::string(30, ' '));
    openEmployer(*form, 0);
    addRights(*form, "01/01/2006", "1");
    EXPECT_EQ(stored(), damaged);
    EXPECT_NE(notice(*form).find("01/01/2006, droits 1,00"), std::string::npos) << notice(*form);
    openEmployer(*form, 1);
    addRights(*form, "01/01/2006", "1");
    EXPECT_NE(storedLedger(desk, "00012BEL").find("20060101"), std::string::npos);
    EXPECT_TRUE(desk.errors.empty());
}

// With no employer open, with the list of employers made anew under an open one, with balances not
// recomputed.
TEST_F(DifLimits, AHostOutOfTurnLosesNothing) {
    employ(desk, "00012", "ADM");
    desk.put("DIFAIDANT", "00012ADM", ledger(2));
    before = stored();
    form = desk.open("00012");
    control::Ctr_Vorandine& control = form->control();
    control.Recherche_DifAidant();
    control.Recherche_Place();
    control.Calcul_MV_Dif();
    control.Maj_DifAidant();
    control.Effacer_Donnees_Dif();
    showDif(*form);
    openEmployer(*form, 0);
    control.Select_DifAidant();
    addRights(*form, "01/01/2006", "1");
    press(*form, "Cmd_AnnuleDif");
    control.Select_DifAidant();
    openEmployer(*form, 0);
    control.Calcul_MV_Dif();
    control.Maj_DifAidant();
    EXPECT_EQ(at<ListBox>(*form, "Lst_DifEmpl").ListIndex(), -1) << "not made anew";
    EXPECT_EQ(stored(), before);
    desk.put("DIFAIDANT", "00012ADM", {{1, {"20060101"}}, {2, {"100000000000"}}, {4, {"7"}}});
    const std::string tooWide = stored();
    openEmployer(*form, 0);
    control.Maj_DifAidant();
    EXPECT_EQ(stored(), tooWide);
    EXPECT_NE(notice(*form), "");
    EXPECT_TRUE(control.Enabled() && control.MousePointer() == widgets::NormalPointer);
}

} // namespace
} // namespace vorandine::control_test
