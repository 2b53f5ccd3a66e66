#include "support/QtPrinters.h"
#include "support/TemporaryFolder.h"

#include <QProcess>
#include <gtest/gtest.h>

#include <arpa/inet.h>
#include <netinet/in.h>
#include <poll.h>
#include <sys/socket.h>

namespace {

constexpr int patience = 60'000; // ms

/// The program itself, on its virtual phones.
struct ProgramRun {
    int status = -1;
    QByteArray out;
    QByteArray error;

    explicit ProgramRun(
        const QStringList& arguments, const QString& program = QStringLiteral(TESSARY_CLI),
        const QProcessEnvironment& environment = QProcessEnvironment::systemEnvironment()) {
        QProcess process;
        process.setProcessEnvironment(environment);
        process.start(program, arguments);
        if (!process.waitForFinished(patience))
            return;
        status = process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1;
        out = process.readAllStandardOutput();
        error = process.readAllStandardError();
    }
};

/// Stands where the user's own adb server would listen, and tells whether anyone called.
class UsersAdbServer {
public:
    UsersAdbServer() {
        sockaddr_in address{};
        address.sin_family = AF_INET;
        address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        socklen_t size = sizeof address;
        EXPECT_EQ(::bind(socket_, reinterpret_cast<const sockaddr*>(&address), size), 0);
        EXPECT_EQ(::listen(socket_, 1), 0);
        ::getsockname(socket_, reinterpret_cast<sockaddr*>(&address), &size);
        port_ = QString::number(ntohs(address.sin_port));
    }
    ~UsersAdbServer() {
        ::close(socket_);
    }
    UsersAdbServer(const UsersAdbServer&) = delete;
    UsersAdbServer& operator=(const UsersAdbServer&) = delete;

    [[nodiscard]] QProcessEnvironment environment() const {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(QStringLiteral("ANDROID_ADB_SERVER_PORT"), port_);
        environment.insert(QStringLiteral("ADB_SERVER_SOCKET"), QStringLiteral("tcp:") + port_);
        return environment;
    }
    [[nodiscard]] bool wasCalled() const {
        pollfd waiting{socket_, POLLIN, 0};
        return ::poll(&waiting, 1, 0) != 0;
    }

private:
    const int socket_ = ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    QString port_;
};

} // namespace

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

TEST(CliProcess, virtualPhoneIsReachedThroughAnAdbServerOfItsOwn) {
    const tessary::TemporaryFolder disk;
    const UsersAdbServer users;
    disk.write(QStringLiteral("folder/deep/it's.txt"), "content");
    const auto run = [&](const QStringList& arguments) {
        return ProgramRun(QStringList{QStringLiteral("--demo-folder"),
                                      disk.path(QStringLiteral("phones")),
                                      QStringLiteral("--protocol"), QStringLiteral("adb")} +
                              arguments,
                          QStringLiteral(TESSARY_CLI), users.environment());
    };
    const QString phone = QStringLiteral("DEMO0001");
    const ProgramRun devices = run({QStringLiteral("devices"), QStringLiteral("--json")});
    EXPECT_EQ(devices.out.count("\"udid\": \"DEMO0001\""), 1) << devices.out.toStdString();
    EXPECT_EQ(devices.out.count("\"udid\": \"127.0.0.1"), 0) << "one row for both halves";
    EXPECT_EQ(devices.out.count("Turbo Mode (ADB)"), 1) << devices.out.toStdString();
    const ProgramRun put = run({QStringLiteral("put"), phone, disk.path(QStringLiteral("folder")),
                                QStringLiteral("/sdcard/Download")});
    EXPECT_EQ(put.status, 0) << put.error.toStdString();
    const ProgramRun list = run({QStringLiteral("ls"), phone, QStringLiteral("/sdcard/Download")});
    EXPECT_TRUE(list.out.contains("folder/")) << list.error.toStdString();
    const ProgramRun get = run({QStringLiteral("get"), phone, QStringLiteral("/Download/folder"),
                                disk.path(QStringLiteral("back"))});
    EXPECT_EQ(get.status, 0) << get.error.toStdString();
    EXPECT_EQ(disk.read(QStringLiteral("back/deep/it's.txt")), "content");
    EXPECT_FALSE(users.wasCalled());
}
