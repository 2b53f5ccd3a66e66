#include "phone/PhoneQueue.h"

#include "base/threads/CancellationError.h"
#include "phone/PhoneError.h"
#include "support/Soon.h"

#include <gmock/gmock.h>

#include <atomic>
#include <latch>
#include <string>

namespace tessary {
namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;

class PhoneQueueTest : public testing::Test {
protected:
    /// Asks for a turn on a thread of its own and notes `name` when it comes.
    std::jthread ask(const std::string& name, Urgency urgency) {
        std::jthread thread([this, name, urgency] {
            const PhoneQueue::Turn turn = queue_->take({std::stop_token(), urgency});
            const std::scoped_lock lock(mutex_);
            order_.push_back(name);
        });
        // Whoever is asked next stands behind.
        ++asked_;
        while (queue_->waitingCount() < asked_)
            std::this_thread::yield();
        return thread;
    }

    std::shared_ptr<PhoneQueue> queue_ = std::make_shared<PhoneQueue>(30ms);
    std::mutex mutex_;
    std::vector<std::string> order_; ///< guarded by mutex_
    std::size_t asked_ = 0;
};

TEST_F(PhoneQueueTest, thoseWhoWaitForAnAnswerComeBeforeCopiesAndEachInTheOrderOfAsking) {
    std::vector<std::jthread> threads;
    {
        const PhoneQueue::Turn turn = queue_->take({});
        threads.push_back(ask("spare", Urgency::spare));
        EXPECT_FALSE(queue_->isWanted());
        EXPECT_FALSE(queue_->isAwaited(Urgency::copy)) << "a copy passes it no turn";
        threads.push_back(ask("copy 1", Urgency::copy));
        EXPECT_TRUE(queue_->isWanted());
        EXPECT_TRUE(queue_->isAwaited(Urgency::copy));
        threads.push_back(ask("user 1", Urgency::user));
        threads.push_back(ask("copy 2", Urgency::copy));
        threads.push_back(ask("user 2", Urgency::user));
    }
    threads.clear();
    EXPECT_THAT(order_, ElementsAre("user 1", "user 2", "copy 1", "copy 2", "spare"));
}

TEST_F(PhoneQueueTest, whoIsAskedToStopIsLetGoAndDoesNotHoldUpTheNext) {
    std::stop_source stop;
    std::optional<PhoneQueue::Turn> turn = queue_->take({});
    std::jthread cancelled([&] {
        EXPECT_THROW((void)queue_->take({stop.get_token(), Urgency::copy}), CancellationError);
    });
    while (queue_->waitingCount() < 1)
        std::this_thread::yield();
    asked_ = 1;
    const std::jthread next = ask("next", Urgency::copy);
    stop.request_stop();
    cancelled.join();
    turn.reset();
}

TEST_F(PhoneQueueTest, figuresAreNotAskedForWhileAnybodyUsesThePhoneOrAJobRuns) {
    EXPECT_TRUE(queue_->tryTake());
    {
        const PhoneQueue::Turn turn = queue_->take({});
        EXPECT_FALSE(queue_->tryTake());
    }
    {
        const PhoneQueue::Job job = queue_->beginJob();
        EXPECT_FALSE(queue_->tryTake()) << "between two steps of a copy";
        EXPECT_NO_THROW((void)queue_->take({})) << "a listing gets in";
    }
    EXPECT_TRUE(queue_->tryTake());
}

TEST_F(PhoneQueueTest, connectionIsClosedOnceThePhoneIsIdleAndAgainAfterEachUse) {
    std::atomic<int> closed = 0;
    const auto isClosedTimes = [&](int times) {
        return comesTrue([&] { return closed >= times; }) && closed == times;
    };
    {
        const PhoneQueue::Turn turn = queue_->take({});
        queue_->closeWhenIdle(this, [&] {
            EXPECT_FALSE(queue_->tryTake()) << "closing is a turn of its own";
            ++closed;
        });
        std::this_thread::sleep_for(80ms);
        EXPECT_EQ(closed, 0) << "in use";
    }
    EXPECT_TRUE(isClosedTimes(1));
    std::this_thread::sleep_for(80ms);
    EXPECT_EQ(closed, 1) << "nothing was used since";
    (void)queue_->take({});
    EXPECT_TRUE(isClosedTimes(2));
    {
        const PhoneQueue::Job job = queue_->beginJob();
        (void)queue_->take({});
        std::this_thread::sleep_for(80ms);
        EXPECT_EQ(closed, 2) << "a job goes on with the same connection";
    }
    EXPECT_TRUE(isClosedTimes(3));
    {
        const PhoneQueue::Turn turn = queue_->take({});
        queue_->forget(this); // others may keep their turns for long
    }
    std::this_thread::sleep_for(80ms);
    EXPECT_EQ(closed, 3);
}

TEST(PhoneQueues, thatNobodyHoldsAreDroppedOnceThereAreMany) {
    PhoneQueues queues;
    const auto of = [&](int n) {
        PhoneIdentity phone;
        phone.udid = QString::number(n);
        return queues.of(phone);
    };
    const auto held = of(-1);
    const std::weak_ptr<PhoneQueue> unused = of(0);
    for (int n = 0; n < 300; ++n)
        (void)of(n);
    EXPECT_TRUE(unused.expired());
    EXPECT_EQ(of(-1), held);
}

} // namespace
} // namespace tessary
