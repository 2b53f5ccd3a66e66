#include "platform/process/StopSignals.h"

#include "base/local/Unfinished.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <optional>
#include <system_error>

#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

namespace tessary {

namespace {

constexpr std::array<int, 3> stopSignals{SIGINT, SIGTERM, SIGHUP};
constexpr int signalStatus = 128; // and the signal's number, as shells say it
constexpr unsigned char noSignal = 0;

/// The pipe's end that handlers write to.
volatile sig_atomic_t handlersPipe = -1;

extern "C" void passOn(int number) {
    const int before = errno;
    const auto byte = static_cast<unsigned char>(number);
    (void)!write(handlersPipe, &byte, 1);
    errno = before;
}

[[noreturn]] void endNow(int number) {
    Unfinished::removeAll();
    _exit(signalStatus + number);
}

using Clock = std::chrono::steady_clock;

/// The next signal, or noSignal at the end of the listening; nothing when none comes in time.
std::optional<int> next(const FileHandle& arrived, std::optional<Clock::time_point> end) {
    pollfd wanted{arrived.get(), POLLIN, 0};
    unsigned char number = noSignal;
    while (true) {
        int left = -1;
        if (end) {
            const auto time = std::chrono::ceil<std::chrono::milliseconds>(*end - Clock::now());
            left = static_cast<int>(std::max<std::int64_t>(time.count(), 0));
        }
        const int ready = poll(&wanted, 1, left);
        if (ready == 0)
            return std::nullopt;
        if (ready > 0 && read(arrived.get(), &number, 1) == 1)
            return number;
    }
}

} // namespace

StopSignals::StopSignals(std::chrono::milliseconds patience) {
    std::array<int, 2> ends{};
    if (pipe2(ends.data(), O_CLOEXEC | O_NONBLOCK) != 0)
        throw std::system_error(errno, std::generic_category(), "no pipe for signals");
    arrived_ = FileHandle(ends[0]);
    handlersPipe = ends[1];
    listener_ = std::thread([this, patience] { listen(patience); });
    for (const int number : stopSignals) {
        struct sigaction action {};
        if (sigaction(number, nullptr, &action) != 0 || action.sa_handler == SIG_IGN)
            continue;
        action = {};
        action.sa_handler = passOn;
        action.sa_flags = SA_RESTART;
        sigaction(number, &action, nullptr);
    }
}

StopSignals::~StopSignals() {
    for (const int number : stopSignals) {
        struct sigaction action {};
        if (sigaction(number, nullptr, &action) == 0 && action.sa_handler == passOn)
            (void)std::signal(number, SIG_DFL);
    }
    (void)!write(handlersPipe, &noSignal, 1);
    listener_.join();
    close(handlersPipe);
    handlersPipe = -1;
}

void StopSignals::listen(std::chrono::milliseconds patience) {
    const int number = *next(arrived_, std::nullopt);
    if (number == noSignal)
        return;
    stop_.request_stop();
    const auto end = Clock::now() + patience;
    while (true) {
        const auto again = next(arrived_, end);
        if (!again || *again == SIGINT) // whoever ends a session sends several of the others
            endNow(number);
        if (*again == noSignal)
            return;
    }
}

} // namespace tessary
