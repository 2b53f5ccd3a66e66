#include "platform/desktop/MuteSessionBus.h"

#include "base/log/DiagnosticsLogger.h"
#include "platform/net/NetworkError.h"
#include "platform/net/StreamSocket.h"

#include <QFileInfo>

#include <unistd.h>

#include <array>

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

} // namespace

bool leaveMuteSessionBus() {
    using namespace std::chrono_literals;
    const QString path = socketOfSessionBus();
    if (!QFileInfo::exists(path))
        return false;
    try {
        // The beginning of a handshake, which each bus answers at once, be it by a refusal.
        const Wait wait{{}, 1s};
        StreamSocket socket = StreamSocket::connectLocal(path, wait);
        const QByteArray hello = QByteArray(1, '\0') + "AUTH EXTERNAL " +
                                 QByteArray::number(::getuid()).toHex() + "\r\n";
        socket.write(std::as_bytes(std::span(hello)), wait);
        std::array<std::byte, 64> answer{};
        (void)socket.read(answer, wait);
        return false;
    } catch (const Error& error) {
        if (!error.is(NetworkError::timedOut))
            return false;
    }
    DiagnosticsLogger::shared().ui.error("the session bus does not answer: going without it");
    qputenv(addressVariable, "unix:path=/dev/null/mute");
    return true;
}

} // namespace tessary
