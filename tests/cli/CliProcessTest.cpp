#include "support/QtPrinters.h"

#include <QJsonDocument>
#include <QProcess>
#include <QTemporaryDir>
#include <gtest/gtest.h>

#include <csignal>

namespace {

constexpr int patience = 60'000; // ms

/// The program itself, on its virtual phones.
struct ProgramRun {
    int status = -1;
    QByteArray out;
    QByteArray error;

    explicit ProgramRun(const QStringList& arguments,
                        const QString& program = QStringLiteral(TESSARY_CLI)) {
        QProcess process;
        process.start(program, arguments);
        if (!process.waitForFinished(patience))
            return;
        status = process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1;
        out = process.readAllStandardOutput();
        error = process.readAllStandardError();
    }
};

} // namespace

TEST(CliProcess, jsonIsAllThatStandardOutputHolds) {
    const ProgramRun run(
        {QStringLiteral("--demo"), QStringLiteral("devices"), QStringLiteral("--json")});
    EXPECT_EQ(run.status, 0) << run.error.toStdString();
    const QJsonDocument document = QJsonDocument::fromJson(run.out);
    EXPECT_TRUE(document.isArray());
    EXPECT_FALSE(document.isEmpty());
}

TEST(CliProcess, exitStatusTellsWrongUsageFromFailure) {
    const ProgramRun usage({QStringLiteral("get")});
    EXPECT_EQ(usage.status, 2);
    EXPECT_FALSE(usage.error.isEmpty());
    EXPECT_TRUE(usage.out.isEmpty());
    const ProgramRun failure(
        {QStringLiteral("--demo"), QStringLiteral("ls"), QStringLiteral("nobody")});
    EXPECT_EQ(failure.status, 1);
    EXPECT_EQ(failure.error.count('\n'), 1) << failure.error.toStdString();
    EXPECT_EQ(ProgramRun({QStringLiteral("--help")}).status, 0);
}

TEST(CliProcess, closedStandardOutputEndsTheProgram) {
    const ProgramRun run(
        {QStringLiteral("-c"),
         QStringLiteral("'%1' --demo devices | true").arg(QStringLiteral(TESSARY_CLI))},
        QStringLiteral("/bin/sh"));
    EXPECT_EQ(run.status, 0);
}

TEST(CliProcess, watchEndsCleanlyWhenItIsInterrupted) {
    QProcess process;
    process.start(QStringLiteral(TESSARY_CLI), {QStringLiteral("--demo"), QStringLiteral("watch")});
    ASSERT_TRUE(process.waitForReadyRead(patience));
    EXPECT_TRUE(process.readAllStandardOutput().startsWith("attached"));
    ::kill(static_cast<pid_t>(process.processId()), SIGINT);
    ASSERT_TRUE(process.waitForFinished(patience));
    EXPECT_EQ(process.exitStatus(), QProcess::NormalExit);
    EXPECT_EQ(process.exitCode(), 130);
}
