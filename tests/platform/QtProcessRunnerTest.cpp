#include "platform/process/QtProcessRunner.h"
#include "support/QtPrinters.h"
#include "support/Soon.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <csignal>

#include <sys/wait.h>
#include <unistd.h>

namespace tessary {

namespace {

using namespace std::chrono_literals;

ProcessRequest shell(const char* script) {
    ProcessRequest request;
    request.program = QStringLiteral("/bin/sh");
    request.arguments = {QStringLiteral("-c"), QString::fromUtf8(script)};
    request.limit = 20s;
    return request;
}

class QtProcessRunnerTest : public testing::Test {
protected:
    QtProcessRunner runner_;
};

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
    ASSERT_TRUE(comesTrue([&] {
        child = folder.read(QStringLiteral("pid")).trimmed().toInt();
        return child > 0;
    }));
    kill(parent, SIGKILL);
    waitpid(parent, nullptr, 0);
    EXPECT_TRUE(comesTrue([child] {
        QFile status(QStringLiteral("/proc/%1/stat").arg(child));
        return !status.open(QIODevice::ReadOnly) || status.readAll().contains(") Z ");
    }));
}

} // namespace

} // namespace tessary
