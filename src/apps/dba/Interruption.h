// Signals that end the program, held back while it makes something that must not be left half-made.
#pragma once

#include <array>
#include <csignal>
#include <stdexcept>

namespace vorandine::dba {

// The work is to end, and to take with it what it has begun.
class Interrupted : public std::runtime_error {
  public:
    Interrupted() : std::runtime_error("interrupted") {}
};

// Lives as long as the work: SIGTERM, SIGINT and SIGHUP, where they are not ignored, are only
// remembered. One at a time, on the thread that it was made on.
class Interruption {
  public:
    Interruption();
    Interruption(const Interruption&) = delete;
    Interruption& operator=(const Interruption&) = delete;
    // Gives the signals back to whom they were; one that came has its effect now.
    ~Interruption();

    // Throws Interrupted once one of the signals has come.
    void check() const;

  private:
    static constexpr std::array<int, 3> Signals{SIGTERM, SIGINT, SIGHUP};

    std::array<struct sigaction, Signals.size()> before_{};
};

} // namespace vorandine::dba
