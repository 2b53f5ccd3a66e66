#pragma once

#include "phone/TransferOutcome.h"

#include <QUuid>

#include <chrono>
#include <exception>
#include <functional>
#include <memory>
#include <stop_token>

namespace tessary {

/// Runs transfers strictly one at a time, first in first out, on a thread of its own
/// ("tessary-copy"). There is one for the whole application, so that no two transfers compete for
/// a device. Thread-safe; every call returns at once, but for stop().
class TransferEngine {
public:
    /// Ends with CancellationError once the token asks for it; any exception is a failure.
    using Work = std::function<void(const TransferProgressCallback&, const std::stop_token&)>;

    /// Called on the engine's thread; they must not throw. Any may be empty.
    struct Callbacks {
        std::function<void()> onStart;
        TransferProgressCallback onProgress;
        /// Null on success, else what the work threw.
        std::function<void(const std::exception_ptr&)> onComplete;
    };

    /// The application's engine. Made on first use, never released; stop() ends its thread.
    [[nodiscard]] static TransferEngine& shared();

    TransferEngine();
    /// stop() with a limit of ten seconds.
    ~TransferEngine();
    TransferEngine(const TransferEngine&) = delete;
    TransferEngine& operator=(const TransferEngine&) = delete;

    void enqueue(const QUuid& id, Work work, Callbacks callbacks);

    /// A waiting job is dropped without any callback; a running one is asked to stop, and the next
    /// starts when it has returned. No effect for a job that has finished or is unknown.
    void cancelJob(const QUuid& id);

    /// Drops what waits, asks what runs to stop, and waits for the thread. False when it did not
    /// end within `limit`: it is left behind and uses nothing of this object. What is queued
    /// afterwards never runs.
    bool stop(std::chrono::milliseconds limit);

private:
    struct State;
    static void run(const std::shared_ptr<State>& state);

    std::shared_ptr<State> state_;
};

} // namespace tessary
