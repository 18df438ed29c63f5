// What stands ready before and while a user works: the store with its records, the user's rights,
// the current date, and the failures that the store is to meet.
#pragma once

#include "apps/scenario/RehearsalEngine.h"
#include "apps/scenario/Words.h"
#include "components/Rights.h"
#include "store/Store.h"
#include "widgets/World.h"

#include <map>
#include <memory>
#include <optional>
#include <string>

namespace vorandine::scenario {

class Stage {
  public:
    // Opens the store at `url`: a new one for "memory:", else one that exists. Throws Error as
    // store::openEngine does.
    explicit Stage(const std::string& url);

    // Runs `command` if it is one of the stage's (today, put, remove, rights, guard, fail); false
    // if not. Throws LineError, and Error where the store refuses.
    bool run(const std::string& command, Words& words);

    [[nodiscard]] widgets::Date today() const;
    [[nodiscard]] components::ModuleRights rights(const std::string& key) const;
    // What the control works on. Once `guard` was played, what hosts hand to a user of `rights`.
    [[nodiscard]] std::shared_ptr<ports::DBADatabase>
    database(ports::DroitsUtilisateur& rights) const;
    // The same records for those who look on: no failure, no trace in the journal.
    [[nodiscard]] store::Store& records() noexcept { return records_; }
    [[nodiscard]] RehearsalEngine& rehearsal() noexcept { return *rehearsal_; }

  private:
    std::shared_ptr<store::Engine> engine_;
    std::shared_ptr<RehearsalEngine> rehearsal_;
    store::Store records_;
    std::shared_ptr<store::Store> hosted_;
    std::optional<widgets::Date> today_;
    std::map<std::string, components::ModuleRights> rights_;
    bool guarded_ = false;

    void setToday(Words& words);
    void put(Words& words);
    void remove(Words& words);
    void setRights(Words& words);
    void setGuard(Words& words);
    void fail(Words& words);
    void checkFile(const std::string& name);
};

} // namespace vorandine::scenario
