// Random gestures of two seats on one caregiver's file and its ledgers, the one going on in the
// middle of what the other does. After each, the store must hold what a plain model says, and the
// seats must have been asked and told what it says.
// VORANDINE_WALK_STEPS and VORANDINE_WALK_SEED make longer walks and repeat one.
#include "property/seats_model.h"
#include "property/walk_hand.h"
#include "unit/control_support.h"

#include <gtest/gtest.h>

#include <optional>

namespace vorandine::control_test {
namespace {

const std::string Code = "00012";
const std::string Today = "20060615";
const std::vector<std::string> Employers = {"ADM", "P0007"};
const std::map<int, std::string> Fields = {
    {3, "Txt_AnDipAidant"},     {4, "Txt_SpecialAidant"},      {11, "Txt_DatSaisieAidant"},
    {12, "Txt_DatDispoAidant"}, {13, "Txt_DatFinDispoAidant"}, {15, "Cbo_Qualif"}};
// What a user turns to: on each tab, in a training's line, in a ledger's.
const std::vector<std::vector<std::string>> Targets = {
    {"Cmd_AjouterForm", "Lst_CodFormAidant", "Txt_AnDipAidant", "Txt_SpecialAidant",
     "Cbo_EtudeAidant", "Cmd_OK", "Cmd_Retour"},
    {"Txt_ExpProfAidant(0)", "Txt_ExpProfAidant(6)", "Cbo_Qualif", "Txt_DatSaisieAidant",
     "Txt_DatDispoAidant", "Txt_DatFinDispoAidant", "Lst_SectPossibles", "Lst_SectSelect",
     "Lst_SectSelect", "Cmd_OK"},
    {"Lst_DifEmpl", "Cmd_AjoutDif", "Lst_DetailDif", "Lst_DetailDif"},
    {"Txt_DatFormAidant", "Cbo_CodFormAidant", "Txt_HhFormAidant", "Cbo_DifFormAidant",
     "Cmd_OKForm", "Cmd_OKForm", "Cmd_SupprimerForm", "Cmd_AnnulerForm"},
    {"Txt_DateDif", "Txt_DroitDif", "Txt_HreDif", "Cmd_OkDif", "Cmd_OkDif", "Cmd_SupprDif",
     "Cmd_AnnuleDif"}};

const Values Codes = {"PSC", "MAN", "HYG", "ALI"}; // of trainings
const Values Labels = {"Premiers secours", "Manutention", "Hygiène", "Équilibre"};

struct Seat {
    std::string name;
    std::unique_ptr<Desk> desk;
    std::unique_ptr<host::CaregiverForm> form;
    File read;                  // as stored when the form was opened
    std::vector<int> from;      // which line of that each line is, from 1; 0: a new one
    bool filled;                // the activities, by the program
    std::string employer;       // whose ledger is shown
    std::string shown;          // as it was then
    bool busy = false;          // in the middle of a gesture
    std::optional<Answer> said; // in this gesture, to a question of the form's own
    struct Merge {
        Answer answer;
        File on;      // what was stored when it was asked for
        bool nothing; // is left to store with that answer
    };
    std::optional<Merge> merge;
    std::vector<std::string> told;

    template <typename Kind = Control>
    [[nodiscard]] Kind& on(const std::string& control) const {
        return at<Kind>(*form, control);
    }
    [[nodiscard]] std::string text(const std::string& field) const {
        return on<TextField>(field).Text();
    }
    // A line of trainings is open, or one of a ledger.
    [[nodiscard]] bool training() const { return on("Cmd_AnnulerForm").Enabled(); }
    [[nodiscard]] bool entry() const { return !training() && !on("Lst_DifEmpl").Enabled(); }
    [[nodiscard]] File screen() const {
        File file = fileOf("");
        for (const auto& [value, field] : Fields)
            file.first[value] = {field.starts_with("Txt_Dat") ? day(text(field)) : text(field)};
        if (text(Fields.at(12)).empty())
            file.first[13] = {""};
        file.first[1] = {(on<OptionButton>("Opt_Diplome").Value() ? "D" : "N") +
                         text("Cbo_EtudeAidant").substr(0, 2)};
        for (int i = 0; i < 7; ++i)
            file.first[91 + i] = {text("Txt_ExpProfAidant(" + std::to_string(i) + ")")};
        const auto& chosen = on<ListBox>("Lst_CodSectSelect");
        file.first[Chosen].clear();
        for (int i = 0; i < chosen.ListCount(); ++i)
            file.first[Chosen].push_back(chosen.List(i));
        const auto list = [&](const char* lines, int i) { return on<ListBox>(lines).List(i); };
        for (int i = 0; i < on<ListBox>("Lst_CodeForm").ListCount(); ++i)
            file.second.push_back({day(list("Lst_DatFormAidant", i)), list("Lst_CodeForm", i),
                                   hundredths(list("Lst_HhFormAidant", i)),
                                   list("Lst_ObsFormAidant", i),
                                   list("Lst_DifFormAidant", i) == "OUI" ? "1" : "0"});
        return file;
    }
};

class SeatsWalk {
  public:
    SeatsWalk(unsigned long seed, const std::string& url) : hand_(seed) {
        std::shared_ptr<store::Engine> engine = store::openEngine(url, store::OpenMode::Create);
        for (Seat& seat : seats_) {
            seat.name = &seat == seats_.data() ? "anne" : "bruno";
            seat.desk = std::make_unique<Desk>(
                headless::Callbacks{
                    [&](const Message& message) { return answer(seat, message); },
                    [&](Form& form) { charge(seat, form); },
                    {},
                    {},
                    {},
                    [&](Form& /*form*/, const Told& told) { seat.told.push_back(told.text); }},
                engine);
            seat.desk->user = seat.name;
            engine = engine->another();
        }
        Content content = caregiver(4);
        content[12] = {"20070301"};
        seats_[0].desk->put("FORMVORANDINE", Code, content);
        file_ = fileOf(seats_[0].desk->stored("FORMVORANDINE", Code));
        for (const std::string& employer : Employers) {
            seats_[0].desk->putText("CONTRAT", Code + employer, "^^" + employer + "^^^^20000101");
            seats_[0].desk->putText("DIFAIDANT", Code + employer, "20040101^9000^^9000");
            ledgers_[employer] = entriesOf(ledger(employer));
        }
        for (Seat& seat : seats_)
            open(seat);
        check();
    }

    void step() { act(seats_.at(static_cast<std::size_t>(hand_.below(2)))); }
    [[nodiscard]] const std::string& last() const { return last_; }
    void checkReach() const { EXPECT_GE(reached_.size(), 8U) << testing::PrintToString(reached_); }

  private:
    WalkHand hand_;
    std::array<Seat, 2> seats_;
    File file_;                                         // what must be stored
    std::map<std::string, std::vector<Entry>> ledgers_; // likewise, by employer
    std::map<std::string, std::string> texts_;          // of them as they were last looked at
    std::set<std::string> reached_;
    std::string last_;

    Seat& otherThan(const Seat& seat) { return seats_.at(&seat == seats_.data() ? 1 : 0); }
    [[nodiscard]] std::string ledger(const std::string& employer) const {
        return seats_[1].desk->stored("DIFAIDANT", Code + employer);
    }
    void open(Seat& seat) {
        seat.form = seat.desk->open(Code);
        seat.read = file_;
        seat.filled = false;
        seat.from.clear();
        for (std::size_t i = 1; i <= seat.screen().second.size(); ++i)
            seat.from.push_back(static_cast<int>(i));
    }

    void check() {
        EXPECT_EQ(fileOf(seats_[0].desk->stored("FORMVORANDINE", Code)), file_);
        for (auto& [employer, entries] : ledgers_) {
            texts_[employer] = ledger(employer);
            const std::vector<Entry> now = entriesOf(texts_[employer]);
            EXPECT_TRUE(std::is_permutation(now.begin(), now.end(), entries.begin(), entries.end()))
                << testing::PrintToString(now) << " for " << testing::PrintToString(entries);
            entries = now;
            const records::DBARecord record(nullptr, {}, texts_[employer]);
            for (int i = 2; i <= record.DCount(1); ++i) {
                EXPECT_LE(record(1, i - 1), record(1, i)) << "dates out of order";
                const auto figure = [&](int list, int line) {
                    return std::atol(record(list, line).c_str());
                };
                const long balance = figure(4, i - 1) + figure(2, i) - figure(3, i);
                EXPECT_TRUE(figure(4, i) == balance || (balance < 0 && figure(4, i) == 0));
            }
        }
    }

    void act(Seat& seat) {
        seat.busy = true;
        seat.said.reset();
        auto& tabs = seat.on<TabContainer>("Ong_Vorandine");
        if (!seat.training() && !seat.entry() && hand_.below(3) == 0)
            showTab(tabs, hand_.any(std::vector{0, 1, 2, 2}));
        std::string target =
            hand_.any(Targets.at(seat.training() ? 3
                                 : seat.entry()  ? 4
                                                 : static_cast<std::size_t>(tabs.Tab())));
        // Few lines meet more often.
        if (target == "Cmd_AjouterForm" && seat.on<ListBox>("Lst_CodeForm").ListCount() > 5)
            target = "Lst_CodFormAidant";
        if (target == "Cmd_AjoutDif" && seat.on<ListBox>("Lst_DetailDif").ListCount() > 3)
            target = "Lst_DetailDif";
        last_ = target;
        auto* const field = dynamic_cast<TextBox*>(&seat.on(target));
        if (target == "Cmd_OKForm" || target == "Cmd_SupprimerForm")
            endTraining(seat, target == "Cmd_SupprimerForm");
        else if (target == "Cmd_OkDif" || target == "Cmd_SupprDif")
            endEntry(seat, target == "Cmd_SupprDif");
        else if (target == "Cmd_OK" || target == "Cmd_Retour")
            leave(seat, target == "Cmd_OK");
        else if (field != nullptr && hand_.below(4) == 0)
            erase(*field);
        else if (field != nullptr && target.starts_with("Txt_Dat"))
            paste(*field, "0" + std::to_string(1 + hand_.below(2)) + "/03/" +
                              (target == "Txt_DatSaisieAidant"     ? "2001"
                               : target == "Txt_DatDispoAidant"    ? "2007"
                               : target == "Txt_DatFinDispoAidant" ? "2010"
                                                                   : "2004"));
        else if (hand_.use(seat.on(target)) == Outcome::Done && target == "Lst_DifEmpl") {
            seat.employer = seat.on<ListBox>("Lst_CodeEmplDif")
                                .List(seat.on<ListBox>("Lst_DifEmpl").ListIndex());
            seat.shown = ledger(seat.employer);
        }
        EXPECT_TRUE(seat.desk->errors.empty()) << seat.desk->errors.front().what();
        seat.busy = false;
        check();
    }
    void meanwhile(Seat& seat) {
        Seat& other = otherThan(seat);
        for (int i = other.busy ? 0 : hand_.below(8); i > 0; --i)
            act(other);
    }

    // Hours come back from all ledgers, or, where trainings are alike, the share of the one.
    void endTraining(Seat& seat, bool deleting) {
        std::vector<Line> lines = seat.screen().second;
        const bool stored = seat.on("Cmd_SupprimerForm").Enabled();
        const int line = stored ? seat.on<ListBox>("Lst_CodeForm").ListIndex() : 0;
        const Line was = stored ? lines.at(static_cast<std::size_t>(line)) : Line{};
        const int from = stored ? seat.from.at(static_cast<std::size_t>(line)) : 0;
        const std::string date = day(seat.text("Txt_DatFormAidant"));
        const bool gives = deleting || (was[4] == "1" && seat.text("Cbo_DifFormAidant") == "NON");
        click(seat.on<CommandButton>(last_));
        if (seat.training())
            return;
        if (stored) {
            lines.erase(lines.begin() + line);
            seat.from.erase(seat.from.begin() + line);
        }
        const auto alike = 1 + std::count_if(lines.begin(), lines.end(), [&](const Line& other) {
                               return other[0] == date && other[1] == was[1] && other[4] == "1";
                           });
        for (auto& [employer, entries] : ledgers_) {
            const auto its = [&](const Entry& entry) {
                return entry[0] == date && entry[3] == was[1];
            };
            const auto all = gives ? std::count_if(entries.begin(), entries.end(), its) : 0;
            for (auto share = (all + alike - 1) / alike; share > 0; --share) {
                const auto own =
                    std::find(entries.begin(), entries.end(), Entry{date, "", was[2], was[1]});
                entries.erase(
                    own != entries.end() ? own : std::find_if(entries.begin(), entries.end(), its));
                reached_.insert("given back");
            }
        }
        if (!deleting)
            seat.from.insert(seat.from.begin() + placeIn(lines, date), from);
    }
    // In the form of hours to charge, which a ledger that is gone keeps open.
    void charge(Seat& seat, Form& form) {
        const auto press = [&](const char* button) { click(in<CommandButton>(form, button)); };
        auto& list = in<ListBox>(form, "Lst_Dif");
        std::map<std::string, std::string> hours;
        for (int i = hand_.below(2); i < list.ListCount(); ++i) {
            const std::string typed = std::to_string(1 + hand_.below(5));
            doubleClickLine(list, i);
            paste(in<TextField>(form, "Txt_Conso"), typed);
            press("Cmd_OKDif");
            hours[in<ListBox>(form, "Lst_CodeEmpl").List(i)] = hundredths(typed);
        }
        meanwhile(seat);
        const auto label = std::find(Labels.begin(), Labels.end(), seat.text("Cbo_CodFormAidant"));
        const auto code = static_cast<std::size_t>(label - Labels.begin());
        for (const auto& [employer, its] : hours)
            if (seat.desk->engine->file("DIFAIDANT")->read(Code + employer)) {
                ledgers_[employer].push_back(
                    {day(seat.text("Txt_DatFormAidant")), "", its, Codes.at(code)});
                reached_.insert("charged");
            }
        for (press("Cmd_OKDif"); !form.unloaded();)
            press("Cmd_RetourDif");
    }

    // A change is made where the ledger is as it was shown, else where its line still is.
    void endEntry(Seat& seat, bool deleting) {
        const bool adding = seat.on("Txt_DateDif").Enabled();
        const auto shown = entriesOf(seat.shown);
        const Entry was =
            adding
                ? Entry{}
                : shown.at(static_cast<std::size_t>(seat.on<ListBox>("Lst_DetailDif").ListIndex()));
        Entry typed = was;
        if (adding)
            typed[0] = day(seat.text("Txt_DateDif"));
        const bool rights = was[3].empty();
        typed[rights ? 1 : 2] = hundredths(seat.text(rights ? "Txt_DroitDif" : "Txt_HreDif"));
        click(seat.on<CommandButton>(last_));
        if (seat.entry())
            return;
        std::vector<Entry>& now = ledgers_[seat.employer];
        const bool met = texts_[seat.employer] != seat.shown;
        const bool done = adding || !met || std::count(now.begin(), now.end(), was) == 1;
        if (done && !adding)
            now.erase(std::find(now.begin(), now.end(), was));
        if (done && !deleting)
            now.push_back(typed);
        const std::string notice = seat.on<Label>("Etq_MessageDif").Caption();
        EXPECT_EQ(notice.starts_with(otherThan(seat).name), met) << notice;
        EXPECT_EQ(notice.find("n'y est plus") == notice.npos, done) << notice;
        seat.shown = ledger(seat.employer);
        reached_.insert(!done ? "line gone" : met ? "line met" : "line");
    }

    [[nodiscard]] Joined join(const Seat& seat, bool mineWins) const {
        const File mine = seat.screen();
        std::set<int> filled;
        for (const int day : {11, 12})
            if (mine.first.at(day) == Values{Today})
                filled.insert(day);
        if (seat.filled && mine.first.at(Chosen) == Activities)
            filled.insert(Chosen);
        return joined(seat.read, mine, seat.from, filled, file_, mineWins);
    }
    Answer answer(Seat& seat, const Message& message) {
        if (message.buttons == Buttons::OK)
            return Answer::OK;
        if (message.text == "Voulez-vous enregistrer les modifications ?")
            return Answer::No; // hours of a ledger that is gone
        const Answer chosen = std::array{Answer::Yes, Answer::No, Answer::Cancel}.at(
            static_cast<std::size_t>(hand_.below(message.buttons == Buttons::YesNo ? 2 : 3)));
        if (message.text.find("entre-temps") == message.text.npos) {
            seat.said = chosen;
        } else {
            seat.merge = {chosen, file_, chosen == Answer::No && join(seat, false).file == file_};
            EXPECT_TRUE(message.text.starts_with(otherThan(seat).name)) << message.text;
            EXPECT_EQ(
                listed(message.text.substr(0, message.text.find("\r\nVoulez")), "\r\n", "\r\n"),
                join(seat, true).conflicts)
                << message.text;
            reached_.insert("conflict");
        }
        meanwhile(seat);
        return chosen;
    }
    void leave(Seat& seat, bool ok) {
        seat.filled = seat.filled || seat.on<ListBox>("Lst_CodSectSelect").ListCount() == 0;
        click(seat.on<CommandButton>(last_));
        if (ok || seat.said == Answer::Yes)
            saved(seat);
        EXPECT_EQ(seat.form->form().unloaded(), seat.said != Answer::Cancel);
        if (seat.said == Answer::Cancel)
            return;
        open(seat);
    }
    // What a save must have come to. Nobody is told where nothing came from the other.
    void saved(Seat& seat) {
        const std::optional<Seat::Merge> asked = std::exchange(seat.merge, {});
        const std::vector<std::string> told = std::exchange(seat.told, {});
        const bool answered = asked && asked->on == file_;
        std::optional<int> theirs;
        if (asked && asked->answer == Answer::Cancel) {
            seat.said = Answer::Cancel;
            reached_.insert("back to the form");
        } else if (asked && asked->nothing) {
            reached_.insert("nothing of mine");
        } else if (!asked && file_ == seat.read) {
            file_ = seat.screen();
            reached_.insert("saved");
        } else {
            const Joined both = join(seat, !answered || asked->answer == Answer::Yes);
            EXPECT_EQ(both.conflicts > 0, answered) << both.conflicts << " conflicts";
            if (both.file != file_)
                theirs = both.theirs;
            file_ = both.file;
            reached_.insert(asked ? "answered" : "joined");
        }
        EXPECT_EQ(told.size(), theirs ? 1U : 0U);
        for (const std::string& text : told) {
            EXPECT_TRUE(text.starts_with(otherThan(seat).name)) << text;
            EXPECT_EQ(listed(text, "Viennent de l'autre poste", " ; "), theirs) << text;
        }
    }
};

class SeatsWalks : public testing::TestWithParam<const char*> {};

TEST_P(SeatsWalks, NothingThatEitherDidIsLostUntold) {
    const store_test::Folder folder;
    const std::string url = GetParam();
    walkOn<SeatsWalk>(1500, url == "sqlite:" ? url + (folder / "walk.vor") : url);
}

INSTANTIATE_TEST_SUITE_P(Engines, SeatsWalks, testing::Values("memory:", "sqlite:"));

} // namespace
} // namespace vorandine::control_test
