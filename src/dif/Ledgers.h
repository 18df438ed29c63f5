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
    // What became of each; NotRead where there is no ledger under its key.
    std::vector<Stored> charge(const std::vector<Charge>& charges, const ChargedTraining& training);

    // Takes the lines of `training` out of every ledger of `caregiver`, and recomputes their
    // balances: its share of them, rounded up, where others are alike, those of its own hours
    // before the first ones. Nothing to do without a code.
    TakenOut takeOut(const std::string& caregiver, const LeavingTraining& training);
    // What takeOut would give back; writes nothing.
    TakenOut wouldTakeOut(const std::string& caregiver, const LeavingTraining& training);

    // Whether any change was stored since this was made.
    [[nodiscard]] bool written() const noexcept { return written_; }

  private:
    ports::Variables& v_;
    records::DBARecord& W_Params_;
    const ports::DateObject& Conv_Date_;
    bool written_ = false;

    // Runs `work` on the ledger under `key`, read in the transaction that it runs in; a free record
    // where there is none. `work` writes, and may give another outcome than Done.
    Stored update(const std::string& key, const std::function<Stored(bool there)>& work);
    void replace(const std::vector<ShownLine>& lines);
    void charge(const Charge& charge, const ChargedTraining& training);
    // All that `work` writes, as one.
    void together(const std::function<void()>& work);
    TakenOut walk(const std::string& caregiver, const LeavingTraining& leaving, bool writing);
    // Takes the lines out of the record in hand. What they had consumed; nothing if there are none.
    std::optional<text::Fixed4> removeLines(const LeavingTraining& leaving);
};

} // namespace vorandine::dif
