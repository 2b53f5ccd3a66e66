#include "cli/StopSignals.h"

#include <pthread.h>
#include <unistd.h>

#include <csignal>

namespace tessary {

namespace {

constexpr int interruptedStatus = 130;

/// Wakes the listener at the end; never sent by anybody else.
constexpr int wakeSignal = SIGUSR1;

sigset_t listenedSignals() {
    sigset_t signals;
    sigemptyset(&signals);
    for (const int number : {SIGINT, SIGTERM, wakeSignal})
        sigaddset(&signals, number);
    return signals;
}

} // namespace

StopSignals::StopSignals() {
    const sigset_t signals = listenedSignals();
    pthread_sigmask(SIG_BLOCK, &signals, nullptr);
    listener_ = std::jthread([this, signals](const std::stop_token& end) {
        while (!end.stop_requested()) {
            int number = 0;
            if (sigwait(&signals, &number) != 0 || number == wakeSignal)
                continue;
            if (!stop_.request_stop())
                _exit(interruptedStatus);
        }
    });
}

StopSignals::~StopSignals() {
    listener_.request_stop();
    pthread_kill(listener_.native_handle(), wakeSignal);
}

} // namespace tessary
