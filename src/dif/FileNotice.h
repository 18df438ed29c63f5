// What the user must know of ledgers that could not be read or written: a line in the frame of
// detail instead of a message box, so that what has to be typed again stays in sight meanwhile.
#pragma once

#include "widgets/Simple.h"

#include <string>

namespace vorandine::dif {

// What became of a change to the stored ledgers.
enum class Stored {
    Done,
    NotRead,
    NotWritten,
    NotAllowed,
    LineGone, // another seat has changed or deleted the line: nothing was written
};

// One line is shown: what was lost comes before what the detail lacks, and this before what the
// list of employers lacks.
class FileNotice {
  public:
    explicit FileNotice(widgets::Label& Etq_MessageDif) : label_(Etq_MessageDif) {}

    // Tells how a change ended. `lost` is what it was about, as "À ressaisir : …": nothing of it is
    // stored. It stays told until a later change is stored. Whoever may not write has nothing to
    // do again. `others` is what another seat was found to have done, told in any case, and last:
    // a line too long is cut at its end.
    void tell(Stored outcome, const std::string& lost, const std::string& others = {});
    // What another seat was found to have done; "" where it need not be told any more.
    void ofOthers(const std::string& what);
    // What could not be read of the detail, or for the list of employers; "" if all was read.
    void ofDetail(const std::string& why);
    void ofEmployers(const std::string& why);

  private:
    widgets::Label& label_;
    std::string failed_;
    std::string others_;
    std::string detail_;
    std::string employers_;

    void show();
};

} // namespace vorandine::dif
