#include "platform/sandbox/CallFilter.h"

#include "base/values/FreeWith.h"

#include <seccomp.h>

#include <cerrno>
#include <initializer_list>
#include <memory>
#include <system_error>

#include <fcntl.h>
#include <sched.h>
#include <sys/ioctl.h>
#include <sys/mman.h>
#include <sys/prctl.h>
#include <sys/socket.h>
#include <unistd.h>

namespace tessary {

namespace {

// What does no harm: memory, threads of its own, clocks, waiting, and the descriptors that it has.
constexpr std::initializer_list<int> memoryCalls{SCMP_SYS(brk), SCMP_SYS(munmap), SCMP_SYS(mremap),
                                                 SCMP_SYS(madvise)};
constexpr std::initializer_list<int> threadCalls{
    SCMP_SYS(futex),      SCMP_SYS(futex_waitv), SCMP_SYS(set_robust_list),   SCMP_SYS(rseq),
    SCMP_SYS(membarrier), SCMP_SYS(sched_yield), SCMP_SYS(sched_getaffinity), SCMP_SYS(gettid),
    SCMP_SYS(getcpu)};
constexpr std::initializer_list<int> signalCalls{
    SCMP_SYS(rt_sigaction), SCMP_SYS(rt_sigprocmask),  SCMP_SYS(rt_sigreturn),
    SCMP_SYS(sigaltstack),  SCMP_SYS(restart_syscall), SCMP_SYS(exit),
    SCMP_SYS(exit_group)};
constexpr std::initializer_list<int> clockCalls{
    SCMP_SYS(clock_gettime), SCMP_SYS(clock_getres), SCMP_SYS(clock_nanosleep),
    SCMP_SYS(nanosleep),     SCMP_SYS(gettimeofday), SCMP_SYS(time),
    SCMP_SYS(times)};
constexpr std::initializer_list<int> selfCalls{
    SCMP_SYS(getpid),    SCMP_SYS(getppid), SCMP_SYS(getuid),    SCMP_SYS(geteuid),
    SCMP_SYS(getgid),    SCMP_SYS(getegid), SCMP_SYS(getrusage), SCMP_SYS(getrlimit),
    SCMP_SYS(getrandom), SCMP_SYS(uname),   SCMP_SYS(sysinfo)};
constexpr std::initializer_list<int> waitingCalls{
    SCMP_SYS(poll),          SCMP_SYS(ppoll),     SCMP_SYS(select),     SCMP_SYS(pselect6),
    SCMP_SYS(epoll_create1), SCMP_SYS(epoll_ctl), SCMP_SYS(epoll_wait), SCMP_SYS(epoll_pwait),
    SCMP_SYS(eventfd2),      SCMP_SYS(pipe2)};
constexpr std::initializer_list<int> descriptorCalls{
    SCMP_SYS(read),     SCMP_SYS(readv), SCMP_SYS(pread64), SCMP_SYS(write), SCMP_SYS(writev),
    SCMP_SYS(pwrite64), SCMP_SYS(lseek), SCMP_SYS(fstat),   SCMP_SYS(close), SCMP_SYS(dup)};

/// What looking for a file by its name takes: the file wall decides which are opened.
constexpr std::initializer_list<int> lookUpCalls{
    SCMP_SYS(stat),       SCMP_SYS(lstat),      SCMP_SYS(newfstatat), SCMP_SYS(statx),
    SCMP_SYS(access),     SCMP_SYS(faccessat),  SCMP_SYS(faccessat2), SCMP_SYS(readlink),
    SCMP_SYS(readlinkat), SCMP_SYS(getdents64), SCMP_SYS(getcwd),     SCMP_SYS(statfs),
    SCMP_SYS(fstatfs),    SCMP_SYS(fadvise64),
};

/// A daemon's socket is looked at before it is connected to: that it is there may be known.
constexpr std::initializer_list<int> streamCalls{
    SCMP_SYS(stat),       SCMP_SYS(lstat),       SCMP_SYS(newfstatat),  SCMP_SYS(connect),
    SCMP_SYS(sendto),     SCMP_SYS(recvfrom),    SCMP_SYS(sendmsg),     SCMP_SYS(recvmsg),
    SCMP_SYS(shutdown),   SCMP_SYS(getsockname), SCMP_SYS(getpeername), SCMP_SYS(getsockopt),
    SCMP_SYS(setsockopt),
};

/// Wide enough for each argument of a call, whatever its type is.
template <typename Number>
constexpr scmp_datum_t datum(Number number) {
    return static_cast<scmp_datum_t>(number);
}

/// That the argument of this number, from 0 on, is `value`.
template <typename Number>
constexpr scmp_arg_cmp equals(unsigned int argument, Number value) {
    return {argument, SCMP_CMP_EQ, datum(value), 0};
}

class Filter {
public:
    Filter() : context_(seccomp_init(SCMP_ACT_ERRNO(EPERM))) {
        if (!context_)
            throw std::system_error(ENOMEM, std::generic_category(), "cannot make a call filter");
        check(seccomp_attr_set(context_.get(), SCMP_FLTATR_CTL_TSYNC, 1));
    }

    void allow(std::initializer_list<int> calls) {
        for (const int call : calls)
            allow(call, {});
    }
    /// The call is carried out when all of `conditions` hold of its arguments. Calls that this
    /// machine does not have are no matter.
    void allow(int call, std::initializer_list<scmp_arg_cmp> conditions) {
        add(SCMP_ACT_ALLOW, call, conditions);
    }
    void refuse(int call, int error) {
        add(SCMP_ACT_ERRNO(static_cast<unsigned int>(error)), call, {});
    }
    void load() {
        check(seccomp_load(context_.get()));
    }

private:
    void add(std::uint32_t action, int call, std::initializer_list<scmp_arg_cmp> conditions) {
        check(seccomp_rule_add_array(context_.get(), action, call,
                                     static_cast<unsigned int>(conditions.size()),
                                     conditions.begin()));
    }
    static void check(int status) {
        if (status != 0)
            throw std::system_error(-status, std::generic_category(), "cannot filter calls");
    }

    std::unique_ptr<void, FreeWith<seccomp_release>> context_;
};

/// Calls of which only some uses do no harm.
void allowInPart(Filter& filter) {
    for (const int call : {SCMP_SYS(mmap), SCMP_SYS(mprotect)})
        filter.allow(call, {SCMP_A2(SCMP_CMP_MASKED_EQ, datum(PROT_EXEC), 0)});
    filter.allow(SCMP_SYS(clone),
                 {SCMP_A0(SCMP_CMP_MASKED_EQ, datum(CLONE_THREAD), datum(CLONE_THREAD))});
    // Its flags lie in memory where a filter cannot look: the C library then takes the older call.
    filter.refuse(SCMP_SYS(clone3), ENOSYS);
    // abort()
    filter.allow(SCMP_SYS(tgkill), {equals(0, getpid())});
    filter.allow(SCMP_SYS(prlimit64), {equals(2, 0)});
    filter.allow(SCMP_SYS(prctl), {equals(0, PR_SET_NAME)});
    for (const auto request : {TCGETS, FIONREAD, FIONBIO})
        filter.allow(SCMP_SYS(ioctl), {equals(1, request)});
    for (const int command : {F_GETFD, F_SETFD, F_GETFL, F_SETFL, F_DUPFD_CLOEXEC})
        filter.allow(SCMP_SYS(fcntl), {equals(1, command)});
    // How the C library asks about an open descriptor.
    filter.allow(SCMP_SYS(newfstatat),
                 {SCMP_A3(SCMP_CMP_MASKED_EQ, datum(AT_EMPTY_PATH), datum(AT_EMPTY_PATH))});
}

void allowReading(Filter& filter) {
    filter.allow(lookUpCalls);
    constexpr scmp_datum_t writing = O_ACCMODE | O_CREAT | O_TRUNC | O_APPEND;
    filter.allow(SCMP_SYS(open), {SCMP_A1(SCMP_CMP_MASKED_EQ, writing, 0)});
    filter.allow(SCMP_SYS(openat), {SCMP_A2(SCMP_CMP_MASKED_EQ, writing, 0)});
}

void allowStreams(Filter& filter) {
    filter.allow(streamCalls);
    constexpr scmp_datum_t kind = ~datum(SOCK_NONBLOCK | SOCK_CLOEXEC) & 0xFFFFFFFFU;
    for (const int family : {AF_UNIX, AF_INET, AF_INET6})
        filter.allow(SCMP_SYS(socket),
                     {equals(0, family), SCMP_A1(SCMP_CMP_MASKED_EQ, kind, datum(SOCK_STREAM))});
}

} // namespace

void filterCalls(const SandboxRules& rules, bool opensFiles) {
    Filter filter;
    for (const auto& harmless : {memoryCalls, threadCalls, signalCalls, clockCalls, selfCalls,
                                 waitingCalls, descriptorCalls})
        filter.allow(harmless);
    allowInPart(filter);
    if (opensFiles)
        allowReading(filter);
    if (rules.reach == SandboxRules::Reach::streams)
        allowStreams(filter);
    filter.load();
}

} // namespace tessary
