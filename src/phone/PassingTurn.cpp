#include "phone/PassingTurn.h"

#include "base/threads/CancellationError.h"

namespace tessary {

PassingTurn::PassingTurn(PhoneQueue& queue, const Call& call)
    : queue_(queue), call_(call), turn_(queue.take(call)) {}

bool PassingTurn::isDue() const {
    constexpr std::chrono::milliseconds least(50); // for one's own work
    return call_.urgency != Urgency::user && Clock::now() - since_ >= least &&
           queue_.isAwaited(call_.urgency);
}

void PassingTurn::pass() {
    turn_.reset();
    turn_.emplace(queue_.take({{}, call_.urgency}));
    since_ = Clock::now();
    throwIfStopped(call_.stop);
}

} // namespace tessary
