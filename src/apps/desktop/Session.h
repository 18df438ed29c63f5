// What one user works with in one store: the objects that each caregiver's control is handed.
#pragma once

#include "apps/host/CaregiverForm.h"
#include "apps/host/Caregivers.h"
#include "components/DateConverter.h"
#include "components/Help.h"
#include "frontends/qt/QtWorld.h"
#include "store/Store.h"

#include <memory>
#include <string>

namespace vorandine::desktop {

// Must outlive all that works with it.
class Session {
  public:
    // `url` is what the store was opened by, for the user's eyes.
    Session(std::shared_ptr<store::Store> store, std::string url, host::User user);
    Session(const Session&) = delete;
    Session& operator=(const Session&) = delete;

    [[nodiscard]] const std::string& url() const noexcept { return url_; }
    [[nodiscard]] const host::User& user() const noexcept { return user_; }
    [[nodiscard]] const std::shared_ptr<store::Store>& store() const noexcept { return store_; }
    [[nodiscard]] host::Caregivers& caregivers() noexcept { return caregivers_; }
    [[nodiscard]] qt::QtWorld& world() noexcept { return world_; }
    // With a database that refuses to write where the user may not. Throws what reading the rights
    // throws.
    [[nodiscard]] host::HostObjects objects();
    // Whether the user may write training files, and so add caregivers. Throws what reading the
    // rights throws.
    [[nodiscard]] bool mayWrite();

  private:
    std::shared_ptr<store::Store> store_;
    std::string url_;
    host::User user_;
    host::Caregivers caregivers_;
    qt::QtWorld world_;
    components::DateConverter dates_;
    components::Help help_;
    std::shared_ptr<ports::DroitsUtilisateur> rights_;
};

} // namespace vorandine::desktop
