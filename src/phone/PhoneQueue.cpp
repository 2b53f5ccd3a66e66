#include "phone/PhoneQueue.h"

#include "base/threads/CancellationError.h"
#include "base/threads/ThreadName.h"
#include "phone/PhoneError.h"

#include <algorithm>

namespace tessary {

PhoneQueue::PhoneQueue(std::chrono::milliseconds idleTime) : idleTime_(idleTime) {}

PhoneQueue::~PhoneQueue() {
    idleThread_.request_stop();
    changed_.notify_all();
}

void PhoneQueue::give() {
    const std::scoped_lock lock(mutex_);
    isTaken_ = false;
    wasUsed_ = true;
    lastUse_ = std::chrono::steady_clock::now();
    changed_.notify_all();
}

void PhoneQueue::endJob() {
    const std::scoped_lock lock(mutex_);
    --jobs_;
    changed_.notify_all();
}

PhoneQueue::Turn PhoneQueue::take(const Call& call) {
    std::unique_lock lock(mutex_);
    const auto self = waiting_.insert(waiting_.end(), call.urgency);
    const auto isNext = [&] {
        if (isTaken_ || (call.urgency == Urgency::spare && !isSpare()))
            return false;
        // The first of the most urgent.
        return self == std::ranges::min_element(waiting_);
    };
    const bool hasTurn = call.urgency == Urgency::user
                             ? changed_.wait_for(lock, call.stop, userPatience, isNext)
                             : changed_.wait(lock, call.stop, isNext);
    waiting_.erase(self);
    if (!hasTurn) {
        changed_.notify_all(); // who stood behind may be next
        throwIfStopped(call.stop);
        throw Error(PhoneError::busy);
    }
    isTaken_ = true;
    return Turn(shared_from_this());
}

std::optional<PhoneQueue::Turn> PhoneQueue::tryTake() {
    const std::scoped_lock lock(mutex_);
    if (isTaken_ || jobs_ > 0 || !waiting_.empty())
        return std::nullopt;
    isTaken_ = true;
    return Turn(shared_from_this());
}

PhoneQueue::Job PhoneQueue::beginJob() {
    const std::scoped_lock lock(mutex_);
    ++jobs_;
    return Job(shared_from_this());
}

/// Nobody wants the phone but those who have time.
bool PhoneQueue::isSpare() const {
    return jobs_ == 0 &&
           std::ranges::all_of(waiting_, [](Urgency one) { return one == Urgency::spare; });
}

bool PhoneQueue::isWanted() const {
    const std::scoped_lock lock(mutex_);
    return !isSpare();
}

bool PhoneQueue::isAwaited(Urgency urgency) const {
    const std::scoped_lock lock(mutex_);
    return std::ranges::any_of(waiting_, [urgency](Urgency one) { return one <= urgency; });
}

std::size_t PhoneQueue::waitingCount() const {
    const std::scoped_lock lock(mutex_);
    return waiting_.size();
}

void PhoneQueue::closeWhenIdle(const void* owner, std::function<void()> close) {
    const std::scoped_lock lock(mutex_);
    closers_.insert(owner, std::move(close));
    if (!idleThread_.joinable())
        idleThread_ = std::jthread([this](const std::stop_token& stop) { watchIdleness(stop); });
}

void PhoneQueue::forget(const void* owner) {
    std::unique_lock lock(mutex_);
    changed_.wait(lock, [this] { return !isClosing_; });
    closers_.remove(owner);
}

void PhoneQueue::watchIdleness(const std::stop_token& stop) {
    nameCurrentThread("tessary-idle");
    std::unique_lock lock(mutex_);
    while (!stop.stop_requested()) {
        const auto isQuiet = [this] { return !isTaken_ && waiting_.empty() && jobs_ == 0; };
        if (!changed_.wait(lock, stop, [&] { return wasUsed_ && isQuiet(); }))
            return;
        const auto due = lastUse_ + idleTime_;
        const auto usedAt = lastUse_;
        changed_.wait_until(lock, stop, due, [&] { return !isQuiet() || lastUse_ != usedAt; });
        if (stop.stop_requested() || !isQuiet() || std::chrono::steady_clock::now() < due ||
            lastUse_ != usedAt)
            continue;
        isTaken_ = true;
        isClosing_ = true;
        wasUsed_ = false;
        const QHash<const void*, std::function<void()>> closers = closers_;
        lock.unlock();
        for (const auto& close : closers)
            close();
        lock.lock();
        isClosing_ = false;
        isTaken_ = false;
        changed_.notify_all();
    }
}

std::uint64_t PhoneQueue::edits() const {
    const std::scoped_lock lock(mutex_);
    return edits_;
}

void PhoneQueue::noteEdit() {
    const std::scoped_lock lock(mutex_);
    ++edits_;
}

QString PhoneQueue::phoneName() const {
    const std::scoped_lock lock(mutex_);
    return phoneName_;
}

void PhoneQueue::setPhoneName(const QString& name) {
    const std::scoped_lock lock(mutex_);
    phoneName_ = name;
}

QString phoneName(const PhoneIdentity& opened, const PhoneQueue& queue) {
    const QString now = queue.phoneName();
    if (!now.isEmpty())
        return now;
    return opened.name.isEmpty() ? opened.udid : opened.name;
}

std::shared_ptr<PhoneQueue> PhoneQueues::of(const PhoneIdentity& phone) {
    constexpr qsizetype many = 256;
    const std::scoped_lock lock(mutex_);
    // Each may have a thread, and a gadget ever new serial numbers.
    if (queues_.size() >= many && !queues_.contains(phone.key()))
        queues_.removeIf([](decltype(queues_)::iterator one) { return one->use_count() == 1; });
    std::shared_ptr<PhoneQueue>& queue = queues_[phone.key()];
    if (!queue)
        queue = std::make_shared<PhoneQueue>();
    if (!phone.name.isEmpty() && phone.name != phone.udid) // which stands in for a name
        queue->setPhoneName(phone.name);
    return queue;
}

} // namespace tessary
