// The database as a host hands it to its user: whoever lacks the writing level gets the same
// records, of which none can be written or deleted, whatever the form lets him type.
#pragma once

#include "ports/Database.h"
#include "ports/Rights.h"

#include <memory>

namespace vorandine::components {

// Whether these rights have the writing level for training files. Throws what Droits throws.
[[nodiscard]] bool mayWrite(ports::DroitsUtilisateur& rights);

// `database` itself where these rights let the user write. Else one that reads from it, and where
// every write and deletion throws Error(MayNotWrite), whose text says what to do. The rights are
// asked now, once; throws what Droits throws.
[[nodiscard]] std::shared_ptr<ports::DBADatabase>
databaseFor(std::shared_ptr<ports::DBADatabase> database, ports::DroitsUtilisateur& rights);

} // namespace vorandine::components
