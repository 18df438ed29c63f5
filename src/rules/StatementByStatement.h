// How a routine runs on after any error: statement by statement, each skipped if it fails. The last
// error's number is kept for the routines that tell a missing record from the rest. Anything that
// is no Error (memory run out) goes through: a screen half filled for such a reason must not be
// saved.
#pragma once

#include "text/Error.h"

#include <cstdint>

namespace vorandine::rules {

class StatementByStatement {
  public:
    // Runs one statement. Whether it ended well.
    template <typename Statement>
    bool operator()(Statement statement) {
        try {
            statement();
            return true;
        } catch (const Error& error) {
            number_ = error.number();
        }
        return false;
    }

    // The number of the last error since clear(), 0 if there was none.
    [[nodiscard]] std::uint32_t number() const noexcept { return number_; }
    void clear() noexcept { number_ = 0; }

  private:
    std::uint32_t number_ = 0;
};

} // namespace vorandine::rules
