#include "platform/desktop/DesktopNotifier.h"
#include "platform/desktop/FileManager.h"
#include "platform/desktop/MuteSessionBus.h"
#include "support/Application.h"
#include "support/QtPrinters.h"
#include "support/TemporaryFolder.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVirtualObject>
#include <QLocalServer>
#include <QLocalSocket>
#include <QtEndian>
#include <gmock/gmock.h>

#include <unistd.h>

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

/// A program on the bus that has a name, and answers nobody.
class MuteService {
public:
    explicit MuteService(const QByteArray& name) {
        socket_.connectToServer(
            qEnvironmentVariable("DBUS_SESSION_BUS_ADDRESS").section(u'=', 1).section(u',', 0, 0));
        socket_.write(QByteArray(1, '\0') + "AUTH EXTERNAL " +
                      QByteArray::number(::getuid()).toHex() + "\r\n");
        EXPECT_TRUE(socket_.waitForReadyRead(patience));
        socket_.readAll();
        QByteArray wish = text(name);
        pad(wish, 4);
        socket_.write("BEGIN\r\n" + call(1, "Hello", {}, {}) +
                      call(2, "RequestName", "su", wish + number(0)));
        QByteArray said; // that the name is its own, in the end
        while (!said.contains(name) && socket_.waitForReadyRead(patience))
            said += socket_.readAll();
        EXPECT_TRUE(said.contains(name));
    }

private:
    static constexpr int patience = 20'000; // ms

    static QByteArray number(quint32 value) {
        QByteArray bytes(4, Qt::Uninitialized);
        qToLittleEndian(value, bytes.data());
        return bytes;
    }
    static QByteArray text(const QByteArray& value) {
        return number(static_cast<quint32>(value.size())) + value + '\0';
    }
    static void pad(QByteArray& bytes, qsizetype step) {
        bytes.resize((bytes.size() + step - 1) / step * step, '\0');
    }
    static QByteArray call(quint32 serial, const QByteArray& member, const QByteArray& signature,
                           const QByteArray& body) {
        QByteArray fields;
        const auto add = [&fields](char code, char type, const QByteArray& value) {
            pad(fields, 8);
            fields += QByteArray{} + code + '\1' + type + '\0' + value;
        };
        add(1, 'o', text("/org/freedesktop/DBus"));
        add(3, 's', text(member));
        add(6, 's', text("org.freedesktop.DBus"));
        if (!signature.isEmpty())
            add(8, 'g', static_cast<char>(signature.size()) + signature + '\0');
        QByteArray head = QByteArray("l\1\0\1", 4) + number(static_cast<quint32>(body.size())) +
                          number(serial) + number(static_cast<quint32>(fields.size())) + fields;
        pad(head, 8);
        return head + body;
    }

    QLocalSocket socket_;
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

TEST_F(DesktopTest, aBusThatNeverAnswersIsLeftAloneAndAnyOtherIsKept) {
    const QByteArray bus = qgetenv("DBUS_SESSION_BUS_ADDRESS");
    EXPECT_FALSE(leaveMuteSessionBus());
    EXPECT_EQ(qgetenv("DBUS_SESSION_BUS_ADDRESS"), bus);
    {
        const MuteService readers("org.a11y.Bus");
        EXPECT_TRUE(leaveMuteSessionBus());
    }
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
