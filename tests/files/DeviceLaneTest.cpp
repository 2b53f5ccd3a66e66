#include "files/DeviceLane.h"
#include "core/CancellationError.h"
#include "files/MTPSession.h"

#include <gtest/gtest.h>

#include <atomic>
#include <fstream>
#include <future>
#include <latch>
#include <string>
#include <thread>

#include <unistd.h>

namespace tessary {
namespace {

using namespace std::chrono_literals;

/// The lane hands the holder's session on without looking into it: its address is enough.
union SessionAddress {
    SessionAddress() {}
    ~SessionAddress() {}
    char nothing = 0;
    MTPSession session;
};

class DeviceLaneTest : public testing::Test {
protected:
    MTPSession& session() {
        return address_.session;
    }
    /// Called by a thread that is about to wait for the lane.
    void announceWaiter() {
        waiter_ = gettid();
    }
    /// Waits until that thread sleeps, which it does in the lane alone.
    void awaitWaiter() {
        const auto isAsleep = [this] {
            std::ifstream file("/proc/self/task/" + std::to_string(waiter_) + "/stat");
            const std::string stat(std::istreambuf_iterator<char>(file), {});
            return stat.find(") S ") != std::string::npos;
        };
        while (!isAsleep())
            std::this_thread::yield();
        waiter_ = 0;
    }

    const std::shared_ptr<DeviceLane> lane_ = std::make_shared<DeviceLane>();

private:
    SessionAddress address_;
    std::atomic<pid_t> waiter_ = 0;
};

TEST_F(DeviceLaneTest, turnsExcludeEachOtherOnManyThreads) {
    int inside = 0; // the thread sanitizer sees any use that the lane does not order
    int uses = 0;
    std::atomic<int> guestsServed = 0;
    std::latch start(8);
    {
        std::vector<std::jthread> threads;
        for (int n = 0; n < 8; ++n)
            threads.emplace_back([&, n] {
                start.arrive_and_wait();
                const auto use = [&] {
                    EXPECT_EQ(++inside, 1);
                    ++uses;
                    --inside;
                };
                for (int round = 0; round < 200; ++round) {
                    if (n % 4 == 0) {
                        auto turn = lane_->enter({});
                        use();
                        turn.letGuestsIn(session());
                    } else if (n % 4 == 1) {
                        if (const auto turn = lane_->tryEnter())
                            use();
                    } else {
                        const auto turn = lane_->enterOrVisit(
                            [&](MTPSession&) {
                                use();
                                ++guestsServed;
                            },
                            {});
                        if (turn) {
                            use();
                            ++guestsServed;
                        }
                    }
                }
            });
    }
    EXPECT_EQ(guestsServed, 4 * 200);
    EXPECT_EQ(inside, 0);
    EXPECT_TRUE(lane_->tryEnter());
}

TEST_F(DeviceLaneTest, whatAGuestThrowsIsTheGuestsOwn) {
    auto turn = lane_->enter({});
    auto guest = std::async(std::launch::async, [&] {
        (void)lane_->enterOrVisit([](MTPSession&) { throw std::runtime_error("guest"); }, {});
    });
    while (guest.wait_for(1ms) != std::future_status::ready)
        EXPECT_NO_THROW(turn.letGuestsIn(session()));
    EXPECT_THROW(guest.get(), std::runtime_error);
}

TEST_F(DeviceLaneTest, guestThatWaitsComesBeforeTheNextJob) {
    std::optional turn(lane_->enter({}));
    std::vector<std::string> order; // guarded by the lane itself
    auto job = std::async(std::launch::async, [&] {
        announceWaiter();
        const auto mine = lane_->enter({});
        order.emplace_back("job");
    });
    awaitWaiter(); // the job waits for longer than the guest
    auto guest = std::async(std::launch::async, [&] {
        announceWaiter();
        const auto mine = lane_->enterOrVisit([](MTPSession&) { ADD_FAILURE(); }, {});
        order.emplace_back("guest");
    });
    awaitWaiter();
    turn.reset();
    guest.get();
    job.get();
    EXPECT_EQ(order, (std::vector<std::string>{"guest", "job"}));
}

TEST_F(DeviceLaneTest, stopRequestEndsEveryWait) {
    std::stop_source stop;
    auto turn = lane_->enter({});
    auto user = std::async(std::launch::async, [&] {
        announceWaiter();
        (void)lane_->enter(stop.get_token());
    });
    awaitWaiter();
    auto guest = std::async(std::launch::async, [&] {
        announceWaiter();
        (void)lane_->enterOrVisit([](MTPSession&) { ADD_FAILURE(); }, stop.get_token());
    });
    awaitWaiter();
    stop.request_stop();
    EXPECT_THROW(user.get(), CancellationError);
    EXPECT_THROW(guest.get(), CancellationError);
    turn.letGuestsIn(session()); // the guest that left is not served
}

TEST_F(DeviceLaneTest, guestWhoseWorkHasBegunIsWaitedForEvenWhenStopped) {
    std::stop_source stop;
    auto turn = lane_->enter({});
    std::atomic<bool> finished = false;
    auto guest = std::async(std::launch::async, [&] {
        const bool own = lane_
                             ->enterOrVisit(
                                 [&](MTPSession&) {
                                     stop.request_stop();
                                     std::this_thread::sleep_for(20ms);
                                     finished = true;
                                 },
                                 stop.get_token())
                             .has_value();
        EXPECT_TRUE(finished); // what the work uses lives as long as the call
        return own;
    });
    while (guest.wait_for(1ms) != std::future_status::ready)
        turn.letGuestsIn(session());
    EXPECT_FALSE(guest.get());
}

TEST_F(DeviceLaneTest, pollsStepBackForThoseWhoWait) {
    std::optional turn(lane_->enter({}));
    std::promise<void> mayLeave;
    auto user = std::async(std::launch::async, [&] {
        announceWaiter();
        const auto own = lane_->enter({});
        mayLeave.get_future().wait();
    });
    awaitWaiter();
    turn.reset();
    // Free or not: somebody waits or is in already.
    EXPECT_FALSE(lane_->tryEnter());
    mayLeave.set_value();
    user.get();
    EXPECT_TRUE(lane_->tryEnter());
}

} // namespace
} // namespace tessary
