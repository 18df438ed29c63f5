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
    // What this seat has stored since this was made. Throws what the store throws.
    enum class Own { Nothing, HoursAlone, File };
    [[nodiscard]] Own own() const;

  private:
    std::shared_ptr<store::Store> store_;
    std::string code_;
    std::optional<std::uint64_t> writes_; // of others, when last looked; none before the first time
    std::map<std::pair<std::string, std::string>, std::string> known_; // file, key: last moment

    std::vector<OtherChange> told_;
    std::map<std::string, std::string> opened_; // by file: the last own change before this was made

    // The changes of one file that are the caregiver's, by key.
    [[nodiscard]] std::vector<store::Change> changes(const std::string& file) const;
    [[nodiscard]] std::string lastOwn(const std::string& file) const;
    // The changes by others that are not known yet, oldest first. All are known from here on.
    [[nodiscard]] std::vector<OtherChange> fresh();
};

} // namespace vorandine::host
