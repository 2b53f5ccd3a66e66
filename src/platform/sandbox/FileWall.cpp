#include "platform/sandbox/FileWall.h"

#include "base/local/FileHandle.h"

#include <array>
#include <cerrno>
#include <cstdint>
#include <system_error>

#include <fcntl.h>
#include <linux/landlock.h>
#include <sys/stat.h>
#include <sys/syscall.h>

namespace tessary {

namespace {

/// As the newest kernels know it. An older one takes it as long as what it does not know is 0.
struct Ruleset {
    std::uint64_t files = 0;
    std::uint64_t network = 0;
    std::uint64_t scopes = 0;
};

/// What one version of the kernel's interface added.
struct Addition {
    int version;
    Ruleset rights;
};

constexpr std::uint64_t bits(unsigned int from, unsigned int to) {
    return (std::uint64_t{1} << (to + 1)) - (std::uint64_t{1} << from);
}

constexpr std::array additions{
    Addition{1, {.files = bits(0, 12)}},  // execute, write, read, list, remove, make
    Addition{2, {.files = bits(13, 13)}}, // link and rename across folders
    Addition{3, {.files = bits(14, 14)}}, // truncate
    Addition{4, {.network = bits(0, 1)}}, // bind and connect TCP
    Addition{5, {.files = bits(15, 15)}}, // control devices
    Addition{6, {.scopes = bits(0, 1)}},  // abstract sockets and signals of others
};

[[noreturn]] void fail(const char* what) {
    throw std::system_error(errno, std::generic_category(), what);
}

/// 0 where the kernel has none, or has it switched off.
int version() {
    const auto found = syscall(SYS_landlock_create_ruleset, nullptr, std::size_t{0},
                               LANDLOCK_CREATE_RULESET_VERSION);
    return found < 0 ? 0 : static_cast<int>(found);
}

void letRead(int ruleset, const QByteArray& path) {
    const FileHandle opened(::open(path.constData(), O_PATH | O_CLOEXEC));
    struct stat facts {};
    if (!opened.isOpen() || fstat(opened.get(), &facts) != 0)
        return; // nothing there to be read
    landlock_path_beneath_attr rule{};
    rule.parent_fd = opened.get();
    rule.allowed_access = LANDLOCK_ACCESS_FS_READ_FILE;
    if (S_ISDIR(facts.st_mode))
        rule.allowed_access |= LANDLOCK_ACCESS_FS_READ_DIR;
    if (syscall(SYS_landlock_add_rule, ruleset, LANDLOCK_RULE_PATH_BENEATH, &rule, 0) != 0)
        fail("cannot leave a folder readable");
}

} // namespace

bool hasFileWall() {
    return version() > 0;
}

bool buildFileWall(const SandboxRules& rules) {
    const int known = version();
    if (known == 0)
        return false;
    Ruleset denied;
    for (const Addition& addition : additions) {
        if (addition.version > known)
            continue;
        denied.files |= addition.rights.files;
        if (rules.reach == SandboxRules::Reach::nobody)
            denied.network |= addition.rights.network;
        denied.scopes |= addition.rights.scopes;
    }
    const FileHandle ruleset(
        static_cast<int>(syscall(SYS_landlock_create_ruleset, &denied, sizeof denied, 0)));
    if (!ruleset.isOpen())
        fail("cannot make a file wall");
    for (const QByteArray& path : rules.readable)
        letRead(ruleset.get(), path);
    if (syscall(SYS_landlock_restrict_self, ruleset.get(), 0) != 0)
        fail("cannot build the file wall");
    return true;
}

} // namespace tessary
