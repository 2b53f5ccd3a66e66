#pragma once

#include "platform/process/ProcessRunner.h"

#include <mutex>
#include <vector>

namespace tessary {

/// Starts nothing: keeps what was asked of it, and answers the same each time. Thread-safe.
class FakeProcessRunner final : public ProcessRunner {
public:
    explicit FakeProcessRunner(ProcessResult answer = {}) : answer_(std::move(answer)) {}

    [[nodiscard]] ProcessResult follow(const ProcessRequest& request) override {
        const std::scoped_lock lock(mutex_);
        calls_.push_back(QStringList(request.program) + request.arguments);
        return answer_;
    }

    /// Each call as the program followed by its arguments.
    [[nodiscard]] std::vector<QStringList> calls() const {
        const std::scoped_lock lock(mutex_);
        return calls_;
    }

private:
    const ProcessResult answer_;
    mutable std::mutex mutex_; ///< guards all below
    std::vector<QStringList> calls_;
};

} // namespace tessary
