#include "adb/server/ADBServerAddress.h"

namespace tessary {

namespace {

std::optional<std::uint16_t> portFrom(const QString& text) {
    bool isNumber = false;
    const std::uint16_t port = text.toUShort(&isNumber);
    return isNumber && port > 0 ? std::optional(port) : std::nullopt;
}

std::optional<ADBServerAddress> fromSocketText(const QString& text) {
    for (const QLatin1StringView kind :
         {QLatin1StringView("localfilesystem:"), QLatin1StringView("local:")})
        if (text.startsWith(kind) && text.size() > kind.size()) {
            ADBServerAddress address;
            address.socketPath = text.mid(kind.size());
            return address;
        }
    constexpr QLatin1StringView tcp("tcp:");
    if (!text.startsWith(tcp))
        return std::nullopt;
    const QString rest = text.mid(tcp.size());
    const qsizetype colon = rest.lastIndexOf(QLatin1Char(':'));
    const auto port = portFrom(rest.mid(colon + 1));
    if (!port)
        return std::nullopt;
    ADBServerAddress address;
    address.port = *port;
    if (colon > 0)
        address.host = rest.left(colon);
    return address;
}

} // namespace

ADBServerAddress ADBServerAddress::of(const QProcessEnvironment& environment) {
    if (const auto address = fromSocketText(environment.value(QStringLiteral("ADB_SERVER_SOCKET"))))
        return *address;
    ADBServerAddress address;
    if (const QString host = environment.value(QStringLiteral("ANDROID_ADB_SERVER_ADDRESS"));
        !host.isEmpty())
        address.host = host;
    if (const auto port = portFrom(environment.value(QStringLiteral("ANDROID_ADB_SERVER_PORT"))))
        address.port = *port;
    return address;
}

std::optional<QString> ADBServerAddress::textForStart() const {
    if (!socketPath.isEmpty())
        return text();
    // With a host in figures the tool takes even this machine for another one.
    if (host == QLatin1StringView("localhost") || host == QLatin1StringView("127.0.0.1"))
        return QStringLiteral("tcp:%1").arg(port);
    return std::nullopt;
}

QString ADBServerAddress::text() const {
    return socketPath.isEmpty() ? QStringLiteral("tcp:%1:%2").arg(host).arg(port)
                                : QStringLiteral("localfilesystem:") + socketPath;
}

StreamSocket ADBServerAddress::connect(const Wait& wait) const {
    return socketPath.isEmpty() ? StreamSocket::connectTCP(host, port, wait)
                                : StreamSocket::connectLocal(socketPath, wait);
}

} // namespace tessary
