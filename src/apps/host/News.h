// What other seats store of a caregiver's file while it is open here.
#pragma once

#include "store/Store.h"
#include "widgets/World.h"

#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace vorandine::host {

// A change of a training file or a ledger by another seat.
struct OtherChange {
    std::string file;
    std::string key;
    std::string moment; // of store::momentText
    std::string user;   // "" if unknown
};

class News {
  public:
    // All that is stored when this is made is no news: make it before the file is read.
    News(std::shared_ptr<store::Store> store, std::string code);

    // "NOM a enregistré ce dossier", with "à 10:42" as the time, which reads on from it: one for
    // each user who, through another connection, has changed the training file or a ledger since
    // the last call; oldest first. Where the store fails, none: the next call tells. As quick as
    // store::Engine::writesOfOthers() while others write nothing.
    [[nodiscard]] std::vector<widgets::Told> ask();
    // All changes that were told, as they were met.
    [[nodiscard]] const std::vector<OtherChange>& told() const noexcept { return told_; }

  private:
    std::shared_ptr<store::Store> store_;
    std::string code_;
    std::optional<std::uint64_t> writes_; // of others, when last looked; none before the first time
    std::map<std::pair<std::string, std::string>, std::string> known_; // file, key: last moment

    std::vector<OtherChange> told_;

    // The changes by others that are not known yet, oldest first. All are known from here on.
    [[nodiscard]] std::vector<OtherChange> fresh();
};

} // namespace vorandine::host
