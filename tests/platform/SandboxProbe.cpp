// SandboxProbe RULES ACTION FOLDER: goes into a sandbox and tries one thing there. Prints what came
// of it: "done", or the name of the system's error. It keeps standard output, and descriptor 3,
// FOLDER/kept, which it opened before; "FOLDER/readable" may be read when RULES is "reading";
// streams may be opened when it is "streams".

#include "platform/sandbox/Sandbox.h"

#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <functional>
#include <map>
#include <string>
#include <system_error>
#include <thread>

#include <fcntl.h>
#include <linux/sched.h>
#include <netinet/in.h>
#include <poll.h>
#include <sys/mman.h>
#include <sys/prctl.h>
#include <sys/ptrace.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/un.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace tessary;

namespace {

using Action = std::function<long(const std::string& folder)>;

constexpr int keptDescriptor = 3;
constexpr int lostDescriptor = 4;

long openAndRead(const std::string& path, int flags = O_RDONLY) {
    const int file = ::open(path.c_str(), flags, 0600);
    char byte = 0;
    return file < 0 ? -1 : read(file, &byte, 1);
}

long connectTo(const sockaddr* address, socklen_t length) {
    const int link = socket(address->sa_family, SOCK_STREAM | SOCK_CLOEXEC, 0);
    return link < 0 ? -1 : connect(link, address, length);
}

long connectUnix(const std::string& path) {
    sockaddr_un address{AF_UNIX, {}};
    path.copy(address.sun_path, sizeof address.sun_path - 1);
    return connectTo(reinterpret_cast<const sockaddr*>(&address), sizeof address);
}

long connectTcp() {
    sockaddr_in address{AF_INET, htons(9), {htonl(INADDR_LOOPBACK)}, {}};
    return connectTo(reinterpret_cast<const sockaddr*>(&address), sizeof address);
}

/// In the child nothing is done, so that a hole is no fork bomb.
long born(long child) {
    if (child == 0)
        _exit(0);
    return child;
}

long cloneByStructure() {
    clone_args arguments{};
    arguments.exit_signal = SIGCHLD;
    return born(syscall(SYS_clone3, &arguments, sizeof arguments));
}

long execute() {
    char program[] = "/bin/true";
    char* arguments[] = {program, nullptr};
    return execv(program, arguments);
}

long mapped(int protection) {
    void* page = mmap(nullptr, 4096, protection, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    return page == MAP_FAILED ? -1 : 0;
}

long makeExecutable() {
    void* page = mmap(nullptr, 4096, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    return mprotect(page, 4096, PROT_READ | PROT_EXEC);
}

long take(std::size_t bytes) {
    void* memory = malloc(bytes);
    if (memory == nullptr)
        return -1;
    memset(memory, 1, bytes);
    return 0;
}

[[noreturn]] void compute() {
    for (volatile unsigned int count = 0;;)
        count = count + 1;
}

long runThread() {
    long sum = 0;
    std::thread([&] { sum = 1; }).join();
    return sum;
}

/// Longer than its limit of time, with all signals blocked that can be.
long oversleep() {
    sigset_t all;
    sigfillset(&all);
    return sigprocmask(SIG_BLOCK, &all, nullptr) != 0 ? -1 : poll(nullptr, 0, 60'000);
}

const std::map<std::string, Action> actions{
    {"compute", [](auto&) -> long { compute(); }},
    {"oversleep", [](auto&) { return oversleep(); }},
    {"thread", [](auto&) { return runThread(); }},
    {"take 16 MB", [](auto&) { return take(std::size_t{16} << 20U); }},
    {"take 512 MB", [](auto&) { return take(std::size_t{512} << 20U); }},
    {"read kept",
     [](auto&) {
         char c = 0;
         return read(keptDescriptor, &c, 1);
     }},
    {"read lost",
     [](auto&) {
         char c = 0;
         return read(lostDescriptor, &c, 1);
     }},
    {"reopen kept", [](auto&) { return openAndRead("/proc/self/fd/3"); }},
    {"open readable", [](auto& at) { return openAndRead(at + "/readable/file"); }},
    {"list readable", [](auto& at) { return open((at + "/readable").c_str(), O_DIRECTORY); }},
    {"leave readable", [](auto& at) { return openAndRead(at + "/readable/../secret"); }},
    {"follow link", [](auto& at) { return openAndRead(at + "/readable/link"); }},
    {"write readable", [](auto& at) { return openAndRead(at + "/readable/file", O_RDWR); }},
    {"open secret", [](auto& at) { return openAndRead(at + "/secret"); }},
    {"list root", [](auto&) { return open("/", O_RDONLY | O_DIRECTORY); }},
    {"make file", [](auto& at) { return openAndRead(at + "/new", O_RDWR | O_CREAT); }},
    {"remove", [](auto& at) { return unlink((at + "/secret").c_str()); }},
    {"rename", [](auto& at) { return rename((at + "/secret").c_str(), (at + "/new").c_str()); }},
    {"link", [](auto& at) { return link((at + "/secret").c_str(), (at + "/new").c_str()); }},
    {"make memory file", [](auto&) { return memfd_create("code", 0); }},
    {"connect daemon", [](auto& at) { return connectUnix(at + "/socket"); }},
    {"connect TCP", [](auto&) { return connectTcp(); }},
    {"UDP", [](auto&) { return socket(AF_INET, SOCK_DGRAM, 0); }},
    {"netlink", [](auto&) { return socket(AF_NETLINK, SOCK_RAW, 0); }},
    {"listen", [](auto&) { return listen(keptDescriptor, 1); }},
    {"fork", [](auto&) { return born(fork()); }},
    {"vfork",
     [](auto&) { return syscall(SYS_clone, CLONE_VM | CLONE_VFORK | SIGCHLD, 0, 0, 0, 0); }},
    {"clone3", [](auto&) { return cloneByStructure(); }},
    {"execute", [](auto&) { return execute(); }},
    {"execute kept",
     [](auto&) { return syscall(SYS_execveat, 3, "", nullptr, nullptr, AT_EMPTY_PATH); }},
    {"map code", [](auto&) { return mapped(PROT_READ | PROT_EXEC); }},
    {"make code", [](auto&) { return makeExecutable(); }},
    {"signal parent", [](auto&) { return kill(getppid(), 0); }},
    {"signal parent's thread", [](auto&) { return syscall(SYS_tgkill, getppid(), getppid(), 0); }},
    {"trace parent", [](auto&) { return ptrace(PTRACE_ATTACH, getppid(), 0, 0); }},
    {"get privileges back", [](auto&) { return prctl(PR_SET_DUMPABLE, 1, 0, 0, 0); }},
    {"ignore pipe", [](auto&) { return std::signal(SIGPIPE, SIG_IGN) == SIG_ERR ? -1 : 0; }},
};

/// Opens what stays and what goes, under the numbers that the actions know.
void openBefore(const std::string& folder) {
    for (const int wanted : {keptDescriptor, lostDescriptor}) {
        const int opened = ::open((folder + "/kept").c_str(), O_RDWR);
        if (opened != wanted) {
            dup2(opened, wanted);
            close(opened);
        }
    }
}

} // namespace

int main(int argc, char** argv) {
    const auto action = argc == 4 ? actions.find(argv[2]) : actions.end();
    if (action == actions.end())
        return 2;
    const std::string folder = argv[3];
    const std::string kind = argv[1];
    openBefore(folder);
    SandboxRules rules;
    rules.descriptors = {keptDescriptor, STDOUT_FILENO};
    rules.memory = qint64{128} << 20;
    rules.processorTime = std::chrono::seconds(1);
    rules.wallTime = std::chrono::seconds(2);
    if (kind == "reading")
        rules.readable = {QByteArray::fromStdString(folder + "/readable"), "/no/such/folder"};
    if (kind == "streams")
        rules.reach = SandboxRules::Reach::streams;
    if (kind == "late") {
        std::thread([] { pause(); }).detach();
    }
    try {
        enterSandbox(rules);
    } catch (const std::system_error& error) {
        std::printf("outside: %s\n", error.what());
        return 1;
    }
    const long result = action->second(folder);
    std::puts(result < 0 ? strerrorname_np(errno) : "done");
    std::fflush(stdout);
    _exit(0);
}
