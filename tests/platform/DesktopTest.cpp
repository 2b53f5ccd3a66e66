#include "platform/desktop/DesktopNotifier.h"
#include "platform/desktop/FileManager.h"
#include "platform/desktop/MuteSessionBus.h"
#include "platform/desktop/TaskbarProgress.h"
#include "support/Application.h"
#include "support/QtPrinters.h"
#include "support/TemporaryFolder.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVirtualObject>
#include <QLocalServer>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

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

/// A dock that listens for what programs tell of themselves.
class Dock final : public QObject {
    Q_OBJECT

public:
    explicit Dock(QDBusConnection bus) {
        bus.connect(QString(), QString(), QStringLiteral("com.canonical.Unity.LauncherEntry"),
                    QStringLiteral("Update"), this, SLOT(update(QString, QVariantMap)));
    }
    struct Shown {
        int percents = 0;
        bool isVisible = false;
        bool operator==(const Shown&) const = default;
    };
    std::vector<Shown> shown;
    QString program;

private Q_SLOTS:
    void update(const QString& application, const QVariantMap& properties) {
        program = application;
        shown.push_back({qRound(properties.value(QStringLiteral("progress")).toDouble() * 100),
                         properties.value(QStringLiteral("progress-visible")).toBool()});
    }
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

TEST_F(DesktopTest, theDockShowsWholePercentsAndIsClearedAtTheEnd) {
    Dock dock(QDBusConnection::connectToBus(QDBusConnection::SessionBus, QStringLiteral("dock")));
    {
        TaskbarProgress progress;
        for (const double fraction : {0.0, 0.001, 0.25, 0.2501, 7.0})
            progress.show(fraction);
        progress.show(std::nullopt);
        progress.show(std::nullopt);
        progress.show(0.5);
    }
    using Shown = Dock::Shown;
    const std::vector<Shown> expected{{0, true},  {25, true}, {100, true},
                                      {0, false}, {50, true}, {0, false}};
    EXPECT_TRUE(eventually([&] { return dock.shown.size() >= expected.size(); }));
    EXPECT_EQ(dock.shown, expected);
    EXPECT_EQ(dock.program, QStringLiteral("application://tessary.desktop"));
}

TEST_F(DesktopTest, aBusThatNeverAnswersIsLeftAloneAndAnyOtherIsKept) {
    const QByteArray bus = qgetenv("DBUS_SESSION_BUS_ADDRESS");
    EXPECT_FALSE(leaveMuteSessionBus());
    EXPECT_EQ(qgetenv("DBUS_SESSION_BUS_ADDRESS"), bus);

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

#include "DesktopTest.moc"
