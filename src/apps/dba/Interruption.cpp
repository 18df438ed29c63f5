// The signal's number is all that a handler may leave behind.
#include "apps/dba/Interruption.h"

namespace vorandine::dba {
namespace {

volatile std::sig_atomic_t came = 0;

void remember(int signal) {
    came = signal;
}

} // namespace

Interruption::Interruption() {
    came = 0;
    struct sigaction own {};
    own.sa_handler = remember;
    own.sa_flags = SA_RESTART;
    for (std::size_t i = 0; i < Signals.size(); ++i) {
        sigaction(Signals.at(i), nullptr, &before_.at(i));
        // Who runs the program unminded of a signal (nohup) means it.
        if (before_.at(i).sa_handler != SIG_IGN)
            sigaction(Signals.at(i), &own, nullptr);
    }
}

Interruption::~Interruption() {
    for (std::size_t i = 0; i < Signals.size(); ++i)
        sigaction(Signals.at(i), &before_.at(i), nullptr);
    if (came != 0)
        static_cast<void>(std::raise(came));
}

void Interruption::check() const {
    if (came != 0)
        throw Interrupted();
}

} // namespace vorandine::dba
