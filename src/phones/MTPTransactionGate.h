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
class MTPTransactionGate {
public:
    enum class Pause { over, cancelled, unplugged };

    /// For a new attachment.
    void reset();

    // The phone's side.

    void beginData(std::uint32_t transactionID);
    /// True when the data phase was cancelled.
    bool endData();
    [[nodiscard]] Pause pause(std::chrono::nanoseconds duration);
    void beBusy(std::chrono::milliseconds duration);
    [[nodiscard]] bool isSilent() const;

    // The host's side.

    /// Cancels the data phase of this transaction, running `interruptPipes` before the phone can
    /// see it; false when none is under way.
    bool cancel(std::uint32_t transactionID, const std::function<void()>& interruptPipes);
    [[nodiscard]] bool isBusy() const;
    void unplug();
    /// The phone answers nothing more on this attachment.
    void silence();

private:
    using Clock = std::chrono::steady_clock;

    mutable std::mutex mutex_; ///< guards all below
    std::condition_variable changed_;
    std::optional<std::uint32_t> transaction_;
    bool cancelled_ = false;
    bool unplugged_ = false;
    bool silent_ = false;
    Clock::time_point busyUntil_;
};

} // namespace tessary
