#include "platform/desktop/DesktopNotifier.h"
#include "platform/desktop/FileManager.h"
#include "platform/desktop/MuteSessionBus.h"
#include "support/Application.h"
#include "support/QtPrinters.h"
#include "support/TemporaryFolder.h"

#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QDBusVirtualObject>
#include <QLocalServer>
#include <QProcess>
#include <gmock/gmock.h>

#include <csignal>

using namespace tessary;

namespace {

/// What a desktop has on its bus; runs on a bus of the test's own.
class Desktop final : public QDBusVirtualObject {
public:
    [[nodiscard]] QString introspect(const QString&) const override {
        return {};
    }
    bool handleMessage(const QDBusMessage& message, const QDBusConnection& bus) override {
        calls.push_back(message);
        return bus.send(message.createReply(QVariant(1U)));
    }
    std::vector<QDBusMessage> calls;
};

class DesktopTest : public Application, public testing::Test {};

TEST_F(DesktopTest, messagesAndFilesReachTheDesktopAndNobodyIsNoFailure) {
    bool hadNoManager = false;
    DesktopNotifier notifier;
    notifier.notify(QStringLiteral("t"), QStringLiteral("nobody listens"), [] {});
    showInFileManager(QStringLiteral("/a b"), [&] { hadNoManager = true; });
    ASSERT_TRUE(eventually([&] { return hadNoManager; }));

    Desktop desktop;
    QDBusConnection bus =
        QDBusConnection::connectToBus(QDBusConnection::SessionBus, QStringLiteral("desktop"));
    for (const char* name : {"Notifications", "FileManager1"}) {
        const QString whole = QStringLiteral("org.freedesktop.") + QString::fromLatin1(name);
        ASSERT_TRUE(bus.registerVirtualObject(
            QLatin1Char('/') + QString(whole).replace(QLatin1Char('.'), QLatin1Char('/')),
            &desktop));
        ASSERT_TRUE(bus.registerService(whole));
    }
    int clicks = 0;
    notifier.notify(QStringLiteral("Title"), QStringLiteral("<b>.txt"), [&] { ++clicks; });
    ASSERT_TRUE(eventually([&] { return desktop.calls.size() == 1; }));
    EXPECT_EQ(desktop.calls[0].signature(), QStringLiteral("susssasa{sv}i"));
    EXPECT_EQ(desktop.calls[0].arguments().at(3).toString(), QStringLiteral("Title"));
    EXPECT_EQ(desktop.calls[0].arguments().at(4).toString(), QStringLiteral("&lt;b&gt;.txt"));
    for (const uint id : {9U, 1U}) { // another program's message, then ours
        QDBusMessage click = QDBusMessage::createSignal(
            QStringLiteral("/org/freedesktop/Notifications"),
            QStringLiteral("org.freedesktop.Notifications"), QStringLiteral("ActionInvoked"));
        bus.send(click << id << QStringLiteral("default"));
    }
    EXPECT_TRUE(eventually([&] { return clicks == 1; }));
    showInFileManager(QStringLiteral("/a b#c"), [] { ADD_FAILURE() << "it was shown"; });
    ASSERT_TRUE(eventually([&] { return desktop.calls.size() == 2; }));
    EXPECT_EQ(desktop.calls[1].arguments().at(0).toStringList(),
              QStringList(QStringLiteral("file:///a%20b%23c")));
    showFolderInFileManager(QStringLiteral("/a b"), [] { ADD_FAILURE() << "it was shown"; });
    ASSERT_TRUE(eventually([&] { return desktop.calls.size() == 3; }));
    EXPECT_EQ(desktop.calls[2].member(), QStringLiteral("ShowFolders"));
    bus.unregisterObject(QStringLiteral("/org/freedesktop/Notifications"));
}

const QString readers = QStringLiteral("org.a11y.Bus");

/// Run by the test below: a program that has a name on the bus, and answers nobody.
TEST(DISABLED_Mute, hasANameAndStops) {
    const Application application;
    EXPECT_TRUE(QDBusConnection::sessionBus().registerService(readers));
    raise(SIGSTOP);
}

bool isStopped(qint64 process) {
    QFile status(QStringLiteral("/proc/%1/stat").arg(process));
    return status.open(QIODevice::ReadOnly) && status.readAll().contains(") T ");
}

TEST_F(DesktopTest, aBusThatNeverAnswersIsLeftAloneAndAnyOtherIsKept) {
    const QByteArray bus = qgetenv("DBUS_SESSION_BUS_ADDRESS");
    EXPECT_FALSE(leaveMuteSessionBus());
    EXPECT_EQ(qgetenv("DBUS_SESSION_BUS_ADDRESS"), bus);
    QProcess reader;
    reader.start(QCoreApplication::applicationFilePath(),
                 {QStringLiteral("--gtest_also_run_disabled_tests"),
                  QStringLiteral("--gtest_filter=DISABLED_Mute.*")});
    const QDBusConnectionInterface& names = *QDBusConnection::sessionBus().interface();
    ASSERT_TRUE(eventually(
        [&] { return names.isServiceRegistered(readers) && isStopped(reader.processId()); }));
    EXPECT_TRUE(leaveMuteSessionBus());
    reader.kill();
    EXPECT_TRUE(reader.waitForFinished());
    qputenv("DBUS_SESSION_BUS_ADDRESS", bus);

    const TemporaryFolder folder;
    QLocalServer mute; // takes what comes in, in a loop that does not run
    ASSERT_TRUE(mute.listen(folder.path(QStringLiteral("bus"))));
    const QByteArray address = "unix:path=" + mute.fullServerName().toUtf8();
    qputenv("DBUS_SESSION_BUS_ADDRESS", address + ",guid=00;tcp:host=localhost");
    EXPECT_TRUE(leaveMuteSessionBus());
    EXPECT_FALSE(qgetenv("DBUS_SESSION_BUS_ADDRESS").contains(address));
    EXPECT_FALSE(leaveMuteSessionBus());
    qputenv("DBUS_SESSION_BUS_ADDRESS", bus);
}

} // namespace
