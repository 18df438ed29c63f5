// What a host says, when a file is opened, of that which saving it will erase.
#pragma once

#include "apps/host/Notices.h"
#include "ports/Database.h"

#include <optional>
#include <string>

namespace vorandine::host {

// "Un enregistrement effacera : ..." of the caregiver's file as it is stored; nothing where nothing
// will be erased, where there is no file, or where it or its tables cannot be read.
[[nodiscard]] std::optional<Notice> savingNotice(ports::DBADatabase& database,
                                                 const std::string& code);

} // namespace vorandine::host
