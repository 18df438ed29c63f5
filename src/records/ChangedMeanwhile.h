// What a write or a deletion meets where another seat has changed the record since it was read.
#pragma once

#include "text/Error.h"

#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace vorandine::records {

// Nothing was written. Whoever knows what the record holds can put both together and write again
// over `stored`.
class ChangedMeanwhile : public Error {
  public:
    // Who made the last change and when, in the user's time; "" where nobody kept it.
    struct Maker {
        std::string user;
        std::string when;
        std::vector<std::string> before = {}; // others who changed it since it was read

        [[nodiscard]] std::string name() const { return user.empty() ? "Un autre poste" : user; }
        // The same, the others too: "karim, après odile,".
        [[nodiscard]] std::string names() const {
            std::string all;
            for (const std::string& one : before)
                all += (all.empty() ? ", après " : " et ") + one;
            return name() + all + (all.empty() ? "" : ",");
        }
        // Whose a value is, which cannot be told apart: "karim ou odile".
        [[nodiscard]] std::string oneOf() const {
            std::string all = name();
            for (const std::string& one : before)
                all += " ou " + one;
            return all;
        }
    };

    ChangedMeanwhile(const std::string& text, std::optional<std::string> stored, Maker maker)
        : Error(errors::ChangedMeanwhile, text), stored_(std::move(stored)),
          maker_(std::move(maker)) {}

    // The whole text as it is stored now; none if the record is no more.
    [[nodiscard]] const std::optional<std::string>& stored() const noexcept { return stored_; }
    [[nodiscard]] const Maker& maker() const noexcept { return maker_; }

  private:
    std::optional<std::string> stored_;
    Maker maker_;
};

} // namespace vorandine::records
