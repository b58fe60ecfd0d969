#include "cli/Interrupt.h"

#include <csignal>

namespace {

volatile std::sig_atomic_t wanted = 0;

void Note(int /*signal*/) { wanted = 1; }

}  // namespace

Interrupt::Interrupt() {
    wanted = 0;
    struct sigaction before {};
    sigaction(SIGINT, nullptr, &before);
    if (before.sa_handler == SIG_IGN) return;
    struct sigaction action {};
    action.sa_handler = Note;
    // Files are written to the end.
    action.sa_flags = static_cast<int>(SA_RESTART | SA_RESETHAND);
    sigaction(SIGINT, &action, nullptr);
}

Interrupt::~Interrupt() {
    struct sigaction now {};
    sigaction(SIGINT, nullptr, &now);
    if (now.sa_handler == Note) std::signal(SIGINT, SIG_DFL);
}

bool Interrupt::Wanted() const { return wanted != 0; }
