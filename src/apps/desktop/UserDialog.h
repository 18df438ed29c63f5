// Asks who sits at the screen, once, before the list of caregivers.
#pragma once

#include "apps/host/Caregivers.h"

#include <QString>

#include <optional>
#include <vector>

namespace vorandine::desktop {

// The user picked among `users`, of which there is at least one; none if the user would rather
// leave. The one with the login `last` is picked beforehand, if it is there. `url` tells which
// store it is.
[[nodiscard]] std::optional<host::User> askUser(const std::vector<host::User>& users,
                                                const QString& last, const QString& url);

} // namespace vorandine::desktop
