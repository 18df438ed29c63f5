// Changes to the stored ledgers: one rewritten from the lines of the screen, one charged with the
// hours of a training, and all of a caregiver's from which a training is taken out.
#pragma once

#include "dif/FileNotice.h"
#include "dif/LedgerRecord.h"
#include "ports/DateObject.h"
#include "ports/Variables.h"

#include "text/Fixed4.h"

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

    // Adds a consumption line of `hours` for `training`, before any line of that date, and
    // recomputes the balances from there on. NotRead where there is no ledger under `key`.
    Stored charge(const std::string& key, const ChargedTraining& training, text::Fixed4 hours);

    // Takes the lines of `training` out of every ledger of `caregiver`, and recomputes their
    // balances. Nothing to do without a code.
    TakenOut takeOut(const std::string& caregiver, const ChargedTraining& training);
    // What takeOut would give back; writes nothing.
    TakenOut wouldTakeOut(const std::string& caregiver, const ChargedTraining& training);

    // Whether any change was stored since this was made.
    [[nodiscard]] bool written() const noexcept { return written_; }

  private:
    ports::Variables& v_;
    records::DBARecord& W_Params_;
    const ports::DateObject& Conv_Date_;
    bool written_ = false;

    void write();
    TakenOut walk(const std::string& caregiver, const ChargedTraining& training, bool writing);
    // Takes the lines out of the record in hand. What they had consumed; nothing if there are none.
    std::optional<text::Fixed4> removeLines(const ChargedTraining& training);
};

} // namespace vorandine::dif
