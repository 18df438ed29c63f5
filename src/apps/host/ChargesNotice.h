// What a host says, when a file is opened, of hours and trainings that do not answer each other: a
// program that was ended between charging and saving leaves such.
#pragma once

#include "apps/host/Notices.h"
#include "ports/Database.h"
#include "ports/DateObject.h"

#include <memory>
#include <optional>
#include <string>

namespace vorandine::host {

// Hours charged for a training that the stored file does not have under the D.I.F., trainings under
// it that no ledger is charged with, and what to do. Nothing where there are none, or where file or
// tables cannot be read; ledgers that cannot be are passed over, and as they may hold the hours,
// trainings without hours are then not told.
[[nodiscard]] std::optional<Notice>
chargesNotice(const std::shared_ptr<ports::DBADatabase>& database, const std::string& code,
              const ports::DateObject& dates);

} // namespace vorandine::host
