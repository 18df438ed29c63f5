// The scenario player itself: what makes a scenario fail, where it says so, and what it goes on
// with.
#include "apps/scenario/HeadlessFrontEnd.h"
#include "apps/scenario/Player.h"
#include "store_support.h"

#include <gtest/gtest.h>

#include <fstream>
#include <sstream>

namespace vorandine::scenario {
namespace {

// A hand whose click on Cmd_Tous shows a modal form that only its button closes.
class ModalHand : public widgets::DirectHand {
  public:
    explicit ModalHand(widgets::World& world) : world_(world) {}

    widgets::Outcome click(widgets::CommandButton& button) override {
        if (button.Name() != "Cmd_Tous")
            return DirectHand::click(button);
        widgets::Form form;
        widgets::CommandButton leave;
        form.identify("Frm_Essai");
        form.QueryUnload = [&](bool& cancel) { cancel = !mayClose_; };
        leave.identify("Cmd_Fermer");
        leave.Click = [&] {
            mayClose_ = true;
            form.Unload();
        };
        form.add(leave);
        world_.runModal(form);
        EXPECT_TRUE(form.unloaded());
        world_.messageBox({"", "après", widgets::Icon::None, widgets::Buttons::YesNo, ""});
        return widgets::Outcome::Done;
    }

  private:
    widgets::World& world_;
    bool mayClose_ = false;
};

class ModalFrontEnd : public HeadlessFrontEnd {
  public:
    explicit ModalFrontEnd(headless::Callbacks callbacks)
        : HeadlessFrontEnd(std::move(callbacks), nullptr) {}
    [[nodiscard]] widgets::Hand& hand() override { return hand_; }

  private:
    ModalHand hand_{world()};
};

class ScenarioPlayer : public testing::Test {
  protected:
    store_test::Folder folder;
    std::string output;
    std::string failures;

    static constexpr const char* Stage = "put TABLES DIPLOMES {}\n"
                                         "put TABLES FORMPRO {}\n"
                                         "put TABLES QUALIF {}\n"
                                         "put ACTIVITES A1 {\"1\":\"Ménage\"}\n"
                                         "open 12 \"DURAND Marie\"\n";

    std::string write(const std::string& name, const std::string& text) {
        std::ofstream(folder / name, std::ios::binary) << text;
        return folder / name;
    }

    bool play(const std::string& text) {
        std::ostringstream out;
        std::ostringstream err;
        const std::string path = write("essai.scn", text);
        const bool held = Player(
                              Script(path), "memory:",
                              [](headless::Callbacks callbacks) {
                                  return std::make_unique<ModalFrontEnd>(std::move(callbacks));
                              },
                              out, err)
                              .play();
        output = out.str();
        // Without the folder, which changes from run to run.
        failures = err.str();
        for (std::size_t at = 0; (at = failures.find(folder / "")) != std::string::npos;)
            failures.erase(at, (folder / "").size());
        return held;
    }
};

TEST_F(ScenarioPlayer, FailedExpectationIsToldAndTheFileGoesOn) {
    write("stage.inc", Stage);
    write("expect.inc", "\n# a comment\nexpect Form \"Frm_DIF\"\n");
    EXPECT_FALSE(play("include stage.inc\r\n"
                      "include expect.inc\n"
                      "expect enabled Cmd_OK Txt_DatFormAidant\n"
                      "expect error\n"
                      "expect silence\n"
                      "expect Txt_AnDipAidant {\"Visible\":false,\"Text\":\"1\",\"Enabled\":true}\n"
                      "expect each Enabled {\"Cmd_OK\":true,\"Txt_DatFormAidant\":true}\n"
                      "tabs Cmd_OK Cbo_EtudeAidant\n"
                      "print Txt_ExpProfAidant(6).Text"));
    EXPECT_EQ(failures,
              "expect.inc:3: expected \"Frm_DIF\", found \"Frm_Hote\"\n"
              "essai.scn:3: expected all enabled, found [\"Txt_DatFormAidant\"] disabled\n"
              "essai.scn:4: expected an error, found []\n"
              "essai.scn:6: Text: expected \"1\", found \"\"\n"
              "essai.scn:6: Visible: expected false, found true\n"
              "essai.scn:7: Txt_DatFormAidant: expected true, found false\n"
              "essai.scn:8: expected the focus at \"Cmd_OK\", found it at \"Opt_Niveau\"\n");
    EXPECT_EQ(output, "Txt_ExpProfAidant(6).Text = \"\"\n");
}

TEST_F(ScenarioPlayer, LineThatCannotBeRunEndsTheFile) {
    for (const char* const line : {"bogus",
                                   "click",
                                   "click \"Cmd_OK",
                                   "click Cmd_\"OK\"",
                                   "click \"Cmd_OK\"Cmd_Retour",
                                   "click Cmd_Ok",
                                   "click Lst_SectSelect x",
                                   "key Tab Return",
                                   "retype Txt_AnDipAidant 1 Txt_SpecialAidant",
                                   "tabs Opt_Niveau Txt_EtudeAidant",
                                   "click Cmd_OK ->",
                                   "click Cmd_OK -> Oui",
                                   "close now",
                                   "print Cmd_OK.Text",
                                   "expect Cmd_OK.Caption OK",
                                   "expect Cmd_OK {}",
                                   "expect Cmd_OK {\"Text\":\"\"}",
                                   "expect each Text [\"\"]",
                                   "answer Oui",
                                   "today 31/02/2006",
                                   "today 1/2/2006",
                                   "put NOWHERE 1 {}",
                                   "put TABLES 1 {\"Nom\":\"x\"}",
                                   "rights {\"FORMDIF\":{\"level\":1}}",
                                   "fail NOWHERE",
                                   "fail read TABLES DIPLOMES",
                                   "include missing.inc",
                                   "include essai.scn",
                                   "open 13 Autre",
                                   "  # x"}) {
        EXPECT_FALSE(play(std::string(Stage) + line + "\nprint Form\n")) << line;
        EXPECT_EQ(output, "") << line;
        EXPECT_EQ(failures.rfind("essai.scn:6: ", 0), 0U) << line << ": " << failures;
    }
}

TEST_F(ScenarioPlayer, GestureOnTheWrongKindOfControlIsRefused) {
    EXPECT_TRUE(play(std::string(Stage) + "type Cmd_OK x\n"
                                          "click Lst_DatFormAidant\n"
                                          "click Etq_Aidant\n"
                                          "mark Cmd_OK 1\n"
                                          "tab 3\n"
                                          "menu Mnu_Sommaire\n"));
    EXPECT_EQ(output, "refused type Cmd_OK\nrefused click Lst_DatFormAidant\n"
                      "refused click Etq_Aidant\nrefused mark Cmd_OK\nrefused tab 3\n"
                      "refused menu Mnu_Sommaire\n");
}

TEST_F(ScenarioPlayer, LineOfSeveralGesturesEndsAtOneThatCouldNotBeMade) {
    const std::string kept = "message warning OK \"Message ORMELAINE\" \"Le diplôme saisi n'existe "
                             "pas, veuillez le ressaisir.\" -> OK\n";
    EXPECT_TRUE(play(std::string(Stage) +
                     "retype Txt_AnDipAidant 1998 Cmd_OK x Txt_SpecialAidant y\n"
                     "retype Cbo_EtudeAidant \"->\" Txt_AnDipAidant 2000\n"
                     "type Cbo_EtudeAidant x\n"
                     "key Tab Space\n"
                     "expect Focus \"Cbo_EtudeAidant\"\n"
                     "expect each Text {\"Txt_AnDipAidant\":\"1998\","
                     "\"Txt_SpecialAidant\":\"\",\"Cbo_EtudeAidant\":\"\"}\n"))
        << failures;
    EXPECT_EQ(output, "refused retype Cmd_OK\n" + kept + kept);
}

TEST_F(ScenarioPlayer, BoxesTakeFittingAnswersAndEveryAnswerIsAskedFor) {
    const std::string changed = std::string(Stage) + "tab 1\ntype Txt_ExpProfAidant(0) x\n";
    EXPECT_TRUE(play(changed + "close -> Cancel No\nexpect Form \"Frm_Hote\"\n"
                               "key Escape\nexpect output \"closed W_Sortir=1\"\nprint Form\n"));

    EXPECT_FALSE(play(changed + "answer OK\nclose\nprint Form\n"));
    EXPECT_NE(output.find("-> Cancel\nForm = \"Frm_Hote\"\n"), std::string::npos) << output;
    EXPECT_EQ(failures.rfind("essai.scn:9: ", 0), 0U) << failures;
    EXPECT_NE(failures.find("\nessai.scn:8: "), std::string::npos) << failures;
}

TEST_F(ScenarioPlayer, ModalFormTakesTheLinesUntilItCloses) {
    EXPECT_TRUE(play(std::string(Stage) + "answer Yes\n"
                                          "click Cmd_Tous\n"
                                          "expect printed \"form Frm_Essai opened\"\n"
                                          "expect Focus \"Cmd_Fermer\"\n"
                                          "click Cmd_OK\n"
                                          "close\n"
                                          "click Cmd_Fermer\n"
                                          "expect printed \"form Frm_Essai closed\"\n"
                                          "print Form\n"));
    EXPECT_EQ(output, "form Frm_Essai opened\nrefused click Cmd_OK\nrefused close Frm_Essai\n"
                      "form Frm_Essai closed\nmessage none YesNo \"\" \"après\" -> Yes\n"
                      "Form = \"Frm_Hote\"\n");

    // Ended inside, the form goes without a word, and so does what follows it.
    EXPECT_TRUE(play(std::string(Stage) + "click Cmd_Tous\nprint Form\n"));
    EXPECT_EQ(output, "form Frm_Essai opened\nForm = \"Frm_Essai\"\n");
}

TEST_F(ScenarioPlayer, FailuresOfTheDiskReachTheControlAlone) {
    EXPECT_TRUE(play(std::string(Stage) +
                     "fail FORMVORANDINE 12\n"
                     "fail FORMVORANDINE 14\n"
                     "click Cmd_OK\n"
                     "expect error\n"
                     "expect Ctr_Vorandine.W_Sortir 0\n"
                     "put FORMVORANDINE 13 {\"5\":[\"a\",\"\"],\"7\":\"\"}\n"
                     "expect show FORMVORANDINE 13 [[],[],[],[],[\"a\",\"\"]]\n"
                     "fail none\n"
                     "fail FORMVORANDINE 13\n"
                     "fail read FORMVORANDINE\n"
                     "expect show FORMVORANDINE 12 null\n"
                     "expect rows FORMVORANDINE \"9\" \"SSELECT FORMVORANDINE\" "
                     "[[\"\"]]\n"
                     "expect journal []\n"
                     "click Cmd_OK\n"
                     "expect journal [\"write FORMVORANDINE 12\"]\n"
                     "expect journal []\n"))
        << failures;
}

} // namespace
} // namespace vorandine::scenario
