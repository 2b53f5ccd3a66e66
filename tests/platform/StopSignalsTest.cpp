#include "platform/process/StopSignals.h"
#include "base/local/Unfinished.h"
#include "support/Soon.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <chrono>
#include <csignal>
#include <thread>

#include <fcntl.h>
#include <unistd.h>

using namespace std::chrono_literals;
using namespace tessary;

namespace {

constexpr auto patience = 300ms;
constexpr auto longEnough = 10s;

/// What runs in a process of its own, which must not come back from it.
[[noreturn]] void hang() {
    std::this_thread::sleep_for(longEnough);
    _exit(99);
}

/// The processes of these tests are copies of this one: they share its folder.
struct StopSignalsTest : testing::TestWithParam<int> {
    StopSignalsTest() {
        for (const int number : {SIGINT, SIGTERM, SIGHUP}) // who runs the tests may ignore them
            (void)std::signal(number, SIG_DFL);
    }
    TemporaryFolder disk;
};

} // namespace

INSTANTIATE_TEST_SUITE_P(Signals, StopSignalsTest, testing::Values(SIGINT, SIGTERM, SIGHUP),
                         [](const auto& row) { return sigabbrev_np(row.param); });

TEST_P(StopSignalsTest, processThatDoesNotFollowIsEndedAndTidiedUp) {
    const QString part = disk.write(QStringLiteral("part"), "half");
    EXPECT_EXIT(
        {
            const StopSignals signals(patience);
            const Unfinished unfinished(AT_FDCWD, part.toUtf8());
            raise(GetParam());
            hang();
        },
        testing::ExitedWithCode(128 + GetParam()), "");
    EXPECT_FALSE(disk.has(QStringLiteral("part")));
}

TEST_P(StopSignalsTest, ignoredSignalsStayIgnored) {
    EXPECT_EXIT(
        {
            (void)std::signal(GetParam(), SIG_IGN);
            const StopSignals signals(patience);
            raise(GetParam());
            std::this_thread::sleep_for(2 * patience);
            _exit(signals.token().stop_requested() ? 1 : 0);
        },
        testing::ExitedWithCode(0), "");
}

TEST_F(StopSignalsTest, onlyASecondInterruptEndsAtOnce) {
    EXPECT_EXIT(
        {
            const StopSignals signals(longEnough);
            raise(SIGTERM);
            raise(SIGHUP);
            raise(SIGTERM);
            (void)comesTrue([&] { return signals.token().stop_requested(); }, longEnough);
            std::this_thread::sleep_for(patience);
            std::fputs("still there", stderr);
            raise(SIGINT);
            hang();
        },
        testing::ExitedWithCode(128 + SIGTERM), "still there");
}
