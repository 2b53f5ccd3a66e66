#pragma once

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <cstdint>
#include <deque>
#include <exception>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <stop_token>

namespace tessary {

class MTPSession;

/// Orders everything that opens a session on one device: one user at a time. A long transfer that
/// holds the lane may let waiting guests (listings, edits) do their work in between, on its own
/// session. Thread-safe.
class DeviceLane : public std::enable_shared_from_this<DeviceLane> {
public:
    using GuestWork = std::function<void(MTPSession&)>;

    /// How long a guest waits for a holder that lets nobody in.
    static constexpr std::chrono::seconds guestPatience{60};

    /// The right to use the device; given back when it goes.
    class Turn {
    public:
        explicit Turn(std::shared_ptr<DeviceLane> lane) : lane_(std::move(lane)) {}
        ~Turn();
        Turn(Turn&&) noexcept = default;
        Turn& operator=(Turn&&) = delete;

        /// Runs the work of every guest that waits, on this thread and on the holder's session.
        /// What a guest's work throws goes to the guest.
        void letGuestsIn(MTPSession& session);

        /// DeviceLane::edits() of the lane.
        [[nodiscard]] std::uint64_t edits() const {
            return lane_->edits();
        }

    private:
        std::shared_ptr<DeviceLane> lane_; ///< null after a move
    };

    /// Waits until the lane is free and no guest waits. CancellationError when `stop` asks for it.
    [[nodiscard]] Turn enter(const std::stop_token& stop);

    /// The lane, when nobody uses it or waits for it.
    [[nodiscard]] std::optional<Turn> tryEnter();

    /// Waits until the lane is free and returns it, or until `work` was done in between two steps
    /// of the holder and returns nothing. Throws what `work` throws, CancellationError, or
    /// TessaryError::fileIOError after guestPatience.
    [[nodiscard]] std::optional<Turn> enterOrVisit(const GuestWork& work,
                                                   const std::stop_token& stop);

    /// How often someone said that the device's files are changed: what a holder knows of them is
    /// to be looked at again when this is another number.
    [[nodiscard]] std::uint64_t edits() const {
        return edits_;
    }
    void noteEdit() {
        ++edits_;
    }

private:
    struct Guest {
        const GuestWork& work;
        enum class State { waiting, running, done } state = State::waiting;
        std::exception_ptr failure;
    };

    void leave();

    std::mutex mutex_;
    std::condition_variable_any changed_;
    bool isBusy_ = false;       ///< guarded by mutex_
    std::deque<Guest*> guests_; ///< guarded by mutex_; each lives on the stack of its caller
    std::size_t waiting_ = 0;   ///< guarded by mutex_
    std::atomic<std::uint64_t> edits_ = 0;
};

} // namespace tessary
