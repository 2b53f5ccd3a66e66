#pragma once

#include "platform/process/ProcessRunner.h"

namespace tessary {

/// Programs that are known to take phones for themselves.
class CompetingPrograms {
public:
    /// `processes` must outlive this.
    explicit CompetingPrograms(ProcessRunner& processes) : processes_(processes) {}

    /// Whether one runs. Blocking.
    [[nodiscard]] bool isAnyRunning();
    /// Asks them to end, and unmounts with them; whoever calls it has asked the user. Those that
    /// the desktop starts again when they are next needed are among them. Blocking.
    void end();

private:
    ProcessRunner& processes_;
};

} // namespace tessary
