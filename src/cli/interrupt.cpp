#include "cli/interrupt.h"

#include <csignal>

namespace tessarin {
namespace {

Session* interrupted_session = nullptr;

extern "C" void CancelOnSignal(int) {
    // Only an atomic store: safe inside a signal handler.
    if (interrupted_session != nullptr) interrupted_session->RequestAbort();
}

}  // namespace

void InstallInterruptHandlers(Session& session) {
    interrupted_session = &session;
    std::signal(SIGPIPE, SIG_IGN);
    struct sigaction action {};
    action.sa_handler = CancelOnSignal;
    sigemptyset(&action.sa_mask);
    // The handler falls back to the default after its first call, so a second signal ends the process.
    action.sa_flags = SA_RESETHAND | SA_RESTART;
    for (const int signal_number : {SIGINT, SIGTERM, SIGHUP})
        sigaction(signal_number, &action, nullptr);
}

}  // namespace tessarin
