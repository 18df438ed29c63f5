// The help object, as the control asks for it. One serves all controls of a program.
#pragma once

#include "ports/Database.h"

#include <memory>
#include <string>

namespace vorandine::ports {

class HelpObject {
  public:
    HelpObject() = default;
    HelpObject(const HelpObject&) = delete;
    HelpObject& operator=(const HelpObject&) = delete;
    virtual ~HelpObject() = default;

    // Both are set before each use.
    virtual void TheClient(const std::shared_ptr<DBAClient>& client) = 0;
    virtual void TheDatabase(const std::shared_ptr<DBADatabase>& database) = 0;

    // Shows the page and comes back at once: the user goes on working beside it. `page` is the
    // page's file name, `kind` "S" for a summary, `title` what heads it, `text` is not used.
    // Throws Error if there is no such page.
    virtual void Afficher_Aide(const std::string& page, const std::string& kind,
                               const std::string& title, const std::string& text) = 0;
};

} // namespace vorandine::ports
