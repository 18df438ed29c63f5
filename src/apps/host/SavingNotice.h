// What a host says, when a file is opened, of that which saving it will erase.
#pragma once

#include "apps/host/CaregiverRecords.h"
#include "apps/host/Notices.h"

#include <optional>

namespace vorandine::host {

// "Un enregistrement effacera : ..." of the caregiver's file and ledgers as they are stored;
// nothing where nothing will be erased.
[[nodiscard]] std::optional<Notice> savingNotice(const CaregiverRecords& caregiver);

} // namespace vorandine::host
