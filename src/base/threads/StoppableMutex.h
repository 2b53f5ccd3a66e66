#pragma once

#include "base/threads/CancellationError.h"

#include <condition_variable>
#include <mutex>
#include <stop_token>
#include <utility>

namespace tessary {

/// A mutex for what takes its time, where whoever waits can be asked to stop.
class StoppableMutex {
public:
    using Lock = std::unique_lock<StoppableMutex>;

    /// Waits for its turn. CancellationError when `stop` asks for it before.
    [[nodiscard]] Lock hold(const std::stop_token& stop) {
        std::unique_lock lock(mutex_);
        if (!released_.wait(lock, stop, [this] { return !isHeld_; }))
            throw CancellationError();
        isHeld_ = true;
        return {*this, std::adopt_lock};
    }
    /// Empty when somebody holds it.
    [[nodiscard]] Lock tryToHold() {
        const std::scoped_lock lock(mutex_);
        return std::exchange(isHeld_, true) ? Lock() : Lock(*this, std::adopt_lock);
    }
    /// For Lock alone.
    void unlock() {
        const std::scoped_lock lock(mutex_);
        isHeld_ = false;
        released_.notify_one();
    }

private:
    std::mutex mutex_;
    std::condition_variable_any released_;
    bool isHeld_ = false; ///< guarded by mutex_
};

} // namespace tessary
