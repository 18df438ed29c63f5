// Two users change one caregiver's file, in every order in which the steps of one can come between
// those of the other: each change is stored, or its author was told, and nothing else is changed.
// What is stored is told in facts, of which each change says what it takes away and puts: how the
// control puts changes together has no part in the verdict.
// Each engine plays one pair of three, not the same; VORANDINE_PAIRS_EVERY=1 plays all.
#include "apps/scenario/Fiber.h"
#include "apps/scenario/RehearsalEngine.h"
#include "text/Characters.h"
#include "unit/control_support.h"
#include "widgets/named/GesturesByName.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdlib>
#include <set>
#include <sstream>
#include <tuple>

namespace vorandine::control_test {
namespace {

using namespace widgets;
using Texts = std::vector<std::string>;
using Facts = std::multiset<std::string>;

// One fact that a change makes of another, "" for none, and what stands in all that is told of it;
// of charged hours also what stands in what is told to who gives them back.
struct Part {
    std::string before;
    std::string after;
    std::string name;
    std::string given = {};
    auto operator<=>(const Part&) const = default;
    [[nodiscard]] bool of(const std::string& f) const { return (before + after).starts_with(f); }
};

// In all texts, %n is a digit and %u a name of the user's own. `gestures` are by name, but: "see"
// is sure of what a field shows, "@" stands for the line with a text, and where that is not so, the
// user sees that another was quicker and leaves; "leave" leaves by Escape.
struct Change {
    std::string name;
    std::vector<Part> parts;
    std::string gestures;
};

// clang-format off
const std::string Manual = "FORMVORANDINE 5=20040312|MAN|750|Recyclage|", OpenManual = "dblclick Lst_DatFormAidant @12/03/2004;see Txt_HhFormAidant 7,50;see Cbo_DifFormAidant NON;";
const std::string Charged = "FORMVORANDINE 5=20060310|MAN|500|", OpenCharged = "dblclick Lst_DatFormAidant @10/03/2006;see Txt_ObsFormAidant ;";
const std::string Rights = "DIFAIDANT 1=20040601|1100||", OpenRights = "tab 2;dblclick Lst_DifEmpl 0;dblclick Lst_DetailDif @01/06/2004;see Txt_DroitDif 11,00;";
const std::string Hours = "DIFAIDANT 1=20060310||500|MAN", OpenHours = "tab 2;dblclick Lst_DifEmpl 0;dblclick Lst_DetailDif @10/03/2006;see Txt_HreDif 5,00;";
const std::string Labels = "click Cmd_AjouterForm;click Cmd_AjouterFormation;paste Txt_LibelleParam de %u;", LabelsEnd = ";click Cmd_AjouterParam;leave;click Cmd_AnnulerForm;click Cmd_OK";
const std::string LineEnd = ";click Cmd_OKForm;click Cmd_OK";

const std::vector<Change> Changes = {
    {"training added", {{"", "FORMVORANDINE 5=20050105|ALI|%n00|de %u|0", "de %u"}}, "click Cmd_AjouterForm;paste Txt_DatFormAidant 05/01/2005;choose Cbo_CodFormAidant Équilibre;paste Txt_HhFormAidant %n;paste Txt_ObsFormAidant de %u" + LineEnd},
    {"training changed", {{Manual + "0", "FORMVORANDINE 5=20040312|MAN|%n00|Recyclage|0", "12/03/2004, Manutention, %n,00 h"}}, OpenManual + "paste Txt_HhFormAidant %n" + LineEnd},
    {"charged training changed", {{Charged + "|1", Charged + "de %u|1", "de %u"}}, OpenCharged + "paste Txt_ObsFormAidant de %u" + LineEnd},
    {"training deleted", {{Manual + "0", "", "12/03/2004"}}, OpenManual + "click Cmd_SupprimerForm;click Cmd_OK"},
    {"other training deleted", {{"FORMVORANDINE 5=20030105|HYG|1234||0", "", "05/01/2003"}}, "dblclick Lst_DatFormAidant @05/01/2003;click Cmd_SupprimerForm;click Cmd_OK"},
    {"year", {{"FORMVORANDINE 3=2001", "FORMVORANDINE 3=201%n", "« 201%n »"}}, "see Txt_AnDipAidant 2001;paste Txt_AnDipAidant 201%n;click Cmd_OK"},
    {"speciality", {{"FORMVORANDINE 4=Gériatrie", "FORMVORANDINE 4=de %u", "de %u"}}, "see Txt_SpecialAidant Gériatrie;paste Txt_SpecialAidant de %u;click Cmd_OK"},
    {"experience", {{"FORMVORANDINE 9.1=Crèche", "FORMVORANDINE 9.1=de %u", "de %u"}}, "tab 1;see Txt_ExpProfAidant(0) Crèche;paste Txt_ExpProfAidant(0) de %u;click Cmd_OK"},
    {"other experience", {{"FORMVORANDINE 9.2=", "FORMVORANDINE 9.2=de %u", "de %u"}}, "tab 1;see Txt_ExpProfAidant(1) ;paste Txt_ExpProfAidant(1) de %u;click Cmd_OK"},
    {"activity added", {{"", "FORMVORANDINE 10=A2", "Aide au lever"}}, "tab 1;mark Lst_SectPossibles @Aide au lever;click Cmd_SelectSect;click Cmd_OK"},
    {"other activity added", {{"", "FORMVORANDINE 10=A4", "École et garde"}}, "tab 1;mark Lst_SectPossibles @École;click Cmd_SelectSect;click Cmd_OK"},
    {"activity removed", {{"FORMVORANDINE 10=A3", "", "Courses"}}, "tab 1;mark Lst_SectSelect @Courses;click Cmd_SuppSect;click Cmd_OK"},
    {"other activity removed", {{"FORMVORANDINE 10=A1", "", "Ménage"}}, "tab 1;mark Lst_SectSelect @Ménage;click Cmd_SuppSect;click Cmd_OK"},
    {"availability", {{"FORMVORANDINE 12=20010910", "FORMVORANDINE 12=2001091%n", "1%n/09/2001"}}, "tab 1;see Txt_DatDispoAidant 10/09/2001;paste Txt_DatDispoAidant 1%n/09/2001;click Cmd_OK"},
    {"label added", {{"TABLES 2=XXX", "TABLES 2=XXX|de %u", "XXX"}}, Labels + "paste Txt_CodeParam XXX" + LabelsEnd},
    {"own label added", {{"", "TABLES 2=XX%n|de %u", "XX%n"}}, Labels + "paste Txt_CodeParam XX%n" + LabelsEnd},
    {"ledger line added", {{"", "DIFAIDANT 1=20060101|%n00||", "01/01/2006 %n,00"}}, "tab 2;dblclick Lst_DifEmpl 0;click Cmd_AjoutDif;paste Txt_DateDif 01/01/2006;paste Txt_DroitDif %n;click Cmd_OkDif;leave"},
    {"rights changed", {{Rights, "DIFAIDANT 1=20040601|%n00||", "01/06/2004"}}, OpenRights + "paste Txt_DroitDif %n;click Cmd_OkDif;leave"},
    {"rights deleted", {{Rights, "", "01/06/2004"}}, OpenRights + "click Cmd_SupprDif;leave"},
    {"hours changed", {{Hours, "DIFAIDANT 1=20060310||%n00|MAN", "10/03/2006", "(%n,00 h)"}}, OpenHours + "paste Txt_HreDif %n;click Cmd_OkDif;leave"},
    {"hours deleted", {{Hours, "", "10/03/2006"}}, OpenHours + "click Cmd_SupprDif;leave"},
    {"hours charged", {{Manual + "0", Manual + "1", "12/03/2004, Manutention, 7,50 h, Recyclage, D.I.F. OUI"}, {"", "DIFAIDANT 1=20040312||2%n0|MAN", "12/03/2004", "(2,%n0 h)"}}, OpenManual + "choose Cbo_DifFormAidant OUI;click Cmd_OKForm;dblclick Lst_Dif 0;paste Txt_Conso 2,%n;click Cmd_OKDif;click Cmd_OKDif;click Cmd_OK"},
    {"hours given back", {{"FORMVORANDINE 5=20060201|HYG|300||1", "FORMVORANDINE 5=20060201|HYG|300||0", "01/02/2006"}, {"DIFAIDANT 1=20060201||300|HYG", "", "01/02/2006"}}, "dblclick Lst_DatFormAidant @01/02/2006;see Cbo_DifFormAidant OUI;choose Cbo_DifFormAidant NON" + LineEnd},
    {"hours given back by a deletion", {{Charged + "|1", "", "10/03/2006"}, {Hours, "", "10/03/2006"}}, OpenCharged + "click Cmd_SupprimerForm;click Cmd_OK"},
};

// Records, the attributes of the lines in each, of a ledger's the balances last, and what it holds.
const std::vector<std::tuple<std::string, std::string, std::vector<int>, std::string>> Stage = {
    {"ASSOCIATION", "ADM", {1}, "Aide à domicile en Cévennes"}, {"CONTRAT", "00012-1", {1}, "^^ADM^A^^^20000101"},
    {"TABLES", "FORMPRO", {2, 3}, "^PSC]MAN]HYG]ALI^Premiers secours]Manutention]Hygiène]Équilibre"},
    {"FORMVORANDINE", "00012", {5, 6, 7, 8, 14}, "N^01^2001^Gériatrie^20060310]20060201]20040312]20030105^MAN]HYG]MAN]HYG^500]300]750]1234^]]Recyclage]^Crèche]]]]]]^A3]A1^20010903^20010910^^1]1]0]0^Écoutante"},
    {"DIFAIDANT", "00012ADM", {1, 2, 3, 5, 4}, "20040101]20040601]20060201]20060310^2000]1100]]^]]300]500^2000]3100]2800]2300^]]HYG]MAN^six"}};
// clang-format on

bool tells(const auto& texts, const std::string& what) {
    return std::any_of(texts.begin(), texts.end(), [&](const std::string& text) {
        return text.find(what) != std::string::npos;
    });
}

class Seat {
  public:
    std::vector<Part> parts;
    Texts told;            // all that the user saw of messages
    Texts refused;         // what of it says that something is not stored
    Texts decided;         // questions that he answered by: mine
    bool sawOther = false; // who was quicker
    bool keptTyped = true; // when he went back to the form instead
    const std::shared_ptr<scenario::RehearsalEngine> engine;

    Seat(bool first, const Change& change, std::shared_ptr<store::Engine> connection,
         Texts& journal, Answer answer)
        : engine(std::make_shared<scenario::RehearsalEngine>(std::move(connection), &journal)),
          answer_(answer),
          desk_({.messageBox = [this](const Message& message) { return reply(message); },
                 .runModal = [this](Form& form) { play(form); },
                 .popupMenu = {},
                 .showHelp = {},
                 .today = {},
                 .tell = [this](Form&, const Told& news) { told.push_back(news.text); }}) {
        desk_.engine = engine;
        desk_.user = first ? "ALICE" : "BOB";
        const auto own = [&](std::string text) {
            for (std::size_t at = 0; (at = text.find('%', at)) != std::string::npos;)
                text.replace(at, 2, text[at + 1] == 'u' ? desk_.user : first ? "8" : "9");
            return text;
        };
        for (const Part& part : change.parts)
            parts.push_back({own(part.before), own(part.after), own(part.name), own(part.given)});
        gestures_.str(own(change.gestures));
    }
    // Taking a training out takes the hours along that are charged for it by then.
    [[nodiscard]] bool changes(const std::string& file) const {
        return std::any_of(parts.begin(), parts.end(), [&](const Part& part) {
            return part.of(file) || (file == "DIFAIDANT" && part.of("FORMVORANDINE 5"));
        });
    }
    void work() {
        form_ = desk_.open("00012");
        play(form_->form());
        EXPECT_TRUE(desk_.errors.empty()) << desk_.errors.front().what();
    }

  private:
    const Answer answer_;
    Desk desk_;
    std::istringstream gestures_;
    FormStack forms_;
    DirectHand hand_;
    std::unique_ptr<host::CaregiverForm> form_;

    // In the form in front, until it has gone.
    void play(Form& form) {
        forms_.push(form);
        for (std::string gesture; !form.unloaded();) {
            if (!sawOther && gesture != "leave" && std::getline(gestures_, gesture, ';') &&
                gesture != "leave")
                make(gesture);
            else
                pressKey(form, Key::Escape);
            for (const char* const name : {"Etq_MessageDif", "Etq_MessageForm"})
                if (gesture.starts_with("click") && form.find(name) != nullptr)
                    hear(in<Label>(form, name).Caption());
        }
        forms_.pop();
    }
    void make(const std::string& gesture) {
        std::istringstream text(gesture);
        Texts words(3);
        std::getline(text >> words[0] >> words[1] >> std::ws, words[2]);
        if (words[0] == "see") {
            sawOther = text::Trim(in<TextField>(*forms_.front(), words[1]).Text()) != words[2];
            return;
        }
        if (words[2].starts_with('@')) {
            const auto& list = in<ListBox>(*forms_.front(), words[1]);
            int line = list.ListCount() - 1;
            while (line >= 0 && list.List(line).find(words[2].substr(1)) == std::string::npos)
                --line;
            if ((sawOther = line < 0))
                return;
            words[2] = std::to_string(line);
        }
        words.resize(words[2].empty() ? 2 : 3);
        EXPECT_EQ(GesturesByName(hand_, forms_).make(words[0], {words.begin() + 1, words.end()}),
                  Outcome::Done);
    }
    void hear(const std::string& text, bool refusal = false) {
        told.push_back(text);
        if (refusal || tells(Texts{text}, "rien n'est modifié"))
            refused.push_back(text);
    }
    Answer reply(const Message& message) {
        const bool conflict = tells(Texts{message.text}, "(Annuler)");
        const bool mine = conflict && answer_ == Answer::Yes;
        hear(message.text, message.buttons == Buttons::OK || (conflict && !mine));
        if (mine)
            decided.push_back(message.text);
        if (message.buttons != Buttons::YesNoCancel)
            return message.buttons == Buttons::OK ? Answer::OK : Answer::Yes;
        // After Cancel he is asked again on his way out, unless there is nothing to be stored.
        keptTyped = !conflict || answer_ != Answer::Cancel;
        return conflict ? answer_ : Answer::No;
    }
};

// Plays both to their ends, in the order that `turns` tells as far as it goes. A step is a
// transaction, or reads outside one what the other may write: all else commutes with what the other
// does. Of two steps that commute, the first seat's comes first.
void playBoth(const std::array<Seat*, 2>& seats, std::vector<std::size_t>& turns, Texts& journal) {
    const auto reads = [](const std::string& step) { return step[0] == 'r' || step[0] == 's'; };
    std::array<std::string, 2> next; // "read FILE KEY", "scan FILE", "transaction"
    std::array<std::unique_ptr<scenario::Fiber>, 2> fibers;
    for (std::size_t i = 0; i < 2; ++i) {
        fibers[i] = std::make_unique<scenario::Fiber>([&, i] { seats[i]->work(); });
        seats[i]->engine->onStep([&, i](const std::string& step) {
            if (reads(step) && !seats[1 - i]->changes(step.substr(5, step.find(' ', 5) - 5)))
                return;
            next[i] = step;
            fibers[i]->pause();
        });
        fibers[i]->resume();
    }
    std::size_t choices = 0;
    std::size_t turn = 0;
    for (Texts written; !fibers[0]->ended() || !fibers[1]->ended();) {
        if (fibers[0]->ended() || fibers[1]->ended()) {
            turn = fibers[0]->ended() ? 1 : 0;
        } else if (turn == 0 || !reads(next[0]) || tells(written, "write " + next[0].substr(5))) {
            turns.resize(std::max(turns.size(), ++choices));
            turn = turns[choices - 1];
        }
        const auto before = static_cast<std::ptrdiff_t>(journal.size());
        fibers[turn]->resume();
        written.assign(journal.begin() + before, journal.end());
    }
}

// What is stored, each thing once. Balances are sums.
Facts facts(store::Engine& stage) {
    Facts all;
    for (const auto& [file, key, line, text] : Stage) {
        const records::DBARecord record({}, {}, stage.file(file)->read(key));
        const bool ledger = file == "DIFAIDANT";
        long sum = 0;
        for (int a = 1; a <= 15; ++a)
            for (int v = 1; v <= std::max(1, record.DCount(a)); ++v) {
                const std::string at = std::to_string(a) + (a == 9 ? "." + std::to_string(v) : "");
                std::string fact = file + " " + at + "=" + record(a, v);
                for (std::size_t i = 1; a == line[0] && i < line.size() - (ledger ? 1 : 0); ++i)
                    fact += "|" + record(line[i], v);
                if (std::find(line.begin() + 1, line.end(), a) == line.end())
                    all.insert(fact);
                if (ledger && a == 1) {
                    sum += std::atol(record(2, v).c_str()) - std::atol(record(3, v).c_str());
                    EXPECT_EQ(record(4, v), std::to_string(sum));
                }
            }
    }
    if (!tells(all, "TABLES 2=XXX"))
        all.insert("TABLES 2=XXX");
    return all;
}

// The facts with these parts; none where they cannot all be.
Facts with(Facts facts, const std::set<Part>& parts) {
    for (const Part& part : parts) {
        if (!part.before.empty() && facts.erase(part.before) == 0)
            return {};
        if (!part.after.empty())
            facts.insert(part.after);
    }
    // A file is never saved without any activity, but with all.
    for (int i = tells(facts, "FORMVORANDINE 10=") ? 5 : 1; i < 5; ++i)
        facts.insert("FORMVORANDINE 10=A" + std::to_string(i));
    return facts;
}

void judge(const std::array<Seat*, 2>& seats, const Facts& start, const Facts& stored) {
    std::vector<std::set<Part>> outcomes(1);
    for (std::size_t i = 0; i < 2; ++i) {
        const Seat& own = *seats[i];
        const Seat& other = *seats[1 - i];
        EXPECT_TRUE(own.keptTyped);
        for (const Part& part : own.parts) {
            const auto without = outcomes;
            for (std::set<Part>& made : outcomes)
                made.insert(part);
            // It may be missing where somebody was told.
            if (own.sawOther || tells(own.refused, part.name) || tells(other.decided, part.name) ||
                (!part.given.empty() && tells(other.told, "rendues au D.I.F.") &&
                 tells(other.told, part.given)))
                outcomes.insert(outcomes.end(), without.begin(), without.end());
        }
    }
    const auto isStored = [&](const auto& made) { return with(start, made) == stored; };
    EXPECT_TRUE(std::any_of(outcomes.begin(), outcomes.end(), isStored))
        << "neither stored nor told, or changed besides: " << testing::PrintToString(stored);
}

class SeatsPairs : public testing::TestWithParam<const char*> {
  protected:
    // What reaches a disk is not looked at.
    store_test::Folder folder_{std::filesystem::exists("/dev/shm") ? "/dev/shm" : "/tmp"};
    Desk stage_{{},
                store::openEngine(GetParam() + (*GetParam() == 's' ? folder_ / "base" : ""),
                                  store::OpenMode::Create)};
    const std::array<std::shared_ptr<store::Engine>, 2> connections_{stage_.engine->another(),
                                                                     stage_.engine->another()};

    // Whether anybody was asked.
    bool play(const Change& one, const Change& other, Answer answer) {
        std::vector<std::size_t> turns;
        bool bothMade = false;
        bool asked = false;
        do {
            for (const auto& [file, key, line, text] : Stage)
                stage_.putText(file, key, text);
            store::Changes(stage_.engine).prune(store::now() + 1000000);
            const Facts start = facts(*stage_.engine);
            Texts journal;
            Seat alice(true, one, connections_[0], journal, answer);
            Seat bob(false, other, connections_[1], journal, answer);
            playBoth({&alice, &bob}, turns, journal);
            judge({&alice, &bob}, start, facts(*stage_.engine));
            bothMade = bothMade || (!alice.sawOther && !bob.sawOther);
            asked = asked || !alice.decided.empty() || !bob.decided.empty();
            while (!turns.empty() && turns.back() == 1)
                turns.pop_back();
            if (!turns.empty())
                turns.back() = 1;
        } while (!HasFailure() && !turns.empty());
        EXPECT_TRUE(bothMade || HasFailure());
        return asked;
    }
};

TEST_P(SeatsPairs, EachChangeIsStoredOrToldInEveryOrder) {
    const char* const every = std::getenv("VORANDINE_PAIRS_EVERY");
    const int nth = every != nullptr ? std::atoi(every) : 3;
    int pairs = *GetParam() == 's' ? 1 : 0;
    for (auto one = Changes.begin(); one != Changes.end(); ++one)
        for (auto other = one; other != Changes.end() && !HasFailure(); ++other) {
            if (pairs++ % nth != 0)
                continue;
            SCOPED_TRACE(one->name + " by ALICE, " + other->name + " by BOB");
            if (play(*one, *other, Answer::Yes)) {
                play(*one, *other, Answer::No);
                play(*one, *other, Answer::Cancel);
            }
        }
}

INSTANTIATE_TEST_SUITE_P(Engines, SeatsPairs, testing::Values("memory:", "sqlite:"));

} // namespace
} // namespace vorandine::control_test
