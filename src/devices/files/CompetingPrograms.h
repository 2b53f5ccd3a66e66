#pragma once

#include "platform/process/ProcessRunner.h"

#include <QStringList>

namespace tessary {

/// Programs that are known to take phones for themselves.
class CompetingPrograms {
public:
    /// `processes` must outlive this.
    explicit CompetingPrograms(ProcessRunner& processes) : processes_(processes) {}

    /// Whether one runs. Blocking.
    [[nodiscard]] bool isAnyRunning();
    /// The names of those that run, each once, with those that may have a phone but need not; the
    /// kernel keeps 15 characters of a name. Blocking.
    [[nodiscard]] QStringList running();
    /// Asks those of `names`, which running() gave and the user has agreed to, to end; what they
    /// have mounted goes with them. Blocking.
    void end(const QStringList& names);

private:
    ProcessRunner& processes_;
};

} // namespace tessary
