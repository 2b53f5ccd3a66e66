#include "support/OwnHome.h"
#include "support/ProgramRun.h"
#include "support/QtPrinters.h"
#include "support/Soon.h"

#include <gtest/gtest.h>

#include <chrono>
#include <csignal>

namespace tessary {
namespace {

using namespace std::chrono_literals;
using namespace Qt::StringLiterals;

/// On a busy machine; the programs' own bounds are four and five seconds.
constexpr auto patienceForEnd = 20s;

const QString window = QStringLiteral(TESSARY);
const QString commandLine = QStringLiteral(TESSARY_CLI);

/// A running program.
class Program {
public:
    Program(const OwnHome& home, const QString& path, const QStringList& arguments) {
        process.setProcessEnvironment(home.environment);
        process.setProcessChannelMode(QProcess::MergedChannels);
        process.setChildProcessModifier([] { // who runs the tests may ignore them
            for (const int number : {SIGINT, SIGTERM, SIGHUP})
                (void)std::signal(number, SIG_DFL);
        });
        process.start(path, arguments);
        EXPECT_TRUE(process.waitForStarted());
    }
    /// Sends a signal and waits. The exit status, or less than 0: killed by it, or not ended.
    int end(int signal) {
        ::kill(static_cast<pid_t>(process.processId()), signal);
        if (!process.waitForFinished(std::chrono::milliseconds(patienceForEnd).count()))
            return -2;
        return process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1;
    }

    QProcess process;
};

class EndingTest : public testing::TestWithParam<int> {
protected:
    /// Whether the phones of `--demo`, and all that belongs to them, are gone.
    void expectNothingTemporary() const {
        for (const char* folder : {"cache", "run", "tmp"})
            for (const QString& path : home.leftIn(QString::fromLatin1(folder)))
                EXPECT_FALSE(path.contains(u"scratch-"_s) || path.endsWith(u".socket"_s))
                    << path.toStdString();
    }
    /// Virtual phones with next to nothing on them, which are there at once.
    [[nodiscard]] QStringList smallPhones() const {
        for (const char* folder :
             {"pixel/Download", "pixel-card", "galaxy", "iphone/notes", "iphone/pictures",
              "iphone/recorder", "iphone/bank", "ipad/pictures", "ipad/scores"})
            home.disk.makeFolder(u"phones/"_s + QString::fromLatin1(folder));
        return {u"--demo-folder"_s, home.disk.path(u"phones"_s)};
    }
    /// The last of the virtual phones are there: the window is next.
    [[nodiscard]] bool isDemoRunning() const {
        for (const QString& path : home.leftIn(u"run"_s))
            if (path.endsWith(u"/mux"_s))
                return true;
        return false;
    }

    OwnHome home;
};

INSTANTIATE_TEST_SUITE_P(Signals, EndingTest, testing::Values(SIGINT, SIGTERM, SIGHUP),
                         [](const auto& row) { return sigabbrev_np(row.param); });

TEST_P(EndingTest, commandLineLeavesNoHalfFile) {
    home.disk.writeSparse(u"phones/pixel/Download/big"_s, qint64{8} << 30);
    home.disk.makeFolder(u"into"_s);
    Program program(home, commandLine,
                    smallPhones() + QStringList{u"get"_s, u"DEMO0001"_s, u"/Download/big"_s,
                                                home.disk.path(u"into"_s)});
    ASSERT_TRUE(comesTrue([&] { return !home.disk.names(u"into"_s).isEmpty(); }))
        << program.process.readAll().toStdString();
    EXPECT_EQ(program.end(GetParam()), 130);
    // What arrived waits under a name of its own: the next copy goes on from there.
    EXPECT_FALSE(home.disk.names(u"into"_s).contains(u"big"_s));
    expectNothingTemporary();
}

TEST_P(EndingTest, watchingEndsToo) {
    Program program(home, commandLine, smallPhones() + QStringList{u"watch"_s});
    ASSERT_TRUE(program.process.waitForReadyRead());
    EXPECT_EQ(program.end(GetParam()), 130);
    expectNothingTemporary();
}

TEST_P(EndingTest, windowEndsAsByQuitting) {
    Program program(home, window, {u"--demo"_s});
    ASSERT_TRUE(comesTrue([&] { return isDemoRunning(); }));
    EXPECT_EQ(program.end(GetParam()), 0) << program.process.readAll().toStdString();
    expectNothingTemporary();
}

TEST_P(EndingTest, virtualPhonesTakeTheirFoldersAlong) {
    const QString socket = home.disk.path(u"mux"_s);
    Program program(home, QStringLiteral(TESSARY_PHONES), {socket});
    ASSERT_TRUE(program.process.waitForReadyRead());
    EXPECT_EQ(program.end(GetParam()), 0);
    expectNothingTemporary();
}

ProgramRun shell(const OwnHome& home, const QString& line, const QStringList& phones) {
    return {
        u"/bin/bash"_s,
        {u"-c"_s,
         u"set -o pipefail; cli='%1'; phones='%2'; "_s.arg(commandLine, phones.join(u' ')) + line},
        home.environment};
}

TEST_F(EndingTest, outputThatIsNotWrittenWholeIsAFailure) {
    const std::pair<const char*, const char*> rows[] = {
        // line, what standard error says
        {"$cli $phones devices --json >/dev/full", "No space left on device"},
        {"$cli $phones ls DEMO0001 / >/dev/full", "No space left on device"},
        {"$cli $phones watch >/dev/full", "No space left on device"},
        {"$cli $phones ls DEMO0001 / | true", "Broken pipe"},
        {"$cli --help >/dev/full", "No space left on device"},
        {"$cli $phones ls DEMO0001 / >&-", "Standard output is closed"},
    };
    for (const auto& [line, text] : rows) {
        const ProgramRun run = shell(home, QString::fromLatin1(line), smallPhones());
        EXPECT_EQ(run.status, 1) << line;
        EXPECT_TRUE(run.error.contains(text)) << line << ": " << run.error.toStdString();
    }
    expectNothingTemporary();
}

TEST_F(EndingTest, whatAKilledProgramLeftIsRemovedByTheNext) {
    Program killed(home, window, {u"--demo"_s});
    ASSERT_TRUE(comesTrue([&] { return isDemoRunning(); }));
    EXPECT_EQ(killed.end(SIGKILL), -1);
    const QStringList left =
        QDir(home.disk.path(u"cache/tessary/demo"_s)).entryList(QDir::Dirs | QDir::NoDotAndDotDot);
    ASSERT_EQ(left.size(), 1);
    EXPECT_EQ(home.leftIn(u"tmp"_s), QStringList()) << "where nobody would remove it";
    const QString folder = home.disk.path(u"cache/tessary/demo/"_s + left.constFirst());
    const ProgramRun older = shell(
        home, u"touch -d '11 minutes ago' '%1'; $cli $phones devices >/dev/null"_s.arg(folder),
        {u"--demo"_s});
    EXPECT_EQ(older.status, 0) << older.error.toStdString();
    EXPECT_FALSE(QFile::exists(folder));
}

} // namespace
} // namespace tessary
