#pragma once

#include "platform/net/StreamSocket.h"

#include <QProcessEnvironment>
#include <QString>

#include <cstdint>
#include <optional>

namespace tessary {

/// Where an adb server listens. A value.
struct ADBServerAddress {
    static constexpr std::uint16_t defaultPort = 5037;

    QString host = QStringLiteral("127.0.0.1"); ///< in figures, or "localhost"
    std::uint16_t port = defaultPort;
    QString socketPath; ///< of a socket in the file system instead, unless empty

    /// What the adb tool would take: ADB_SERVER_SOCKET ("tcp:PORT", "tcp:HOST:PORT",
    /// "localfilesystem:PATH", "local:PATH"), else ANDROID_ADB_SERVER_ADDRESS and
    /// ANDROID_ADB_SERVER_PORT. What cannot be understood counts as not set.
    [[nodiscard]] static ADBServerAddress
    of(const QProcessEnvironment& environment = QProcessEnvironment::systemEnvironment());

    /// What tells the adb tool to start a server there; no value for another machine's address.
    [[nodiscard]] std::optional<QString> textForStart() const;
    /// As in ADB_SERVER_SOCKET.
    [[nodiscard]] QString text() const;
    /// Fails as StreamSocket does.
    [[nodiscard]] StreamSocket connect(const Wait& wait) const;

    bool operator==(const ADBServerAddress&) const = default;
};

} // namespace tessary
