// Progress of long work: a count that is written over itself on standard error, where somebody
// watches, and wiped out at the end.
#pragma once

#include "apps/dba/Console.h"

#include <chrono>
#include <cstddef>
#include <string>

namespace vorandine::dba {

class Progress {
  public:
    // `what` stands before the count, "imported", and `unit` behind it.
    Progress(const Console& console, std::string what, std::string unit = "records");
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;
    ~Progress();

    // One more record. Costs next to nothing where nobody watches.
    void step() {
        if (watched_ && ++count_ % Stride == 0)
            show();
    }
    // Whoever counts otherwise has come so far.
    void reach(std::size_t count) {
        count_ = count;
        if (watched_)
            show();
    }
    // Takes the count off the line, so that something else can be told on it.
    void clear() noexcept;

  private:
    static constexpr std::size_t Stride = 256; // records between two looks at the clock

    std::ostream& err_;
    bool watched_;
    std::string what_;
    std::string unit_;
    std::size_t count_ = 0;
    bool shown_ = false;
    std::chrono::steady_clock::time_point next_;

    void show();
};

} // namespace vorandine::dba
