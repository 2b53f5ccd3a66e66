#include "phone/DeviceLane.h"
#include "base/threads/CancellationError.h"
#include "mtp/files/MTPSession.h"

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
    /// Starts work on a thread, and waits until that sleeps, which it does in the lane alone.
    template <typename Work>
    [[nodiscard]] static auto startWaiting(Work work) {
        auto waiter = std::make_shared<std::atomic<pid_t>>(0);
        auto future = std::async(std::launch::async, [=] {
            *waiter = gettid();
            work();
        });
        const auto isAsleep = [&] {
            std::ifstream file("/proc/self/task/" + std::to_string(*waiter) + "/stat");
            const std::string stat(std::istreambuf_iterator<char>(file), {});
            return stat.find(") S ") != std::string::npos;
        };
        while (!isAsleep())
            std::this_thread::yield();
        return future;
    }

    const std::shared_ptr<DeviceLane> lane_ = std::make_shared<DeviceLane>();

private:
    SessionAddress address_;
};

TEST_F(DeviceLaneTest, turnsExcludeEachOtherOnManyThreads) {
    int inside = 0; // the thread sanitizer sees any use that the lane does not order
    std::atomic<int> guestsServed = 0;
    std::latch start(8);
    const auto use = [&] {
        EXPECT_EQ(++inside, 1);
        --inside;
    };
    const auto useAsGuest = [&] {
        use();
        ++guestsServed;
    };
    const auto work = [&](int kind) {
        start.arrive_and_wait();
        for (int round = 0; round < 200; ++round) {
            if (kind == 0) {
                auto turn = lane_->enter({});
                use();
                turn.letGuestsIn(session());
            } else if (kind == 1) {
                if (const auto turn = lane_->tryEnter())
                    use();
            } else if (const auto turn =
                           lane_->enterOrVisit([&](MTPSession&) { useAsGuest(); }, {})) {
                useAsGuest();
            }
        }
    };
    std::vector<std::jthread> threads;
    for (int n = 0; n < 8; ++n)
        threads.emplace_back(work, n % 4);
    threads.clear();
    EXPECT_EQ(guestsServed, 4 * 200);
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
    // The job waits for longer than the guest.
    auto job = startWaiting([&] {
        const auto mine = lane_->enter({});
        order.emplace_back("job");
    });
    auto guest = startWaiting([&] {
        const auto mine = lane_->enterOrVisit([](MTPSession&) { ADD_FAILURE(); }, {});
        order.emplace_back("guest");
    });
    turn.reset();
    guest.get();
    job.get();
    EXPECT_EQ(order, (std::vector<std::string>{"guest", "job"}));
}

TEST_F(DeviceLaneTest, stopRequestEndsEveryWait) {
    std::stop_source stop;
    auto turn = lane_->enter({});
    auto user = startWaiting([&] { (void)lane_->enter(stop.get_token()); });
    auto guest = startWaiting(
        [&] { (void)lane_->enterOrVisit([](MTPSession&) { ADD_FAILURE(); }, stop.get_token()); });
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
    auto user = startWaiting([&] {
        const auto own = lane_->enter({});
        mayLeave.get_future().wait();
    });
    turn.reset();
    // Free or not: somebody waits or is in already.
    EXPECT_FALSE(lane_->tryEnter());
    mayLeave.set_value();
    user.get();
    EXPECT_TRUE(lane_->tryEnter());
}

} // namespace
} // namespace tessary
