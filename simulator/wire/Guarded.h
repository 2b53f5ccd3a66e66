#pragma once

#include <mutex>
#include <utility>

namespace tessary {

/// A value beside the mutex that guards it. Thread-safe; `update` must not call back into the same
/// object.
template <typename T>
class Guarded {
public:
    Guarded() = default;
    explicit Guarded(T value) : value_(std::move(value)) {}

    /// A copy of the value.
    [[nodiscard]] T get() const {
        const std::lock_guard lock(mutex_);
        return value_;
    }

    void set(T value) {
        const std::lock_guard lock(mutex_);
        value_ = std::move(value);
    }

    /// Runs `change(T&)` with the value locked and returns what it returns.
    template <typename Change>
    auto update(Change&& change) {
        const std::lock_guard lock(mutex_);
        return std::forward<Change>(change)(value_);
    }

private:
    mutable std::mutex mutex_;
    T value_;
};

} // namespace tessary
