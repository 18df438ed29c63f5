// The control where a scenario cannot take it: more lines than a list holds, a host that calls its
// members out of turn, what stands behind a modal form, and two files side by side.
#include "unit/control_support.h"

#include <gtest/gtest.h>

#include <functional>

namespace vorandine::control_test {
namespace {

using namespace widgets;

class ControlLimits : public testing::Test {
  protected:
    std::function<void(Form&)> modal = [](Form&) { FAIL() << "no form must open"; };
    Menu* menu = nullptr; // that was opened last
    Desk desk{{[](const Message& message) {
                   return message.buttons == Buttons::OK ? Answer::OK : Answer::Yes;
               },
               [this](Form& form) { modal(form); },
               [this](Menu& opened) { menu = &opened; },
               {},
               {},
               {}}};
    std::unique_ptr<host::CaregiverForm> file;

    void open() { file = desk.open("00012"); }
    ListBox& list(const std::string& name) { return at<ListBox>(*file, name); }
    void press(const std::string& button) { click(at<CommandButton>(*file, button)); }
    std::string notice() { return at<Label>(*file, "Etq_MessageDif").Caption(); }

    // The one error since the last call; the control can be worked with.
    void expectError(std::uint32_t number) {
        ASSERT_EQ(desk.errors.size(), 1U);
        EXPECT_EQ(desk.errors[0].number(), number) << desk.errors[0].what();
        desk.errors.clear();
        EXPECT_FALSE(file->form().unloaded());
        EXPECT_TRUE(file->control().Enabled() && file->control().MousePointer() == NormalPointer);
    }

    // The one employer of the caregiver, an association, with a contract that is open.
    void employ(const Content& ledger) {
        desk.putText("ASSOCIATION", "ADM", "Association ADM");
        desk.putText("CONTRAT", "00012-ADM", "^^ADM^ADM");
        desk.put("DIFAIDANT", "00012ADM", ledger);
    }
    std::string stored() { return desk.stored("DIFAIDANT", "00012ADM"); }
    void showDif() {
        showTab(at<TabContainer>(*file, "Ong_Vorandine"), 0);
        showTab(at<TabContainer>(*file, "Ong_Vorandine"), 2);
    }
    void openLedger(const Content& content) {
        employ(content);
        open();
        showDif();
        doubleClickLine(list("Lst_DifEmpl"), 0);
    }
    void addRights() {
        press("Cmd_AjoutDif");
        typeText(at<TextField>(*file, "Txt_DateDif"), "01/01/2006");
        typeText(at<TextField>(*file, "Txt_DroitDif"), "1");
        press("Cmd_OkDif");
    }
    void addTraining() {
        press("Cmd_AjouterForm");
        typeText(at<TextField>(*file, "Txt_DatFormAidant"), "12/03/2006");
        choose(at<ComboBox>(*file, "Cbo_CodFormAidant"), "Hygiène");
        typeText(at<TextField>(*file, "Txt_HhFormAidant"), "7,5");
        choose(at<ComboBox>(*file, "Cbo_DifFormAidant"), "OUI");
        press("Cmd_OKForm");
    }
};

TEST_F(ControlLimits, AFileLongerThanTheListsIsNeverCut) {
    desk.put("FORMVORANDINE", "00012", caregiver(MaxLines + 1));
    const std::string before = desk.stored("FORMVORANDINE", "00012");
    open();
    EXPECT_EQ(list("Lst_CodeForm").ListCount(), MaxLines);
    for (const char* const button : {"Cmd_OK", "Cmd_Retour"}) {
        press(button);
        expectError(errors::RecordTooLong);
    }
    EXPECT_EQ(desk.stored("FORMVORANDINE", "00012"), before);
}

TEST_F(ControlLimits, BehindAModalFormTheControlWaits) {
    employ({{1, {"20060101"}}, {2, {"2000"}}, {4, {"2000"}}});
    open();
    bool waited = false;
    modal = [&](Form& charging) {
        EXPECT_EQ(file->control().MousePointer(), Hourglass);
        EXPECT_EQ(click(at<CommandButton>(*file, "Cmd_AnnulerForm")), Outcome::Refused);
        charging.Unload();
        EXPECT_FALSE(charging.unloaded()) << "the system must not close it";
        waited = !file->control().Enabled();
        pressKey(charging, Key::Escape);
    };
    addTraining();
    EXPECT_TRUE(waited && file->control().Enabled());
    EXPECT_EQ(file->control().MousePointer(), NormalPointer);
}

TEST_F(ControlLimits, AFullLedgerCanShrinkButNotGrowAndALongerOneIsNeverRewritten) {
    openLedger(ledger(MaxLines));
    std::string before = stored();
    addRights();
    expectError(errors::TooManyLines);
    EXPECT_EQ(stored(), before);
    press("Cmd_AnnuleDif");
    doubleClickLine(list("Lst_DetailDif"), MaxLines - 1);
    press("Cmd_SupprDif");
    EXPECT_EQ(list("Lst_DetailDif").ListCount(), MaxLines - 1);
    addRights();
    EXPECT_EQ(list("Lst_DetailDif").ListCount(), MaxLines);
    EXPECT_EQ(list("Lst_CodeFormDif").ListCount(), MaxLines);

    openLedger(ledger(MaxLines + 1));
    before = stored();
    EXPECT_NE(notice().find("32768 lignes"), std::string::npos) << notice();
    for (const char* const button : {"Cmd_OkDif", "Cmd_SupprDif"}) {
        doubleClickLine(list("Lst_DetailDif"), 2);
        press(button);
        EXPECT_EQ(stored(), before);
        EXPECT_EQ(list("Lst_DetailDif").ListCount(), MaxLines);
        EXPECT_NE(notice(), "");
    }
    EXPECT_TRUE(desk.errors.empty());
}

TEST_F(ControlLimits, AHostOutOfTurnLosesNothing) {
    employ(ledger(2));
    const std::string before = stored();
    open();
    control::Ctr_Vorandine& control = file->control();
    control.Recherche_DifAidant();
    control.Calcul_MV_Dif();
    control.Maj_DifAidant();
    EXPECT_EQ(stored(), before);
    control.ClearListes();
    EXPECT_EQ(list("Lst_SectPossibles").ListCount() + list("Lst_SectSelect").ListCount(), 0);
    EXPECT_EQ(list("Lst_CodSectPossibles").ListCount(), 4);
    EXPECT_EQ(list("Lst_CodSectSelect").ListCount(), 4);
}

// Remembers what it was asked, and by whom.
class Asked : public ports::HelpObject {
  public:
    std::shared_ptr<ports::DBAClient> client;
    std::shared_ptr<ports::DBADatabase> database;
    std::string log;

    void TheClient(const std::shared_ptr<ports::DBAClient>& now) override { client = now; }
    void TheDatabase(const std::shared_ptr<ports::DBADatabase>& now) override { database = now; }
    void Afficher_Aide(const std::string& page, const std::string& kind, const std::string& title,
                       const std::string& text) override {
        log += page + "|" + kind + "|" + title + "|" + text + ";";
    }
};

TEST_F(ControlLimits, TwoFilesSideBySideDoNotDisturbEachOther) {
    desk.put("FORMVORANDINE", "00012", caregiver(3));
    desk.put("FORMVORANDINE", "00013", caregiver(1));
    const std::string before = desk.stored("FORMVORANDINE", "00013");
    Asked help;
    const std::shared_ptr<ports::DBAClient> clients[] = {std::make_shared<ports::DBAClient>(),
                                                         std::make_shared<ports::DBAClient>()};
    file = desk.open("00012", help, clients[0]);
    auto other = desk.open("00013", help, clients[1]);
    // Each hands in its own client and database before it asks for help.
    std::vector<std::shared_ptr<ports::DBADatabase>> databases;
    for (const std::size_t asking : {0, 1, 0}) {
        host::CaregiverForm& asks = asking == 0 ? *file : *other;
        help.log.clear();
        (void)rightClick(at<TabContainer>(asks, "Ong_Vorandine"));
        (void)pick(asks.form(), *menu->entries().at(0));
        EXPECT_EQ(help.client, clients[asking]);
        EXPECT_EQ(help.log, "FormationVorandine.htm|S|Formations et expériences|;");
        databases.push_back(help.database);
    }
    EXPECT_TRUE(databases[0] == databases[2] && databases[0] != databases[1]);

    // What is done in one leaves the other alone.
    press("Cmd_AjouterForm");
    EXPECT_EQ(click(at<CommandButton>(*other, "Cmd_Retour")), Outcome::Done);
    other.reset();
    EXPECT_EQ(desk.stored("FORMVORANDINE", "00013"), before);
    EXPECT_FALSE(file->form().unloaded());
}

} // namespace
} // namespace vorandine::control_test
