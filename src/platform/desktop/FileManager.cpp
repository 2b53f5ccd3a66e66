#include "platform/desktop/FileManager.h"

#include "platform/desktop/SessionBus.h"

#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QUrl>

namespace tessary {

void showInFileManager(const QString& path, std::function<void()> otherwise) {
    const auto bus = sessionBus();
    if (!bus) {
        otherwise();
        return;
    }
    QDBusMessage call = QDBusMessage::createMethodCall(
        QStringLiteral("org.freedesktop.FileManager1"),
        QStringLiteral("/org/freedesktop/FileManager1"),
        QStringLiteral("org.freedesktop.FileManager1"), QStringLiteral("ShowItems"));
    call << QStringList{QUrl::fromLocalFile(path).toString(QUrl::FullyEncoded)} << QString();
    auto* watcher = new QDBusPendingCallWatcher(bus->asyncCall(call));
    QObject::connect(watcher, &QDBusPendingCallWatcher::finished, watcher,
                     [watcher, otherwise = std::move(otherwise)] {
                         watcher->deleteLater();
                         if (watcher->isError())
                             otherwise();
                     });
}

} // namespace tessary
