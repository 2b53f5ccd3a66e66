#include "ios/helper/server/IPhoneSandbox.h"

#include "ios/Multiplexer.h"
#include "platform/sandbox/Sandbox.h"

#include <openssl/ssl.h>

#include <cerrno>
#include <system_error>

#include <unistd.h>

namespace tessary {

namespace {

constexpr qint64 memory = qint64{384} << 20; ///< of address space: the libraries take 100 MiB
/// A connection stays open for as long as somebody browses or copies: what takes too long is ended
/// by who asked for it.
constexpr std::chrono::hours processorTime{2};
constexpr std::chrono::hours wallTime{24 * 7};

} // namespace

void enterIPhoneSandbox() {
    OPENSSL_init_ssl(OPENSSL_INIT_LOAD_CONFIG, nullptr);
    // What the library finds out about its own program, it keeps.
    (void)Multiplexer().devices();
    SandboxRules rules;
    rules.descriptors = {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO};
    rules.memory = memory;
    rules.processorTime = processorTime;
    rules.wallTime = wallTime;
    rules.reach = SandboxRules::Reach::streams;
    enterSandbox(rules);
#if !defined(__SANITIZE_ADDRESS__) && !defined(__SANITIZE_THREAD__) // whose reports are read
    // What a phone says is not for the user's terminal. Standard output leads nowhere.
    (void)::close(STDERR_FILENO);
    if (::dup(STDOUT_FILENO) != STDERR_FILENO)
        throw std::system_error(errno, std::generic_category(), "cannot leave the terminal");
#endif
}

} // namespace tessary
