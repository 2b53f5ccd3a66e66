#include "base/threads/TellLatest.h"
#include "support/MainLoop.h"

#include <atomic>
#include <thread>

namespace tessary {
namespace {

using MainThreadTest = MainLoop;

TEST_F(MainThreadTest, newestValueOfManyIsTold) {
    QObject context;
    std::vector<int> told;
    const auto tell = tellLatest<int>(&context, [&](int value) { told.push_back(value); });
    for (int value = 1; value <= 3; ++value)
        tell(value);
    turnFor(20ms);
    EXPECT_EQ(told, std::vector{3});
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
