#include "platform/desktop/MuteSessionBus.h"

#include "base/log/DiagnosticsLogger.h"
#include "platform/net/NetworkError.h"
#include "platform/net/StreamSocket.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCall>
#include <QFileInfo>

#include <unistd.h>

#include <array>
#include <vector>

namespace tessary {

namespace {

constexpr const char* addressVariable = "DBUS_SESSION_BUS_ADDRESS";

/// Where the bus listens in the file system; empty when it is reached in another way.
QString socketOfSessionBus() {
    const QString runtime = qEnvironmentVariable("XDG_RUNTIME_DIR");
    if (!qEnvironmentVariableIsSet(addressVariable))
        return runtime.isEmpty() ? QString() : runtime + QStringLiteral("/bus");
    // "unix:path=/run/user/1000/bus,guid=…;tcp:…": the first way is tried first.
    const QString way = qEnvironmentVariable(addressVariable).section(QLatin1Char(';'), 0, 0);
    constexpr QLatin1StringView front("unix:path=");
    return way.startsWith(front) ? way.mid(front.size()).section(QLatin1Char(','), 0, 0)
                                 : QString();
}

/// The bus itself greets.
bool greets(const QString& path) {
    using namespace std::chrono_literals;
    try {
        // The beginning of a handshake, which each bus answers at once, be it by a refusal.
        const Wait wait{{}, 1s};
        StreamSocket socket = StreamSocket::connectLocal(path, wait);
        const QByteArray hello = QByteArray(1, '\0') + "AUTH EXTERNAL " +
                                 QByteArray::number(::getuid()).toHex() + "\r\n";
        socket.write(std::as_bytes(std::span(hello)), wait);
        std::array<std::byte, 64> answer{};
        (void)socket.read(answer, wait);
        return true;
    } catch (const Error& error) {
        return !error.is(NetworkError::timedOut);
    }
}

/// Those on it that Qt waits for, half a minute for each answer, where they run at all.
bool areServicesAnswering(const QString& path) {
    constexpr int limit = 2000; // ms, for all of them
    const QString name = QStringLiteral("tessary-look");
    bool areAnswering = true;
    {
        const QDBusConnection bus =
            QDBusConnection::connectToBus(QStringLiteral("unix:path=") + path, name);
        std::vector<QDBusPendingCall> asked;
        for (const char* service :
             {"org.a11y.Bus", "com.canonical.AppMenu.Registrar", "org.kde.StatusNotifierWatcher",
              "org.freedesktop.portal.Desktop"}) {
            QDBusMessage ping = QDBusMessage::createMethodCall(
                QString::fromLatin1(service), QStringLiteral("/"),
                QStringLiteral("org.freedesktop.DBus.Peer"), QStringLiteral("Ping"));
            ping.setAutoStartService(false);
            asked.push_back(bus.asyncCall(ping, limit));
        }
        for (QDBusPendingCall& call : asked) {
            call.waitForFinished();
            areAnswering = areAnswering && call.error().type() != QDBusError::NoReply;
        }
    }
    QDBusConnection::disconnectFromBus(name);
    return areAnswering;
}

} // namespace

bool leaveMuteSessionBus() {
    const QString path = socketOfSessionBus();
    if (!QFileInfo::exists(path) || (greets(path) && areServicesAnswering(path)))
        return false;
    DiagnosticsLogger::shared().ui.error("the session bus does not answer: going without it");
    qputenv(addressVariable, "unix:path=/dev/null/mute");
    return true;
}

} // namespace tessary
