#include "phone/DeviceLane.h"

#include "base/threads/CancellationError.h"
#include "base/values/TessaryError.h"

#include <algorithm>

namespace tessary {

DeviceLane::Turn::~Turn() {
    if (lane_)
        lane_->leave();
}

void DeviceLane::leave() {
    const std::scoped_lock lock(mutex_);
    isBusy_ = false;
    changed_.notify_all();
}

DeviceLane::Turn DeviceLane::enter(const std::stop_token& stop) {
    std::unique_lock lock(mutex_);
    ++waiting_;
    const bool isFree = changed_.wait(lock, stop, [this] { return !isBusy_ && guests_.empty(); });
    --waiting_;
    if (!isFree)
        throw CancellationError();
    isBusy_ = true;
    return Turn(shared_from_this());
}

std::optional<DeviceLane::Turn> DeviceLane::tryEnter() {
    const std::scoped_lock lock(mutex_);
    if (isBusy_ || waiting_ > 0)
        return std::nullopt;
    isBusy_ = true;
    return Turn(shared_from_this());
}

std::optional<DeviceLane::Turn> DeviceLane::enterOrVisit(const GuestWork& work,
                                                         const std::stop_token& stop) {
    Guest guest{work, Guest::State::waiting, {}};
    std::unique_lock lock(mutex_);
    guests_.push_back(&guest);
    ++waiting_;
    const bool answered = changed_.wait_for(lock, stop, guestPatience, [&] {
        return guest.state == Guest::State::done ||
               (guest.state == Guest::State::waiting && !isBusy_);
    });
    // Work that has begun uses what this caller owns: it is waited for in any case.
    changed_.wait(lock, [&] { return guest.state != Guest::State::running; });
    --waiting_;
    std::erase(guests_, &guest);
    changed_.notify_all(); // those who let guests go first
    if (guest.state == Guest::State::done) {
        if (guest.failure)
            std::rethrow_exception(guest.failure);
        return std::nullopt;
    }
    if (!answered) {
        throwIfStopped(stop);
        throw TessaryError::fileIOError(QStringLiteral(
            "The phone is busy with another copy. Try again when that one is done."));
    }
    isBusy_ = true;
    return Turn(shared_from_this());
}

void DeviceLane::Turn::letGuestsIn(MTPSession& session) {
    std::unique_lock lock(lane_->mutex_);
    while (!lane_->guests_.empty()) {
        Guest& guest = *lane_->guests_.front();
        lane_->guests_.pop_front();
        guest.state = Guest::State::running;
        lock.unlock();
        std::exception_ptr failure;
        try {
            guest.work(session);
        } catch (...) {
            failure = std::current_exception();
        }
        lock.lock();
        guest.failure = failure;
        guest.state = Guest::State::done;
        lane_->changed_.notify_all();
    }
}

} // namespace tessary
