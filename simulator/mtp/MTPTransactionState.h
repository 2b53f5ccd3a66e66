#pragma once

#include <chrono>
#include <condition_variable>
#include <cstdint>
#include <functional>
#include <mutex>
#include <optional>

namespace tessary {

/// Where the phone's thread and the host's control requests meet: which data phase is under way,
/// whether it was cancelled, and pauses that unplugging and cancelling end early. Thread-safe.
class MTPTransactionState {
public:
    enum class Pause { over, cancelled, unplugged };

    /// For a new attachment.
    void reset();

    // The phone's side.

    /// A command was taken up. When it has a data phase, it can be cancelled until that is over.
    void beginTransaction(std::uint32_t transactionID, bool hasData);
    /// True when it was cancelled and beBusy() has not been called for that.
    bool endTransaction();
    /// False when the transaction was cancelled before its data phase.
    [[nodiscard]] bool beginData();
    /// True when the data phase was cancelled. From now on the transaction cannot be.
    bool endData();
    [[nodiscard]] Pause pause(std::chrono::nanoseconds duration);
    void beBusy(std::chrono::milliseconds duration);

    // The host's side.

    /// Cancels this transaction unless its data phase is over, running `interruptPipes` before the
    /// phone can see it. Waits a moment for the phone to take the command up. False when there is
    /// nothing to cancel.
    bool cancel(std::uint32_t transactionID, const std::function<void()>& interruptPipes);
    [[nodiscard]] bool isBusy() const;
    void unplug();

private:
    using Clock = std::chrono::steady_clock;

    mutable std::mutex mutex_; ///< guards all below
    std::condition_variable changed_;
    std::optional<std::uint32_t> taken_;       ///< the last command that was taken up
    std::optional<std::uint32_t> transaction_; ///< that command, while it can be cancelled
    bool inData_ = false;
    bool cancelled_ = false;
    bool unplugged_ = false;
    Clock::time_point busyUntil_;
};

} // namespace tessary
