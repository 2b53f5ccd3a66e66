#include "platform/sandbox/Sandbox.h"

#include "platform/sandbox/CallFilter.h"
#include "platform/sandbox/FileWall.h"

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <ctime>
#include <filesystem>
#include <iterator>
#include <system_error>

#include <sys/prctl.h>
#include <sys/resource.h>
#include <unistd.h>

namespace tessary {

namespace {

constexpr rlim_t mostDescriptors = 64;

[[noreturn]] void fail(const char* what) {
    throw std::system_error(errno, std::generic_category(), what);
}

/// `Resource` differs between systems.
template <typename Resource>
void limit(Resource resource, rlim_t most) {
    rlimit both{};
    if (getrlimit(resource, &both) != 0)
        fail("cannot read a limit");
    // Whoever started this may have set a lower one.
    both.rlim_max = both.rlim_cur = std::min(both.rlim_max, most);
    if (setrlimit(resource, &both) != 0)
        fail("cannot set a limit");
}

void limitResources(const SandboxRules& rules) {
    limit(RLIMIT_CORE, 0);
    limit(RLIMIT_CPU, static_cast<rlim_t>(rules.processorTime.count()));
    limit(RLIMIT_NOFILE, mostDescriptors);
#if !defined(__SANITIZE_ADDRESS__) && !defined(__SANITIZE_THREAD__)
    limit(RLIMIT_AS, static_cast<rlim_t>(rules.memory)); // a sanitizer's shadow takes terabytes
#endif
    // Nothing in here can turn a deaf ear to this signal, or disarm the timer.
    sigevent deadly{};
    deadly.sigev_notify = SIGEV_SIGNAL;
    deadly.sigev_signo = SIGKILL;
    timer_t timer{};
    const itimerspec once{{}, {rules.wallTime.count(), 0}};
    if (timer_create(CLOCK_MONOTONIC, &deadly, &timer) != 0 ||
        timer_settime(timer, 0, &once, nullptr) != 0)
        fail("cannot set the limit of time");
}

void closeAllBut(std::vector<int> kept) {
    std::ranges::sort(kept);
    unsigned int next = 0;
    for (const int descriptor : kept) {
        const auto number = static_cast<unsigned int>(descriptor);
        if (number > next && close_range(next, number - 1, 0) != 0)
            fail("cannot close descriptors");
        next = number + 1;
    }
    if (close_range(next, ~0U, 0) != 0)
        fail("cannot close descriptors");
}

/// A thread that runs already would stay outside the file wall.
void checkThatAlone() {
#if !defined(__SANITIZE_THREAD__) // it has a thread of its own
    const std::filesystem::directory_iterator threads("/proc/self/task");
    if (std::distance(begin(threads), end(threads)) != 1) {
        errno = EBUSY;
        fail("threads run already");
    }
#endif
}

} // namespace

void enterSandbox(const SandboxRules& rules) {
    checkThatAlone();
    // Neither can a program that is run get back what this one gave up, nor may others look in.
    if (prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0) != 0 || prctl(PR_SET_DUMPABLE, 0, 0, 0, 0) != 0)
        fail("cannot give up privileges");
    closeAllBut(rules.descriptors);
    limitResources(rules);
    const bool opensFiles = buildFileWall(rules) && !rules.readable.empty();
    filterCalls(rules, opensFiles);
}

} // namespace tessary
