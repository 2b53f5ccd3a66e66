#include "simulator/mtp/MTPTransactionState.h"

namespace tessary {

namespace {

/// How long a command that the host has written may take to the phone.
constexpr std::chrono::milliseconds takeUpTime{50};

} // namespace

void MTPTransactionState::reset() {
    const std::lock_guard lock(mutex_);
    taken_.reset();
    transaction_.reset();
    inData_ = cancelled_ = unplugged_ = false;
    busyUntil_ = {};
}

void MTPTransactionState::beginTransaction(std::uint32_t transactionID, bool hasData) {
    const std::lock_guard lock(mutex_);
    taken_ = transactionID;
    if (hasData)
        transaction_ = transactionID;
    cancelled_ = false;
    changed_.notify_all();
}

bool MTPTransactionState::endTransaction() {
    const std::lock_guard lock(mutex_);
    transaction_.reset();
    inData_ = false;
    return cancelled_;
}

bool MTPTransactionState::beginData() {
    const std::lock_guard lock(mutex_);
    inData_ = true;
    return !cancelled_;
}

bool MTPTransactionState::endData() {
    const std::lock_guard lock(mutex_);
    if (inData_)
        transaction_.reset();
    inData_ = false;
    return cancelled_;
}

MTPTransactionState::Pause MTPTransactionState::pause(std::chrono::nanoseconds duration) {
    std::unique_lock lock(mutex_);
    const auto interrupted = [this] { return unplugged_ || (transaction_ && cancelled_); };
    changed_.wait_until(lock, Clock::now() + duration, interrupted);
    if (unplugged_)
        return Pause::unplugged;
    return interrupted() ? Pause::cancelled : Pause::over;
}

void MTPTransactionState::beBusy(std::chrono::milliseconds duration) {
    const std::lock_guard lock(mutex_);
    cancelled_ = false;
    busyUntil_ = Clock::now() + duration;
}

bool MTPTransactionState::cancel(std::uint32_t transactionID,
                                 const std::function<void()>& interruptPipes) {
    std::unique_lock lock(mutex_);
    changed_.wait_for(lock, takeUpTime, [&] { return unplugged_ || taken_ == transactionID; });
    if (unplugged_ || transaction_ != transactionID)
        return false;
    cancelled_ = true;
    interruptPipes();
    changed_.notify_all();
    return true;
}

bool MTPTransactionState::isBusy() const {
    const std::lock_guard lock(mutex_);
    return cancelled_ || Clock::now() < busyUntil_;
}

void MTPTransactionState::unplug() {
    const std::lock_guard lock(mutex_);
    unplugged_ = true;
    changed_.notify_all();
}

} // namespace tessary
