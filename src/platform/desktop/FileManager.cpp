#include "platform/desktop/FileManager.h"

#include "platform/desktop/SessionBus.h"

#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QUrl>

namespace tessary {

namespace {

void show(const char* how, const QString& path, std::function<void()> otherwise) {
    const auto bus = sessionBus();
    if (!bus) {
        otherwise();
        return;
    }
    QDBusMessage call = QDBusMessage::createMethodCall(
        QStringLiteral("org.freedesktop.FileManager1"),
        QStringLiteral("/org/freedesktop/FileManager1"),
        QStringLiteral("org.freedesktop.FileManager1"), QString::fromLatin1(how));
    call << QStringList{QUrl::fromLocalFile(path).toString(QUrl::FullyEncoded)} << QString();
    auto* watcher = new QDBusPendingCallWatcher(bus->asyncCall(call));
    QObject::connect(watcher, &QDBusPendingCallWatcher::finished, watcher,
                     [watcher, otherwise = std::move(otherwise)] {
                         watcher->deleteLater();
                         if (watcher->isError())
                             otherwise();
                     });
}

} // namespace

void showInFileManager(const QString& path, std::function<void()> otherwise) {
    show("ShowItems", path, std::move(otherwise));
}

void showFolderInFileManager(const QString& path, std::function<void()> otherwise) {
    show("ShowFolders", path, std::move(otherwise));
}

} // namespace tessary
