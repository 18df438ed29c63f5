// What stands ready before and while a user works at a seat: a connection to the store, the user
// and his rights, the failures that the store is to meet; and what all seats share, the date and
// the journal.
#pragma once

#include "apps/scenario/RehearsalEngine.h"
#include "apps/scenario/Words.h"
#include "components/Rights.h"
#include "store/Store.h"
#include "widgets/World.h"

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace vorandine::scenario {

// Opens the store at `url`: a new one for "memory:", else one that exists. Throws Error as
// store::openEngine does.
[[nodiscard]] std::shared_ptr<store::Engine> openStore(const std::string& url);

// What all seats share.
struct Common {
    std::optional<widgets::Date> today;
    std::vector<std::string> journal; // since it was last looked at
};

class Stage {
  public:
    // `engine` is the seat's own connection. Entries of the journal end in `mark`; `user` is who
    // works at the seat until it is said. `common` must outlive the stage.
    Stage(std::shared_ptr<store::Engine> engine, Common& common, const std::string& mark,
          std::string user);

    // Runs `command` if it is one of the stage's (today, put, remove, rights, user, guard, fail);
    // false if not. Throws LineError, and Error where the store refuses.
    bool run(const std::string& command, Words& words);

    [[nodiscard]] widgets::Date today() const;
    [[nodiscard]] components::ModuleRights rights(const std::string& key) const;
    // What the control works on. The user who was last named is at the seat from here on.
    [[nodiscard]] std::shared_ptr<store::Store> database();
    // The same as hosts hand it to a user of `rights`, once `guard` was played.
    [[nodiscard]] std::shared_ptr<ports::DBADatabase>
    handedOver(ports::DroitsUtilisateur& rights) const;
    // The same records for those who look on: no failure, no trace in the journal.
    [[nodiscard]] store::Store& records() noexcept { return records_; }
    // For another seat.
    [[nodiscard]] std::shared_ptr<store::Engine> anotherConnection() { return engine_->another(); }
    [[nodiscard]] RehearsalEngine& rehearsal() noexcept { return *rehearsal_; }
    // The entries of the journal so far, which begins anew.
    [[nodiscard]] std::vector<std::string> takeJournal();

  private:
    std::shared_ptr<store::Engine> engine_;
    std::shared_ptr<RehearsalEngine> rehearsal_;
    store::Store records_;
    std::shared_ptr<store::Store> hosted_;
    Common& common_;
    std::string user_;   // from the next control on
    std::string seated_; // who is in the history; nobody before the first
    std::map<std::string, components::ModuleRights> rights_;
    bool guarded_ = false;

    void setToday(Words& words);
    void put(Words& words);
    void remove(Words& words);
    void setRights(Words& words);
    void setUser(Words& words);
    void setGuard(Words& words);
    void fail(Words& words);
    // Runs `work`, which stores through `hosted_` what is nobody's, aside from failures and
    // journal.
    void aside(const std::function<void()>& work);
    void checkFile(const std::string& name);
};

} // namespace vorandine::scenario
