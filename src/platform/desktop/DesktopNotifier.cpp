#include "platform/desktop/DesktopNotifier.h"

#include "platform/desktop/SessionBus.h"

#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QVariantMap>

namespace tessary {

namespace {

constexpr QLatin1StringView service("org.freedesktop.Notifications");
constexpr QLatin1StringView path("/org/freedesktop/Notifications");
constexpr QLatin1StringView clicked("default"); ///< the action of the message itself

} // namespace

void DesktopNotifier::notify(const QString& title, const QString& text,
                             std::function<void()> whenClicked) {
    auto bus = sessionBus();
    if (!bus)
        return;
    if (!whenClicked_)
        bus->connect(service, path, service, QStringLiteral("ActionInvoked"), this,
                     SLOT(actionInvoked(uint, QString)));
    whenClicked_ = std::move(whenClicked);
    lastId_ = 0;
    QDBusMessage call =
        QDBusMessage::createMethodCall(service, path, service, QStringLiteral("Notify"));
    constexpr uint replacesNone = 0;
    constexpr int asLongAsUsual = -1;
    // The text may be taken for markup; the title never is.
    call << QStringLiteral("Tessary") << replacesNone << QStringLiteral("tessary") << title
         << text.toHtmlEscaped() << QStringList{clicked, QString()}
         << QVariantMap{{QStringLiteral("desktop-entry"), QStringLiteral("tessary")}}
         << asLongAsUsual;
    // Whoever answers, or nobody.
    auto* answer = new QDBusPendingCallWatcher(bus->asyncCall(call), this);
    connect(answer, &QDBusPendingCallWatcher::finished, this, [this, answer] {
        answer->deleteLater();
        if (const QDBusPendingReply<uint> reply = *answer; reply.isValid())
            lastId_ = reply.value();
    });
}

void DesktopNotifier::actionInvoked(uint id, const QString& action) {
    if (id == lastId_ && id != 0 && action == clicked)
        whenClicked_();
}

} // namespace tessary
