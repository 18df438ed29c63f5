// The control at its limits: thousands of trainings, more than a list can hold, very long values,
// damaged records, two files open side by side.
#include "unit/control_support.h"
#include "widgets/Gestures.h"

#include <gtest/gtest.h>

namespace vorandine::control_test {
namespace {

using widgets::CommandButton;
using widgets::ListBox;
using widgets::ScrollBar;
using widgets::TextField;

void press(host::CaregiverForm& form, const std::string& button) {
    ASSERT_EQ(widgets::click(at<CommandButton>(form, button)), widgets::Outcome::Done);
}

TEST(ControlLimits, FiveThousandTrainingsOpenScrollSelectAndSave) {
    Desk desk;
    desk.put("FORMVORANDINE", "00012", caregiver(5000));
    const std::string before = desk.stored("00012");
    const auto form = desk.open("00012");
    EXPECT_EQ(at<ListBox>(*form, "Lst_CodeForm").ListCount(), 5000);
    widgets::scrollTo(at<ScrollBar>(*form, "Bdv_FormAidant"), 4999);
    EXPECT_EQ(at<ListBox>(*form, "Lst_CodeForm").ListIndex(), 4999);
    widgets::doubleClickLine(at<ListBox>(*form, "Lst_ObsFormAidant"), 4321);
    EXPECT_EQ(at<TextField>(*form, "Txt_ObsFormAidant").Text(), "séance 4321");
    press(*form, "Cmd_AnnulerForm");
    press(*form, "Cmd_OK");
    EXPECT_TRUE(form->form().unloaded() && desk.errors.empty());
    EXPECT_EQ(desk.stored("00012"), before);
}

TEST(ControlLimits, ARecordLongerThanTheListsIsNeverCut) {
    Desk desk({[](const widgets::Message&) { return widgets::Answer::Yes; }, {}, {}, {}, {}});
    desk.put("FORMVORANDINE", "00012", caregiver(40000));
    const std::string before = desk.stored("00012");
    const auto form = desk.open("00012");
    EXPECT_EQ(at<ListBox>(*form, "Lst_DatFormAidant").ListCount(), 32767);
    EXPECT_EQ(at<ListBox>(*form, "Lst_CodeForm").ListCount(), 32767);
    press(*form, "Cmd_OK");
    press(*form, "Cmd_Retour");
    ASSERT_EQ(desk.errors.size(), 2U);
    EXPECT_EQ(desk.errors[0].number(), errors::RecordTooLong);
    EXPECT_FALSE(form->form().unloaded());
    EXPECT_TRUE(form->control().Enabled() && form->control().MousePointer() == 0);
    EXPECT_EQ(desk.stored("00012"), before);
}

TEST(ControlLimits, AValueOfOneMebibyteComesBack) {
    Desk desk;
    std::string big;
    while (big.size() < 1U << 20U)
        big += "é";
    Content content = caregiver(2);
    content[8][1] = big;
    desk.put("FORMVORANDINE", "00012", content);
    const auto form = desk.open("00012");
    widgets::paste(at<TextField>(*form, "Txt_SpecialAidant"), big);
    widgets::doubleClickLine(at<ListBox>(*form, "Lst_DatFormAidant"), 1);
    EXPECT_EQ(at<TextField>(*form, "Txt_ObsFormAidant").Text(), big);
    press(*form, "Cmd_AnnulerForm");
    press(*form, "Cmd_OK");
    const auto again = desk.open("00012");
    EXPECT_EQ(at<TextField>(*again, "Txt_SpecialAidant").Text(), big);
    EXPECT_EQ(at<ListBox>(*again, "Lst_ObsFormAidant").List(1), big);
}

TEST(ControlLimits, ADamagedRecordStartsEmptyAndIsNotReplaced) {
    for (const std::string damaged : {"N\xFE"
                                      "01\xFE\xFE"
                                      "G\xE9riatrie",
                                      "N\xFE"
                                      "0\x01"}) {
        Desk desk;
        desk.engine->file("FORMVORANDINE")->write("00012", damaged);
        const auto form = desk.open("00012");
        EXPECT_EQ(at<ListBox>(*form, "Lst_SectSelect").ListCount(), 4);
        press(*form, "Cmd_OK");
        ASSERT_EQ(desk.errors.size(), 1U);
        EXPECT_EQ(desk.errors[0].number(), errors::ReadHadFailed);
        EXPECT_FALSE(form->form().unloaded());
        EXPECT_EQ(desk.stored("00012"), damaged);
    }
}

TEST(ControlLimits, TwoFilesSideBySideDoNotDisturbEachOther) {
    Desk desk;
    desk.put("FORMVORANDINE", "00012", caregiver(3));
    desk.put("FORMVORANDINE", "00013", caregiver(1));
    const std::string before = desk.stored("00013");
    const auto first = desk.open("00012");
    auto second = desk.open("00013");
    widgets::erase(at<TextField>(*first, "Txt_SpecialAidant"));
    press(*first, "Cmd_AjouterForm");
    EXPECT_TRUE(at<CommandButton>(*second, "Cmd_OK").Enabled());
    press(*second, "Cmd_Retour");
    second.reset();
    EXPECT_EQ(desk.stored("00013"), before);
    EXPECT_FALSE(first->form().unloaded());
    widgets::clickLine(at<ListBox>(*first, "Lst_DatFormAidant"), 0);
    EXPECT_EQ(at<ListBox>(*first, "Lst_DatFormAidant").ListIndex(), -1) << "a line is open";
}

} // namespace
} // namespace vorandine::control_test
