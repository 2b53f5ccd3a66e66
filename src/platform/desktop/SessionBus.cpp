#include "platform/desktop/SessionBus.h"

#include <QFileInfo>

namespace tessary {

std::optional<QDBusConnection> sessionBus() {
    // Without one, joining would start a bus of its own.
    const QString runtime = qEnvironmentVariable("XDG_RUNTIME_DIR");
    if (!qEnvironmentVariableIsSet("DBUS_SESSION_BUS_ADDRESS") &&
        (runtime.isEmpty() || !QFileInfo::exists(runtime + QStringLiteral("/bus"))))
        return std::nullopt;
    const QDBusConnection bus = QDBusConnection::sessionBus();
    return bus.isConnected() ? std::optional(bus) : std::nullopt;
}

} // namespace tessary
