// What a host says, when a file is opened, of hours and trainings that do not answer each other: a
// program that was ended between charging and saving leaves such.
#pragma once

#include "apps/host/CaregiverRecords.h"
#include "apps/host/Notices.h"
#include "ports/DateObject.h"

#include <optional>

namespace vorandine::host {

// Hours charged for a training that the stored file does not have under the D.I.F., trainings under
// it that no ledger is charged with, and what to do; nothing where there are none. A ledger that
// could not be read may hold the hours: trainings without hours are then not told. Names of
// employers are read.
[[nodiscard]] std::optional<Notice> chargesNotice(CaregiverRecords& caregiver,
                                                  const ports::DateObject& dates);

} // namespace vorandine::host
