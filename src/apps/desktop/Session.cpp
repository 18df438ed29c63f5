// Wiring the components to the store and the user.
#include "apps/desktop/Session.h"

#include "components/Consultation.h"
#include "components/Rights.h"

#include <utility>

namespace vorandine::desktop {

Session::Session(std::shared_ptr<store::Store> store, std::string url, host::User user)
    : store_(std::move(store)), url_(std::move(url)), user_(std::move(user)), caregivers_(store_),
      dates_([this] { return world_.today(); }), help_(world_),
      rights_(std::make_shared<components::Rights>(components::storedRights(store_, user_.login))) {
    store_->changes().user(user_.login);
}

host::HostObjects Session::objects() {
    return {world_,
            dates_,
            help_,
            std::make_shared<ports::DBAClient>(),
            components::databaseFor(store_, *rights_),
            rights_};
}

bool Session::mayWrite() {
    return components::mayWrite(*rights_);
}

} // namespace vorandine::desktop
