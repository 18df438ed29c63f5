// The help object of this system: its pages come with the program and are shown by the front end.
#pragma once

#include "ports/Help.h"
#include "widgets/World.h"

namespace vorandine::components {

class Help : public ports::HelpObject {
  public:
    // `world` shows the pages and must outlive this object.
    explicit Help(widgets::World& world) : world_(world) {}

    // Both are held until others take their place, for a page that is made of stored records;
    // the pages there are need neither.
    void TheClient(const std::shared_ptr<ports::DBAClient>& client) override { client_ = client; }
    void TheDatabase(const std::shared_ptr<ports::DBADatabase>& database) override {
        database_ = database;
    }

    // Throws what World::showHelp does.
    void Afficher_Aide(const std::string& page, const std::string& kind, const std::string& title,
                       const std::string& text) override;

  private:
    widgets::World& world_;
    std::shared_ptr<ports::DBAClient> client_;
    std::shared_ptr<ports::DBADatabase> database_;
};

} // namespace vorandine::components
