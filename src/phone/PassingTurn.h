#pragma once

#include "phone/PhoneCall.h"
#include "phone/PhoneQueue.h"

#include <chrono>
#include <optional>

namespace tessary {

/// A turn that a long step of a copy passes to those who wait, between two pieces of a file. Used
/// by one thread.
class PassingTurn {
public:
    /// Waits as PhoneQueue::take() does. Both must outlive it.
    PassingTurn(PhoneQueue& queue, const Call& call);

    /// Whether somebody waits who is no less urgent, and there was some time for one's own work;
    /// never where somebody waits for this call itself.
    [[nodiscard]] bool isDue() const;
    /// Has a turn again when it returns or throws, which is CancellationError alone: what is
    /// cancelled is cleaned up in a turn.
    void pass();

private:
    using Clock = std::chrono::steady_clock;

    PhoneQueue& queue_;
    const Call& call_;
    std::optional<PhoneQueue::Turn> turn_;
    Clock::time_point since_ = Clock::now();
};

} // namespace tessary
