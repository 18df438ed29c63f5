// The rights object of this system: what a user may do in each part of the application, looked up
// where the host says, as a rule in the file DROITS of the database.
//
// The file DROITS has one record for a user and a part of the application, under the key
// `user*MODULE` ("sylvie*VORANDINEDROIT"):
//   1  the level: 2 lets the user write; a text that is no whole number counts as 0
//   2  "1" if the user has total access, anything else if not
//   3  the codes of the activities that the user may choose, one a value; "*" stands for all
// A user without a record for a module has no right there.
#pragma once

#include "ports/Database.h"
#include "ports/Rights.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace vorandine::components {

// The rights in one part of the application; as it stands, all of them.
struct ModuleRights {
    std::int32_t level = 2;
    bool total = true;
    int listCount = 0; // how many entries the list of restrictions has
    std::vector<std::string> activities = {"*"};
};

class Rights : public ports::DroitsUtilisateur {
  public:
    // `lookUp` gives the rights for a key of ports::DroitsUtilisateur::Droits, anew at each call.
    // Must not be empty; what it throws goes through Droits.
    explicit Rights(std::function<ModuleRights(const std::string& key)> lookUp);

    // The module keeps what it was given: rights changed later show in the next one. Its list is
    // one object, whose Count is 0 until InitialiserListe has run.
    [[nodiscard]] std::shared_ptr<ports::DroitsModule> Droits(const std::string& key) override;

  private:
    std::function<ModuleRights(const std::string&)> lookUp_;
};

// Looks the rights of `user` up in the file DROITS of `database`, which it keeps alive. The list of
// restrictions has one entry an activity, none for a user who may choose all. The function given
// throws what opening the file and reading throw, save that a missing record means no right.
[[nodiscard]] std::function<ModuleRights(const std::string& key)>
storedRights(std::shared_ptr<ports::DBADatabase> database, std::string user);

} // namespace vorandine::components
