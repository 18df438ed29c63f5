// Changes to the stored ledgers: one rewritten from the lines of the screen, one charged with the
// hours of a training, and all of a caregiver's from which a training is taken out.
#pragma once

#include "dif/DetailLines.h"
#include "dif/FileNotice.h"
#include "dif/LedgerRecord.h"
#include "ports/DateObject.h"
#include "ports/Variables.h"

#include "text/Fixed4.h"

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace vorandine::dif {

// Hours that an employer gives back when a training leaves its ledger.
struct GivenBack {
    std::string employer; // name, or code where it has none
    text::Fixed4 hours;
};

// How a ledger tells of which training a line is.
struct ChargedTraining {
    std::string date; // in stored form
    std::string code; // "" is no training's: lines without one are rights
};

// A training on its way out. Others of its day and code may have lines beside its own, which
// nothing tells apart but their hours.
struct LeavingTraining {
    ChargedTraining training;
    int alike = 1;          // how many trainings under the D.I.F. share the lines, itself included
    std::string hours = {}; // its own, in stored form
};

struct TakenOut {
    Stored outcome = Stored::Done;
    std::vector<GivenBack> given; // by the ledgers that could be read, and written
    std::string others = {};      // as of Charged
};

// The lines of one day and code in a caregiver's ledgers, as far as these could be read.
struct Standing {
    int lines = 0;
    text::Fixed4 hours = {};
    std::vector<std::string> employers = {}; // by name, or code, each once
};

struct Charged {
    std::vector<Stored> outcomes = {}; // of each charge; NotRead where there is no ledger
    Standing standing = {};            // before
    // What other seats have made of these ledgers since they were shown, in words; "" for nothing.
    std::string others = {};
};

// No error leaves these routines: each says what became of the change. A ledger that cannot be read
// is neither written nor deleted, so that what could not be seen is not lost; a write that fails
// leaves the file as it was. All that is handed over must outlive it.
class Ledgers {
  public:
    Ledgers(ports::Variables& variables, records::DBARecord& W_Params,
            const ports::DateObject& Conv_Date)
        : v_(variables), W_Params_(W_Params), Conv_Date_(Conv_Date) {}

    // Stores `lines` as the whole ledger under `key`, which is made if there is none, and deleted
    // if there are no lines. What the stored record holds beside its lines stays.
    Stored rewrite(const std::string& key, const std::vector<ShownLine>& lines);

    // The same where the ledger still holds the lines of `shown`, of which `lines` is what `change`
    // has made. Where another seat has changed it since, the change alone is made again, in what is
    // stored now; LineGone where its line is not there as it was. `others` is then what the
    // other did.
    Stored change(const std::string& key, const records::DBARecord& shown,
                  const std::vector<ShownLine>& lines, const LineChange& change,
                  std::string& others);

    struct Charge {
        std::string key; // of the ledger
        text::Fixed4 hours;
    };
    // Adds a consumption line for `training` to each ledger, before any line of that date, and
    // recomputes the balances from there on: all in one, save those that cannot be read or written.
    Charged charge(const std::string& caregiver, const std::vector<Charge>& charges,
                   const ChargedTraining& training);

    // Takes the lines of `training` out of every ledger of `caregiver`, and recomputes their
    // balances: its share of them, rounded up, where others are alike, those of its own hours
    // before the first ones. Nothing to do without a code.
    TakenOut takeOut(const std::string& caregiver, const LeavingTraining& training);
    // What takeOut would give back; writes nothing.
    TakenOut wouldTakeOut(const std::string& caregiver, const LeavingTraining& training);

    // The ledger in hand, Rec_DIFAIDANT, stands before the user: what others make of it from now on
    // is told where hours are next charged to it or given back by it.
    void shown(const std::string& key);

    // Whether any change was stored since this was made.
    [[nodiscard]] bool written() const noexcept { return written_; }

  private:
    ports::Variables& v_;
    records::DBARecord& W_Params_;
    const ports::DateObject& Conv_Date_;
    bool written_ = false;
    // Free copies of the ledgers by key, as they were last shown and as changed here since.
    std::map<std::string, records::DBARecord> shown_;

    // Runs `work` on the ledger under `key`, read in the transaction that it runs in; a free record
    // where there is none. `work` writes, and may give another outcome than Done.
    Stored update(const std::string& key, const std::function<Stored(bool there)>& work);
    void replace(const std::vector<ShownLine>& lines);
    void charge(const Charge& charge, const ChargedTraining& training);
    // The keys of the caregiver's ledgers in which the code of a training stands.
    std::vector<std::string> keysOf(const std::string& caregiver, const std::string& code);
    Standing standing(const std::string& caregiver, const ChargedTraining& training);
    // What others have made of the ledger in hand, which was `shown`, in words.
    [[nodiscard]] std::string doneByOthers(const std::string& key, const std::string& employer,
                                           const records::DBARecord& shown) const;
    // The same since it was last shown, with the employer's name; "" for nothing.
    [[nodiscard]] std::string othersSinceShown(const std::string& caregiver,
                                               const std::string& key) const;
    // All that `work` writes, as one.
    void together(const std::function<void()>& work);
    TakenOut walk(const std::string& caregiver, const LeavingTraining& leaving, bool writing);
    // Takes the lines out of the record in hand. What they had consumed; nothing if there are none.
    std::optional<text::Fixed4> removeLines(const LeavingTraining& leaving);
};

} // namespace vorandine::dif
