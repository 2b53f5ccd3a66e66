#pragma once

#include "platform/process/ProcessRunner.h"

#include <QProcessEnvironment>

#include <stop_token>

namespace tessary {

/// Child processes of this machine. On Linux the kernel ends them when the calling thread ends,
/// however that comes about.
class QtProcessRunner final : public ProcessRunner {
public:
    QtProcessRunner() = default;
    /// Children also get these variables.
    explicit QtProcessRunner(QProcessEnvironment additional) : additional_(std::move(additional)) {}

    [[nodiscard]] ProcessResult follow(const ProcessRequest& request) override;

    /// The program ends: every child is ended, and a later run counts as cancelled. Thread-safe.
    void stop() {
        stop_.request_stop();
    }

private:
    std::stop_source stop_;
    const QProcessEnvironment additional_;
};

} // namespace tessary
