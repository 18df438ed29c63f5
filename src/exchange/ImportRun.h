// What every import has in common: one transaction, wrong lines told and counted, and what becomes
// of the good ones where there are any.
#pragma once

#include "store/Store.h"
#include "text/Error.h"

#include <cstddef>
#include <functional>
#include <string>

namespace vorandine::exchange {

enum class BadLines {
    StoreNothing, // one wrong line, and nothing at all is stored
    Skip,         // the good lines are stored
};

// Who is told what. Both are called within the transaction.
struct ImportWatch {
    std::function<void(const std::string&)> complain; // "NAME:LINE: what is wrong"
    std::function<void()> step = [] {};               // after each line that was looked at
};

struct ImportResult {
    std::size_t good = 0; // lines stored, or that would have been
    std::size_t bad = 0;  // lines that were told of
    bool stored = false;
};

class ImportRun {
  public:
    // All that is handed over must outlive it.
    ImportRun(store::Store& store, BadLines badLines, const ImportWatch& watch)
        : store_(store), badLines_(badLines), watch_(watch) {}

    // Runs `work`, which calls line(). Throws what it throws, and what the store throws: nothing is
    // stored then.
    [[nodiscard]] ImportResult run(const std::function<void()>& work);

    // Runs `put` for line `number` of `name`. A line is wrong where `put` throws an Error that lies
    // in the line, or gives false, having complained itself. Throws all other errors.
    template <class Put>
    void line(const std::string& name, std::size_t number, const Put& put) {
        bool good = false;
        try {
            good = put();
        } catch (const Error& error) {
            if (!isOfTheLine(error))
                throw;
            complain(name + ":" + std::to_string(number) + ": " + error.what());
        }
        ++(good ? result_.good : result_.bad);
        watch_.step();
    }

    void complain(const std::string& text) { watch_.complain(text); }

  private:
    store::Store& store_;
    BadLines badLines_;
    const ImportWatch& watch_;
    ImportResult result_;

    [[nodiscard]] static bool isOfTheLine(const Error& error) noexcept;
};

} // namespace vorandine::exchange
