#pragma once

#include "base/threads/CancellationError.h"
#include "sync/plan/SyncReport.h"

#include <condition_variable>
#include <mutex>
#include <optional>
#include <stop_token>
#include <utility>

namespace tessary {

/// An answer that one thread waits for and another gives. Thread-safe.
class PendingAnswer {
public:
    /// The first one counts.
    void give(SyncAnswer answer) {
        const std::scoped_lock lock(mutex_);
        if (!value_)
            value_ = std::move(answer);
        changed_.notify_all();
    }
    /// Throws CancellationError once `stop` asks for it.
    [[nodiscard]] SyncAnswer wait(const std::stop_token& stop) {
        std::unique_lock lock(mutex_);
        if (!changed_.wait(lock, stop, [this] { return value_.has_value(); }))
            throw CancellationError();
        return *value_;
    }

private:
    std::mutex mutex_;
    std::condition_variable_any changed_;
    std::optional<SyncAnswer> value_; ///< guarded by mutex_
};

} // namespace tessary
