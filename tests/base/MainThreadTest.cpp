#include "base/threads/MainThread.h"
#include "support/MainLoop.h"

#include <atomic>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

namespace tessary {
namespace {

using MainThreadTest = MainLoop;

TEST_F(MainThreadTest, postsOfEachThreadArriveOnTheMainThreadInTheirOrder) {
    constexpr int threads = 4;
    constexpr int posts = 500;
    std::vector<std::vector<int>> arrived(threads);
    int total = 0;
    {
        std::vector<std::jthread> workers;
        for (std::size_t t = 0; t < threads; ++t)
            workers.emplace_back([&, t] {
                for (int i = 0; i < posts; ++i)
                    MainThread::post([&, t, i] {
                        EXPECT_TRUE(MainThread::isCurrent());
                        arrived[t].push_back(i);
                        ++total;
                    });
            });
    }
    EXPECT_EQ(total, 0) << "called within the post";
    ASSERT_TRUE(eventually([&] { return total == threads * posts; }));
    for (const std::vector<int>& order : arrived)
        EXPECT_TRUE(std::is_sorted(order.begin(), order.end()));
}

TEST_F(MainThreadTest, resultAndExceptionOfTheWorkAreDelivered) {
    QObject context;
    std::optional<int> value;
    std::optional<std::string> failure;
    runInBackground(
        &context, [] { return std::make_unique<int>(42); }, // a value that cannot be copied
        [&](BackgroundResult<std::unique_ptr<int>> result) {
            EXPECT_TRUE(MainThread::isCurrent());
            value = *result.take();
        });
    runInBackground(
        &context, [] { throw std::runtime_error("no luck"); },
        [&](BackgroundResult<void> result) {
            EXPECT_FALSE(result.succeeded());
            try {
                result.take();
            } catch (const std::runtime_error& error) {
                failure = error.what();
            }
        });
    ASSERT_TRUE(eventually([&] { return value && failure; }));
    EXPECT_EQ(*value, 42);
    EXPECT_EQ(*failure, "no luck");
}

TEST_F(MainThreadTest, resultForAContextThatIsGoneIsDropped) {
    std::atomic<bool> mayEnd = false;
    std::atomic<bool> hasEnded = false;
    bool isDelivered = false;
    auto context = std::make_unique<QObject>();
    runInBackground(
        context.get(),
        [&] {
            while (!mayEnd)
                std::this_thread::sleep_for(1ms);
            hasEnded = true;
        },
        [&](BackgroundResult<void>) { isDelivered = true; });
    context.reset();
    mayEnd = true;
    ASSERT_TRUE(eventually([&] { return hasEnded.load(); }));
    turnFor(50ms);
    EXPECT_FALSE(isDelivered);
}

TEST_F(MainThreadTest, shutDownStopsWhatRunsAndDropsWhatWaits) {
    QObject context;
    std::atomic<std::size_t> started = 0;
    std::atomic<std::size_t> stopped = 0;
    for (std::size_t i = 0; i < Background::maxThreads + 5; ++i)
        runInBackground(
            &context,
            [&](const std::stop_token& stop) {
                ++started;
                while (!stop.stop_requested())
                    std::this_thread::sleep_for(1ms);
                ++stopped;
            },
            [](BackgroundResult<void>) {});
    ASSERT_TRUE(eventually([&] { return started == Background::maxThreads; }));
    EXPECT_TRUE(Background::shutDown(20s));
    EXPECT_EQ(stopped, Background::maxThreads);
    EXPECT_EQ(started, Background::maxThreads);
    runInBackground(
        &context, [&] { ++started; }, [](BackgroundResult<void>) {});
    turnFor(20ms);
    EXPECT_EQ(started, Background::maxThreads) << "work was taken after the end";
}

TEST_F(MainThreadTest, shutDownWaitsNoLongerThanItsLimit) {
    QObject context;
    auto mayEnd = std::make_shared<std::atomic<bool>>(false);
    auto hasStarted = std::make_shared<std::atomic<bool>>(false);
    runInBackground(
        &context,
        [mayEnd, hasStarted] {
            *hasStarted = true;
            while (!*mayEnd)
                std::this_thread::sleep_for(1ms);
        },
        [](BackgroundResult<void>) {});
    ASSERT_TRUE(eventually([&] { return hasStarted->load(); }));
    const auto start = std::chrono::steady_clock::now();
    EXPECT_FALSE(Background::shutDown(50ms));
    EXPECT_LT(std::chrono::steady_clock::now() - start, 10s);
    *mayEnd = true;
}

} // namespace
} // namespace tessary
