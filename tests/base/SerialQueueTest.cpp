#include "base/threads/SerialQueue.h"

#include "base/threads/CancellationError.h"

#include <gtest/gtest.h>

#include <atomic>
#include <cstdlib>
#include <future>
#include <latch>
#include <thread>

#include <sys/wait.h>
#include <unistd.h>

namespace tessary {
namespace {

using namespace std::chrono_literals;

constexpr SerialQueue::Patience shortPatience{.afterStop = 20ms, .ofSilence = 10s};

/// Work that hangs until the test lets it go, as a call into a silent device does.
struct Hang {
    std::promise<void> release;
    std::shared_future<void> released = release.get_future().share();
    std::latch begun{1};
};

TEST(SerialQueue, timeInWhichNothingRunsIsNoSilence) {
    const pid_t waiting = fork();
    if (waiting == 0) {
        SerialQueue queue("test", {.afterStop = 20ms, .ofSilence = 3s});
        try {
            queue.run([] {
                return std::system("kill -STOP $PPID; sleep 5; kill -CONT $PPID; sleep 0.5");
            });
            _exit(0);
        } catch (const QueueStalled&) {
            _exit(1);
        }
    }
    int status = 0;
    ASSERT_EQ(waitpid(waiting, &status, 0), waiting);
    EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0);
}

TEST(SerialQueue, aCallerThatIsStoppedLeavesWorkThatDoesNotEnd) {
    Hang hang;
    std::atomic<bool> nextRan = false;
    SerialQueue queue("test", shortPatience);
    std::stop_source stop;
    std::jthread stopper([&] {
        hang.begun.wait();
        stop.request_stop();
    });
    EXPECT_THROW(queue.run(
                     [&] {
                         hang.begun.count_down();
                         hang.released.wait();
                     },
                     stop.get_token()),
                 CancellationError);
    hang.release.set_value();
    queue.run([&] { nextRan = true; });
    EXPECT_TRUE(nextRan);
}

TEST(SerialQueue, workThatHasNotBegunNeverRunsOnceItsCallerIsStopped) {
    Hang hang;
    std::atomic<bool> ran = false;
    SerialQueue queue("test");
    queue.post([&] { hang.released.wait(); });
    std::stop_source stop;
    stop.request_stop();
    EXPECT_THROW(queue.run([&] { ran = true; }, stop.get_token()), CancellationError);
    hang.release.set_value();
    queue.run([] {});
    EXPECT_FALSE(ran);
}

TEST(SerialQueue, silenceEndsTheWait) {
    Hang hang; // outlives the queue, whose thread waits for it
    SerialQueue queue("test", {.afterStop = 20ms, .ofSilence = 500ms});
    EXPECT_THROW(queue.run([&] { hang.released.wait(); }), QueueStalled);
    // Whoever comes next does not wait for the silent call without end either.
    EXPECT_THROW(queue.run([] {}), QueueStalled);
    hang.release.set_value();
}

TEST(SerialQueue, finishWaitsForAllWorkAndGivesUpOnWhatHangs) {
    std::atomic<int> done = 0;
    {
        SerialQueue queue("test");
        for (int i = 0; i < 5; ++i)
            queue.post([&] { ++done; });
        EXPECT_TRUE(queue.finish(10s));
        EXPECT_THROW(queue.run([] {}), CancellationError);
    }
    EXPECT_EQ(done, 5);

    auto hang = std::make_shared<Hang>();
    auto ended = std::make_shared<std::latch>(1);
    {
        SerialQueue queue("test", shortPatience);
        queue.post([hang] { hang->released.wait(); });
        queue.post([ended] { ended->count_down(); });
        EXPECT_FALSE(queue.finish(20ms));
    }
    hang->release.set_value();
    ended->wait();
}

} // namespace
} // namespace tessary
