// The scenario player itself: what makes a scenario fail, where it says so, and what it goes on
// with. All else that it does, the scenarios show.
#include "apps/scenario/HeadlessFrontEnd.h"
#include "apps/scenario/Player.h"
#include "store_support.h"

#include <gtest/gtest.h>

#include <fstream>
#include <sstream>

namespace vorandine::scenario {
namespace {

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
        Player player(
            Script(write("essai.scn", text)), "memory:",
            [](headless::Callbacks callbacks) {
                return std::make_unique<HeadlessFrontEnd>(std::move(callbacks), nullptr);
            },
            out, err);
        const bool held = player.play();
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
                      "print Txt_ExpProfAidant(6).Text\n"
                      "tab 1\n"
                      "type Txt_ExpProfAidant(0) x\n"
                      "close -> OK\n"
                      "print Form\n"));
    EXPECT_EQ(
        failures,
        "expect.inc:3: expected \"Frm_DIF\", found \"Frm_Hote\"\n"
        "essai.scn:3: expected all enabled, found [\"Txt_DatFormAidant\"] disabled\n"
        "essai.scn:4: expected an error, found []\n"
        "essai.scn:6: Text: expected \"1\", found \"\"\n"
        "essai.scn:6: Visible: expected false, found true\n"
        "essai.scn:7: Txt_DatFormAidant: expected true, found false\n"
        "essai.scn:8: expected the focus at \"Cmd_OK\", found it at \"Opt_Niveau\"\n"
        "essai.scn:12: no fitting answer is left for the message box \"Voulez-vous enregistrer "
        "les modifications effectuées ?\"\n"
        "essai.scn:12: no message box has asked for the answer OK\n");
    EXPECT_TRUE(output.starts_with("Txt_ExpProfAidant(6).Text = \"\"\nmessage ")) << output;
    EXPECT_TRUE(output.ends_with("-> Cancel\nForm = \"Frm_Hote\"\n")) << output;
}

TEST_F(ScenarioPlayer, LineThatCannotBeRunEndsTheFile) {
    for (const char* const line : {"bogus",
                                   "click",
                                   "click \"Cmd_OK",
                                   "click Cmd_Ok",
                                   "click Lst_SectSelect x",
                                   "key Tab Return",
                                   "retype Txt_AnDipAidant 1 Txt_SpecialAidant",
                                   "tabs Opt_Niveau Txt_EtudeAidant",
                                   "click Cmd_OK ->",
                                   "click Cmd_OK -> Oui",
                                   "expect Cmd_OK {}",
                                   "expect each Text [\"\"]",
                                   "fail read TABLES DIPLOMES",
                                   "print Cmd_OK.Text",
                                   "expect Cmd_OK.Caption OK",
                                   "answer Oui",
                                   "today 31/02/2006",
                                   "put TABLES 1 {\"Nom\":\"x\"}",
                                   "rights {\"FORMDIF\":{\"level\":1}}",
                                   "fail NOWHERE",
                                   "seat",
                                   "user \"\\u0001\"",
                                   "include missing.inc",
                                   "include essai.scn",
                                   "  # x"}) {
        EXPECT_FALSE(play(std::string(Stage) + line + "\nprint Form\n")) << line;
        EXPECT_EQ(output, "") << line;
        EXPECT_EQ(failures.rfind("essai.scn:6: ", 0), 0U) << line << ": " << failures;
    }
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

} // namespace
} // namespace vorandine::scenario
