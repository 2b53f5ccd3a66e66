#pragma once

#include "cli/commands/CliSession.h"

namespace tessary {

/// Carries out what the command line asks for, with the same services as the window. Blocking; one
/// run at a time. Listing and watching devices need the main thread's event loop, and may leave
/// work in the background: call Background::shutDown() before anything of the setup goes.
class CliRunner {
public:
    enum ExitStatus { done = 0, failed = 1, wrongUsage = 2, interrupted = 130 };

    explicit CliRunner(const CliSetup& setup) : setup_(setup) {}

    /// Never throws: every failure is one clear line on the setup's `error` and an exit status.
    [[nodiscard]] ExitStatus run(const CliRequest& request, const std::stop_token& stop) noexcept;

private:
    const CliSetup setup_;
};

} // namespace tessary
