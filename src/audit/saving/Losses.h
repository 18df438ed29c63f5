// What a save by the control drops or changes of a caregiver's file of its own accord, and a change
// on the D.I.F. tab of a ledger: what the screen has no place for, and what does not convert. Said
// before, so that nothing goes unseen.
#pragma once

#include "audit/check/Codes.h"

#include <string>
#include <string_view>
#include <vector>

namespace vorandine::audit {

struct Loss {
    int attribute = 0;
    int position = 0;     // of the value, from 1
    std::string value;    // as it is stored
    std::string becomes;  // what stands there afterwards; "" where nothing does
    std::string sentence; // in French, for a list of them: no capital, no full stop
};

// The entries of the tables that the control holds a file against.
class Choices {
  public:
    // `text` is the whole text of the record `name` of TABLES; others than the two are passed over.
    void read(std::string_view name, std::string_view text);

    // By the beginning of an entry as the box shows it, which is what is stored of it.
    [[nodiscard]] bool hasStudy(std::string_view code) const { return studies_.contains(code); }
    [[nodiscard]] bool hasQualification(std::string_view entry) const {
        return qualifications_.contains(entry);
    }

  private:
    Codes studies_;
    Codes qualifications_;
};

// The losses of a record of FORMVORANDINE given by its whole text, which is plain text, in the
// order of attributes and values. Values that are filled in where none stood (hours 0, NON, seven
// lines of experience, today, all activities) are no losses.
[[nodiscard]] std::vector<Loss> lossesOfSaving(std::string_view record, const Choices& choices);

// The losses of a ledger, given in the same way, by the next line that is added, changed or deleted
// on the D.I.F. tab. Balances are computed again by every change: only one beyond the lines is
// lost.
[[nodiscard]] std::vector<Loss> lossesOfLedger(std::string_view record);

// "Un enregistrement effacera : ...", ten of them at most and how many more; "" for none.
[[nodiscard]] std::string lossNotice(const std::vector<Loss>& losses);

} // namespace vorandine::audit
