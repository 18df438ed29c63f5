// Who is in a store, for a host's lists: the caregivers of the file AIDANT, with new entries, and
// the users of the file UTILISATEURS.
#pragma once

#include "store/Store.h"

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace vorandine::host {

struct Caregiver {
    std::string code;
    std::string name; // "" where only a training file tells of the caregiver
};

struct User {
    std::string login; // what the rights are kept under
    std::string name;  // the login again where no name is stored
};

// The users that `database` knows, in French order of their names. Throws what the database throws.
[[nodiscard]] std::vector<User> users(ports::DBADatabase& database);

class Caregivers {
  public:
    explicit Caregivers(std::shared_ptr<store::Store> store);

    // All caregivers that have a record in AIDANT or a training file, in order of their codes.
    // Throws what the store throws, as all members do.
    [[nodiscard]] std::vector<Caregiver> all();
    // The one of that code; none if neither AIDANT nor the training files know it.
    [[nodiscard]] std::optional<Caregiver> find(const std::string& code);

    // Stores a new caregiver in AIDANT and gives it back, both texts without the blanks around.
    // Throws Error, in French and with the reason, and stores nothing:
    // CodeRefused    for a code that checkCode refuses, that is in use, that begins another one or
    //                begins with one: records are found by the beginning of their key, so that the
    //                one caregiver would be given what belongs to the other; or that ends in "]",
    //                which stands for "begins with" in requests
    // TextRefused    for a name that is empty or no plain text
    Caregiver add(std::string_view code, std::string_view name);

    // All that the control may change of the caregiver, the training file and the ledgers of D.I.F.
    // hours, as one text to compare with a later one.
    [[nodiscard]] std::string content(const std::string& code);

  private:
    std::shared_ptr<store::Store> store_;

    void requireFree(const std::string& code);
};

} // namespace vorandine::host
