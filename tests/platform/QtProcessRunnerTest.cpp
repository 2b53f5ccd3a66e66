#include "platform/process/QtProcessRunner.h"
#include "support/QtPrinters.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <csignal>
#include <filesystem>
#include <thread>

#include <sys/wait.h>
#include <unistd.h>

namespace tessary {

namespace {

using namespace std::chrono_literals;
using Outcome = ProcessResult::Outcome;

ProcessRequest shell(const char* script) {
    ProcessRequest request;
    request.program = QStringLiteral("/bin/sh");
    request.arguments = {QStringLiteral("-c"), QString::fromUtf8(script)};
    request.limit = 20s;
    return request;
}

/// How many threads of this process have children, dead ones that nobody waited for included.
int threadsWithChildren() {
    int count = 0;
    for (const auto& task : std::filesystem::directory_iterator("/proc/self/task")) {
        QFile children(QString::fromStdString((task.path() / "children").string()));
        if (children.open(QIODevice::ReadOnly) && !children.readAll().trimmed().isEmpty())
            ++count;
    }
    return count;
}

class QtProcessRunnerTest : public testing::Test {
protected:
    QtProcessRunner runner_;
};

TEST_F(QtProcessRunnerTest, unusualEndsAreToldApart) {
    EXPECT_EQ(runner_.follow(shell("kill -SEGV $$")).outcome, Outcome::crashed);
    ProcessRequest missing;
    missing.program = QStringLiteral("/nowhere/adb");
    EXPECT_EQ(runner_.follow(missing).outcome, Outcome::notStarted);

    ProcessRequest slow = shell("exec sleep 60");
    slow.limit = 50ms;
    EXPECT_EQ(runner_.follow(slow).outcome, Outcome::timedOut);

    ProcessRequest talkative = shell("exec yes");
    talkative.outputLimit = 100'000;
    EXPECT_EQ(runner_.follow(talkative).outcome, Outcome::flooded);
    EXPECT_EQ(threadsWithChildren(), 0);
}

TEST_F(QtProcessRunnerTest, stopRequestEndsTheChildAndWaitsForIt) {
    const TemporaryFolder folder;
    std::stop_source stop;
    ProcessRequest request = shell("echo started; : > \"$0\"; exec sleep 60");
    request.arguments.append(folder.path(QStringLiteral("begun")));
    request.stop = stop.get_token();
    request.limit = 60s;
    std::chrono::steady_clock::time_point asked;
    request.whileRunning = [&] {
        if (folder.names().isEmpty())
            return;
        asked = std::chrono::steady_clock::now();
        stop.request_stop();
    };
    const ProcessResult result = runner_.follow(request);
    EXPECT_EQ(result.outcome, Outcome::cancelled);
    EXPECT_EQ(result.standardOutput, "started\n");
    EXPECT_LT(std::chrono::steady_clock::now() - asked, 10s);
    EXPECT_EQ(threadsWithChildren(), 0);
}

TEST_F(QtProcessRunnerTest, serverThatKeepsTheOutputOpenHoldsNobodyUp) {
    const auto start = std::chrono::steady_clock::now();
    const ProcessResult result = runner_.follow(shell("echo done; sleep 30 & exit 0"));
    EXPECT_EQ(result.standardOutput, "done\n");
    EXPECT_LT(std::chrono::steady_clock::now() - start, 15s);
}

TEST_F(QtProcessRunnerTest, childDiesWithTheThreadThatStartedIt) {
    const TemporaryFolder folder;
    const QString pidFile = folder.path(QStringLiteral("pid"));
    const pid_t parent = fork();
    if (parent == 0) {
        ProcessRequest request = shell("echo $$ > \"$0\"; exec sleep 60");
        request.arguments.append(pidFile);
        QtProcessRunner runner;
        (void)runner.follow(request);
        _exit(0);
    }
    pid_t child = 0;
    for (int i = 0; i < 500 && child == 0; ++i) {
        std::this_thread::sleep_for(10ms);
        child = folder.read(QStringLiteral("pid")).trimmed().toInt();
    }
    ASSERT_GT(child, 0);
    kill(parent, SIGKILL);
    waitpid(parent, nullptr, 0);
    int ended = 0;
    for (int i = 0; i < 500 && ended == 0; ++i) {
        std::this_thread::sleep_for(10ms);
        QFile status(QStringLiteral("/proc/%1/stat").arg(child));
        ended = !status.open(QIODevice::ReadOnly) || status.readAll().contains(") Z ");
    }
    EXPECT_TRUE(ended);
}

} // namespace

} // namespace tessary
