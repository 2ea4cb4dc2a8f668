#include "tools/vrex/VrexInterruption.h"

#include <array>
#include <csignal>
#include <cstddef>

#include <signal.h>

namespace {

constexpr std::array SIGNALS = {SIGHUP, SIGINT, SIGTERM};

volatile std::sig_atomic_t latest = 0;
std::array<struct sigaction, SIGNALS.size()> former;

extern "C" void noteSignal(int number) { latest = number; }

} // namespace

VrexInterruption::VrexInterruption() {
    latest = 0;
    struct sigaction action = {};
    action.sa_handler = noteSignal; // Without SA_RESTART: a write that waits comes back.
    sigemptyset(&action.sa_mask);
    for (std::size_t i = 0; i < SIGNALS.size(); ++i) {
        sigaction(SIGNALS[i], nullptr, &former[i]);
        if (former[i].sa_handler == SIG_DFL) {
            sigaction(SIGNALS[i], &action, nullptr);
        }
    }
}

VrexInterruption::~VrexInterruption() {
    for (std::size_t i = 0; i < SIGNALS.size(); ++i) {
        sigaction(SIGNALS[i], &former[i], nullptr);
    }
    if (latest != 0 && !m_isTaken) {
        std::raise(latest);
    }
}

bool VrexInterruption::takeNote() {
    m_isTaken = m_isTaken || latest != 0;
    return m_isTaken;
}
