#pragma once

#include "base/log/DiagnosticsLogger.h"

#include <memory>

namespace tessary {

/// Writes records in a thread of its own, so that a system log that hangs holds nobody up. What
/// does not fit behind those that wait is dropped, and how many went is told once the log goes on.
/// Thread-safe.
class LogQueue {
public:
    static constexpr std::size_t mostWaiting = 1000;

    explicit LogQueue(std::function<void(const LogRecord&)> write);
    /// Waits a moment for what is still to be written; a log that hangs is left to its thread.
    ~LogQueue();
    LogQueue(const LogQueue&) = delete;
    LogQueue& operator=(const LogQueue&) = delete;

    /// Never waits.
    void add(const LogRecord& record);

private:
    struct State;
    static void work(const std::shared_ptr<State>& state);

    const std::shared_ptr<State> state_; ///< outlives this where the log hangs
};

} // namespace tessary
