#pragma once

#include "phone/PhoneCall.h"
#include "phone/records/PhoneIdentity.h"

#include <QHash>

#include <chrono>
#include <condition_variable>
#include <cstdint>
#include <functional>
#include <list>
#include <memory>
#include <mutex>
#include <optional>
#include <stop_token>
#include <thread>

namespace tessary {

/// Orders everything that speaks to one phone: one user at a time, in the order of asking, those
/// for whom somebody waits first. A copy takes a turn for each of its steps, so that listings and
/// edits get in between; what nobody waits for comes after all of them. The connection stays open
/// between two turns and is closed once the phone has not been used for a while. Thread-safe.
class PhoneQueue : public std::enable_shared_from_this<PhoneQueue> {
public:
    /// How long somebody who waits for an answer waits for his turn.
    static constexpr std::chrono::seconds userPatience{60};
    static constexpr std::chrono::milliseconds defaultIdleTime{3000};

    explicit PhoneQueue(std::chrono::milliseconds idleTime = defaultIdleTime);
    /// No turn may be left. Connections that are open are not closed: their owner does that.
    ~PhoneQueue();
    PhoneQueue(const PhoneQueue&) = delete;
    PhoneQueue& operator=(const PhoneQueue&) = delete;

private:
    /// What a queue has lent; it goes back when this goes.
    template <void (PhoneQueue::*giveBack)()>
    class Lent {
    public:
        ~Lent() {
            if (queue_)
                (queue_.get()->*giveBack)();
        }
        Lent(Lent&& other) noexcept : queue_(std::move(other.queue_)) {}
        Lent& operator=(Lent&&) = delete;

    private:
        friend class PhoneQueue;
        explicit Lent(std::shared_ptr<PhoneQueue> queue) : queue_(std::move(queue)) {}

        std::shared_ptr<PhoneQueue> queue_; ///< null after a move
    };
    void give();
    void endJob();

public:
    /// The right to use the phone.
    using Turn = Lent<&PhoneQueue::give>;
    /// For as long as a job of many turns runs, nobody who only wants to know figures comes in.
    using Job = Lent<&PhoneQueue::endJob>;

    /// Waits for a turn. Not to be called by who has one. CancellationError when `call.stop` asks
    /// for it, PhoneError::busy when `user` has waited for userPatience.
    [[nodiscard]] Turn take(const Call& call);
    /// A turn, when nobody has one or waits for one and no job runs.
    [[nodiscard]] std::optional<Turn> tryTake();
    [[nodiscard]] Job beginJob();
    /// Who waits for a turn.
    [[nodiscard]] std::size_t waitingCount() const;
    /// Whether somebody waits who wants his turn as soon as this, or sooner.
    [[nodiscard]] bool isAwaited(Urgency urgency) const;
    /// Whether who has a spare turn stands in the way: of somebody who waits, or of a job.
    [[nodiscard]] bool isWanted() const;

    /// Has `close` called, in a turn of its own and on a thread of the queue, once the phone has
    /// not been used for the idle time; again after each later use. Called by who has a turn.
    /// `owner` is what forget() takes it back by.
    void closeWhenIdle(const void* owner, std::function<void()> close);
    /// Waits for a closing that is under way, and for nothing else: turns of others may be long.
    void forget(const void* owner);

    /// How often files of the phone were changed by this program: what is known of them is to be
    /// looked at again when this is another number.
    [[nodiscard]] std::uint64_t edits() const;
    void noteEdit();

    /// The name of the phone as the user knows it now: it may be known, or become another, after
    /// the phone was opened. Empty as long as nobody knows one.
    [[nodiscard]] QString phoneName() const;
    void setPhoneName(const QString& name);

private:
    [[nodiscard]] bool isSpare() const;
    void watchIdleness(const std::stop_token& stop);

    const std::chrono::milliseconds idleTime_;
    mutable std::mutex mutex_; ///< guards all below
    std::condition_variable_any changed_;
    bool isTaken_ = false;
    bool isClosing_ = false; ///< by the idle thread, which has the turn meanwhile
    int jobs_ = 0;
    std::list<Urgency> waiting_; ///< in the order of asking
    std::uint64_t edits_ = 0;
    QString phoneName_;
    std::chrono::steady_clock::time_point lastUse_;
    bool wasUsed_ = false; ///< since the connections were last closed
    QHash<const void*, std::function<void()>> closers_;
    std::jthread idleThread_; ///< from the first closeWhenIdle() on
};

/// As the user knows it now, else when it was opened; its number as long as it has no name.
[[nodiscard]] QString phoneName(const PhoneIdentity& opened, const PhoneQueue& queue);

/// The queue of each phone. Thread-safe.
class PhoneQueues {
public:
    /// The one of a phone, made at the first call. It takes the phone's name over, where there is
    /// one. Once there are many, those that nobody else holds are dropped.
    [[nodiscard]] std::shared_ptr<PhoneQueue> of(const PhoneIdentity& phone);

private:
    std::mutex mutex_;
    QHash<QString, std::shared_ptr<PhoneQueue>> queues_; ///< by PhoneIdentity::key(); guarded
};

} // namespace tessary
