#include "views/common/EntryDrop.h"

#include <QDropEvent>
#include <QMimeData>
#include <QUrl>

#include <algorithm>

namespace tessary {

namespace {

const EntryMimeData* entriesOf(const QDropEvent& event) {
    return qobject_cast<const EntryMimeData*>(event.mimeData());
}

bool isMove(const QDropEvent& event) {
    return !event.modifiers().testFlag(Qt::ControlModifier);
}

} // namespace

bool EntryDrop::isOwn(const EntryMimeData& entries) const {
    return browser_.files() != nullptr && entries.identity() == browser_.files()->identity();
}

bool EntryDrop::isUsable(const QDropEvent& event) const {
    return browser_.files() != nullptr && browser_.state() == BrowserState::ready &&
           (entriesOf(event) != nullptr || event.mimeData()->hasUrls());
}

bool EntryDrop::consider(QDropEvent& event, const DropFolder& folder) const {
    bool isAccepted = isUsable(event) && !folder.path.isEmpty();
    const EntryMimeData* entries = entriesOf(event);
    if (isAccepted && entries != nullptr && isOwn(*entries)) {
        // Not where they are, not onto themselves, not into what they hold.
        const QString target = browser_.files()->canonicalPath(folder.path);
        const auto holdsTarget = [&](const FileItem& item) {
            const QString path = browser_.files()->canonicalPath(item.path);
            return path == target || target.startsWith(path + QLatin1Char('/'));
        };
        isAccepted = (!isMove(event) || target != browser_.currentPath()) &&
                     std::none_of(entries->items().begin(), entries->items().end(), holdsTarget);
        event.setDropAction(isMove(event) ? Qt::MoveAction : Qt::CopyAction);
    } else if (isAccepted) {
        event.setDropAction(Qt::CopyAction);
    }
    event.setAccepted(isAccepted);
    return isAccepted;
}

void EntryDrop::drop(QDropEvent& event, const DropFolder& folder) const {
    if (!consider(event, folder))
        return;
    if (const EntryMimeData* entries = entriesOf(event)) {
        callbacks_.take(*entries, folder.path,
                        isOwn(*entries) && isMove(event) ? EntryMimeData::Use::move
                                                         : EntryMimeData::Use::copy);
        return;
    }
    QStringList paths;
    for (const QUrl& url : event.mimeData()->urls())
        if (url.isLocalFile())
            paths.append(url.toLocalFile());
    callbacks_.upload(paths, folder.path);
}

} // namespace tessary
