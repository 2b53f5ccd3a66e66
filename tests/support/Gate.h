#pragma once

#include "base/threads/CancellationError.h"

#include <condition_variable>
#include <mutex>

namespace tessary {

/// Holds whoever passes through until it is opened, or until they are asked to stop.
class Gate {
public:
    explicit Gate(bool isOpen = false) : isOpen_(isOpen) {}

    void pass(const std::stop_token& stop = {}) {
        std::unique_lock lock(mutex_);
        ++waiting_;
        changed_.notify_all();
        changed_.wait_for(lock, stop, std::chrono::seconds(60), [this] { return isOpen_; });
        --waiting_;
        throwIfStopped(stop);
    }
    void open(bool isOpen = true) {
        const std::scoped_lock lock(mutex_);
        isOpen_ = isOpen;
        changed_.notify_all();
    }
    void close() {
        open(false);
    }
    [[nodiscard]] int waiting() const {
        const std::scoped_lock lock(mutex_);
        return waiting_;
    }

private:
    mutable std::mutex mutex_; ///< guards all below
    std::condition_variable_any changed_;
    bool isOpen_;
    int waiting_ = 0;
};

} // namespace tessary
