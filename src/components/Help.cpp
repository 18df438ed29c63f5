// From the help object to the front end.
#include "components/Help.h"

namespace vorandine::components {

void Help::Afficher_Aide(const std::string& page, const std::string& kind, const std::string& title,
                         const std::string& /*text*/) {
    world_.showHelp({.page = page, .kind = kind, .title = title});
}

} // namespace vorandine::components
