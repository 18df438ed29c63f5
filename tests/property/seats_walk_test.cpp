// Random gestures of two seats on one caregiver's file, the one going on while the other is asked.
// After each, the store must hold what a plain model says, and the seats must have been asked and
// told what it says. The D.I.F. and lines that are alike are left to the changes that are played in
// every order, and to scenarios: here each training has a code and a year of its own.
// VORANDINE_WALK_STEPS and VORANDINE_WALK_SEED make longer walks and repeat one.
#include "property/walk_hand.h"
#include "unit/control_support.h"

#include <gtest/gtest.h>

#include <optional>
#include <set>

namespace vorandine::control_test {
namespace {

const std::map<int, std::string> Fields = {{3, "Txt_AnDipAidant"},
                                           {4, "Txt_SpecialAidant"},
                                           {12, "Txt_DatDispoAidant"},
                                           {15, "Cbo_Qualif"}};
// What a user turns to: on each tab, in a training's line.
const std::vector<std::vector<std::string>> Targets = {
    {"Cmd_AjouterForm", "Lst_CodFormAidant", "Txt_AnDipAidant", "Txt_SpecialAidant",
     "Cbo_EtudeAidant", "Cmd_OK", "Cmd_OK", "Cmd_OK"},
    {"Txt_ExpProfAidant(0)", "Txt_ExpProfAidant(6)", "Cbo_Qualif", "Txt_DatDispoAidant",
     "Lst_SectPossibles", "Lst_SectSelect", "Lst_SectSelect", "Cmd_OK", "Cmd_OK"},
    {"Cbo_CodFormAidant", "Txt_HhFormAidant", "Txt_ObsFormAidant", "Cmd_OKForm", "Cmd_OKForm",
     "Cmd_SupprimerForm", "Cmd_AnnulerForm"}};

// Values by attribute (1: both of the study), position, activity or training, none of them empty.
using File = std::map<std::string, std::string>;

File fileOf(const std::string& text) {
    const records::DBARecord record(nullptr, {}, text);
    File file{{"1", record(1) + record(2)}};
    for (const int a : {3, 4, 11, 12, 13, 15})
        file[std::to_string(a)] = record(a);
    for (int i = 1; i <= 7; ++i)
        file["9." + std::to_string(i)] = record(9, i);
    for (int i = 1; i <= record.DCount(10); ++i)
        file["activity " + record(10, i)] = "chosen";
    for (int i = 1; i <= record.DCount(6); ++i)
        file["training " + record(6, i)] = record(5, i) + " " + record(7, i) + " " + record(8, i);
    std::erase_if(file, [](const auto& entry) { return entry.second.empty(); });
    return file;
}

struct Joined {
    File file;
    int conflicts = 0;
    int theirs = 0; // changes of the other alone
};

Joined joined(const File& read, const File& mine, const File& now, bool mineWins) {
    Joined all;
    File keys = read;
    keys.insert(mine.begin(), mine.end());
    keys.insert(now.begin(), now.end());
    for (const auto& [key, value] : keys) {
        const auto in = [&](const File& file) { return file.contains(key) ? file.at(key) : ""; };
        const bool iDid = in(mine) != in(read) && in(mine) != in(now);
        const bool theyDid = in(now) != in(read) && in(mine) != in(now);
        all.conflicts += iDid && theyDid ? 1 : 0;
        all.theirs += theyDid && !iDid ? 1 : 0;
        const File& from = iDid && (!theyDid || mineWins) ? mine : now;
        if (from.contains(key))
            all.file[key] = from.at(key);
    }
    return all;
}

struct Seat {
    std::unique_ptr<Desk> desk;
    std::unique_ptr<host::CaregiverForm> form;
    std::string opened; // what was stored then
    bool busy = false;  // in the middle of a gesture
    std::optional<Answer> asked;
    bool nothing; // is left to store with that answer
    bool stale;   // what was stored has changed since
    std::vector<std::string> told;

    template <typename Kind = Control>
    [[nodiscard]] Kind& on(const std::string& of) const {
        return at<Kind>(*form, of);
    }
    [[nodiscard]] auto text(const std::string& of) const { return on<TextField>(of).Text(); }
    // A line of trainings is open.
    [[nodiscard]] bool training() const { return on("Cmd_AnnulerForm").Enabled(); }
    [[nodiscard]] File screen() const {
        const auto day = [](const std::string& shown) { // as stored
            return shown.substr(6, 4) + shown.substr(3, 2) + shown.substr(0, 2);
        };
        records::DBARecord record(nullptr, {}, opened);
        for (const auto& [a, field] : Fields)
            record(a) = a == 12 ? day(text(field)) : text(field);
        record(1) = on<OptionButton>("Opt_Diplome").Value() ? "D" : "N";
        record(2) = text("Cbo_EtudeAidant").substr(0, 2);
        for (int i = 1; i <= 7; ++i)
            record(9, i) = text("Txt_ExpProfAidant(" + std::to_string(i - 1) + ")");
        for (const int a : {5, 6, 7, 8, 10})
            record(a) = "";
        for (int i = 1; i <= on<ListBox>("Lst_CodSectSelect").ListCount(); ++i)
            record(10, i) = on<ListBox>("Lst_CodSectSelect").List(i - 1);
        for (int i = 1; i <= on<ListBox>("Lst_CodeForm").ListCount(); ++i) {
            const auto list = [&](const char* of) { return on<ListBox>(of).List(i - 1); };
            std::string hours = list("Lst_HhFormAidant");
            std::erase(hours, ',');
            record(5, i) = day(list("Lst_DatFormAidant"));
            record(6, i) = list("Lst_CodeForm");
            record(7, i) = hours.empty() ? "" : std::to_string(std::stol(hours));
            record(8, i) = list("Lst_ObsFormAidant");
        }
        return fileOf(std::as_const(record)());
    }
};

class SeatsWalk {
  public:
    SeatsWalk(unsigned long seed, const std::string& url) : hand_(seed) {
        std::shared_ptr<store::Engine> engine = store::openEngine(url, store::OpenMode::Create);
        for (Seat& seat : seats_) {
            headless::Callbacks calls;
            calls.messageBox = [&](const Message& message) { return answer(seat, message); };
            calls.tell = [&](Form&, const Told& told) { seat.told.push_back(told.text); };
            seat.desk = std::make_unique<Desk>(calls, engine);
            seat.desk->user = &seat == seats_.data() ? "anne" : "bruno";
            engine = engine->another();
        }
        std::string codes = "COA";
        for (char last = 'B'; last <= 'Z'; ++last)
            codes += std::string("]CO") + last;
        seats_[0].desk->putText("TABLES", "FORMPRO", "^" + codes + "^" + codes);
        Content content = caregiver(4);
        content[6] = {"COA", "COB", "COC", "COD"};
        seats_[0].desk->put("FORMVORANDINE", "00012", content);
        for (Seat& seat : seats_)
            open(seat);
        file_ = fileOf(text_);
    }

    void step() { act(seats_.at(static_cast<std::size_t>(hand_.below(2)))); }
    [[nodiscard]] const std::string& last() const { return last_; }
    void checkReach() const { EXPECT_EQ(reached_.size(), 5U) << testing::PrintToString(reached_); }

  private:
    WalkHand hand_;
    std::array<Seat, 2> seats_;
    std::string text_; // what is stored, as last looked at
    File file_;        // what must be
    std::set<std::string> reached_;
    std::string last_;

    Seat& otherThan(const Seat& seat) { return seats_.at(&seat == seats_.data() ? 1 : 0); }
    void open(Seat& seat) {
        text_ = seat.opened = seat.desk->stored("FORMVORANDINE", "00012");
        seat.form = seat.desk->open("00012");
    }

    void act(Seat& seat) {
        seat.busy = true;
        auto& tabs = seat.on<TabContainer>("Ong_Vorandine");
        if (!seat.training() && hand_.below(3) == 0)
            showTab(tabs, hand_.below(2));
        last_ = hand_.any(Targets.at(seat.training() ? 2 : static_cast<std::size_t>(tabs.Tab())));
        // Few lines meet more often.
        if (last_ == "Cmd_AjouterForm" && seat.on<ListBox>("Lst_CodeForm").ListCount() > 5)
            last_ = "Lst_CodFormAidant";
        auto* const field = dynamic_cast<TextBox*>(&seat.on(last_));
        if (last_ == "Cmd_OK")
            save(seat);
        else if (last_ == "Lst_SectSelect") // one stays always
            doubleClickLine(seat.on<ListBox>(last_), 1 + hand_.below(3));
        else if (last_ == "Txt_DatDispoAidant")
            paste(*field, "0" + std::to_string(1 + hand_.below(2)) + "/03/2007");
        else if (last_ == "Cbo_CodFormAidant" ||
                 (last_ == "Cmd_OKForm" && seat.text("Cbo_CodFormAidant").empty()))
            identify(seat);
        else if (field != nullptr && hand_.below(4) == 0)
            erase(*field);
        else
            hand_.use(seat.on(last_));
        EXPECT_TRUE(seat.desk->errors.empty()) << seat.desk->errors.front().what();
        seat.busy = false;
        text_ = seat.desk->stored("FORMVORANDINE", "00012");
        EXPECT_EQ(fileOf(text_), file_);
        const records::DBARecord now(nullptr, {}, text_);
        for (int i = 2; i <= now.DCount(5); ++i)
            EXPECT_GT(now(5, i - 1), now(5, i)) << "dates out of order";
    }
    // Each seat has codes of its own, and gives none to two trainings, nor one that the other could
    // bring back; each code has its year.
    void identify(Seat& seat) {
        std::string code = seat.text("Cbo_CodFormAidant");
        if (!seat.on("Cmd_SupprimerForm").Enabled()) {
            const char first = &seat == seats_.data() ? 'A' : 'B';
            do
                code = std::string("CO") + static_cast<char>(first + 2 * hand_.below(13));
            while (seat.screen().contains("training " + code) ||
                   otherThan(seat).screen().contains("training " + code) ||
                   fileOf(seat.opened).contains("training " + code));
            choose(seat.on<ComboBox>("Cbo_CodFormAidant"), code);
        }
        const std::string year = std::to_string(50 + code.back() - 'A');
        const std::string day = std::to_string(1 + hand_.below(9));
        paste(seat.on<TextField>("Txt_DatFormAidant"), "0" + day + "/03/19" + year);
    }

    [[nodiscard]] Joined join(const Seat& seat, bool mineWins) const {
        return joined(fileOf(seat.opened), seat.screen(), file_, mineWins);
    }
    Answer answer(Seat& seat, const Message& message) {
        if (message.buttons != Buttons::YesNoCancel)
            return message.buttons == Buttons::OK ? Answer::OK : Answer::Yes;
        const Answer chosen = hand_.any(std::vector{Answer::Yes, Answer::No, Answer::Cancel});
        seat.asked = chosen;
        seat.nothing = chosen == Answer::No && join(seat, false).file == file_;
        EXPECT_TRUE(message.text.starts_with(otherThan(seat).desk->user)) << message.text;
        // One point a line, between the first and the last.
        EXPECT_EQ(std::count(message.text.begin(), message.text.end(), '\n') - 1,
                  std::min(join(seat, true).conflicts, 11))
            << message.text;
        const File before = file_;
        for (int i = otherThan(seat).busy ? 0 : hand_.below(8); i > 0; --i)
            act(otherThan(seat));
        seat.stale = before != file_;
        return chosen;
    }
    // Nobody is told where nothing came from the other.
    void save(Seat& seat) {
        seat.told.clear();
        click(seat.on<CommandButton>("Cmd_OK"));
        const std::optional<Answer> asked = std::exchange(seat.asked, {});
        const bool answered = asked && !seat.stale;
        std::optional<int> theirs;
        if (asked == Answer::Cancel) {
            reached_.insert("back to the form");
        } else if (asked && seat.nothing) {
            reached_.insert("nothing of mine");
        } else if (!asked && text_ == seat.opened) {
            file_ = seat.screen();
            reached_.insert("saved");
        } else {
            const Joined both = join(seat, !answered || asked == Answer::Yes);
            EXPECT_EQ(both.conflicts > 0, answered) << both.conflicts << " conflicts";
            if (both.file != file_)
                theirs = both.theirs;
            file_ = both.file;
            reached_.insert(asked ? "answered" : "joined");
        }
        EXPECT_EQ(seat.told.size(), theirs ? 1U : 0U);
        for (const std::string& text : seat.told) {
            EXPECT_TRUE(text.starts_with(otherThan(seat).desk->user)) << text;
            EXPECT_EQ(std::count(text.begin(), text.end(), ';'), std::clamp(*theirs, 1, 11))
                << text;
        }
        EXPECT_NE(seat.form->form().unloaded(), asked == Answer::Cancel);
        if (seat.form->form().unloaded())
            open(seat);
    }
};

TEST(SeatsWalks, NothingThatEitherDidIsLostUntold) {
    const store_test::Folder folder;
    for (const std::string& url : {std::string("memory:"), "sqlite:" + (folder / "walk.vor")})
        walkOn<SeatsWalk>(1500, url);
}

} // namespace
} // namespace vorandine::control_test
