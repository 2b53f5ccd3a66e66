#include "platform/linux/DesktopNotifier.h"

#include "platform/linux/SessionBus.h"

#include <QDBusMessage>
#include <QDBusPendingCall>
#include <QVariantMap>

namespace tessary {

void DesktopNotifier::notify(const QString& title, const QString& text) {
    const auto bus = sessionBus();
    if (!bus)
        return;
    QDBusMessage call = QDBusMessage::createMethodCall(
        QStringLiteral("org.freedesktop.Notifications"),
        QStringLiteral("/org/freedesktop/Notifications"),
        QStringLiteral("org.freedesktop.Notifications"), QStringLiteral("Notify"));
    constexpr uint replacesNone = 0;
    constexpr int asLongAsUsual = -1;
    // The text may be taken for markup; the title never is.
    call << QStringLiteral("Tessary") << replacesNone << QStringLiteral("tessary") << title
         << text.toHtmlEscaped() << QStringList()
         << QVariantMap{{QStringLiteral("desktop-entry"), QStringLiteral("tessary")}}
         << asLongAsUsual;
    bus->asyncCall(call); // whoever answers, or nobody
}

} // namespace tessary
