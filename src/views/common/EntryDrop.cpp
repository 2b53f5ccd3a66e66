#include "views/common/EntryDrop.h"

#include "browser/listing/EntryMimeData.h"

#include <QDropEvent>
#include <QMimeData>
#include <QUrl>

#include <algorithm>

namespace tessary {

namespace {

/// Entries that the window itself drags, from this connection.
const EntryMimeData* ownEntries(const FileBrowserViewModel& browser, const QDropEvent& event) {
    const auto* entries = qobject_cast<const EntryMimeData*>(event.mimeData());
    return entries != nullptr && browser.files() != nullptr &&
                   entries->identity() == browser.files()->identity()
               ? entries
               : nullptr;
}

} // namespace

bool EntryDrop::isUsable(const QDropEvent& event) const {
    return browser_.files() != nullptr && browser_.state() == BrowserState::ready &&
           (ownEntries(browser_, event) != nullptr || event.mimeData()->hasUrls());
}

bool EntryDrop::consider(QDropEvent& event, const DropFolder& folder) const {
    bool isAccepted = isUsable(event) && !folder.path.isEmpty();
    if (const EntryMimeData* entries = ownEntries(browser_, event); isAccepted && entries) {
        // Not where they are, not onto themselves, not into what they hold.
        const QString target = browser_.files()->canonicalPath(folder.path);
        const auto holdsTarget = [&](const FileItem& item) {
            const QString path = browser_.files()->canonicalPath(item.path);
            return path == target || target.startsWith(path + QLatin1Char('/'));
        };
        isAccepted = target != browser_.currentPath() &&
                     std::none_of(entries->items().begin(), entries->items().end(), holdsTarget);
        event.setDropAction(Qt::MoveAction);
    } else if (isAccepted) {
        // What else there is of the phone is copied to while it is shown.
        isAccepted = !folder.id.isEmpty() || folder.path == browser_.currentPath();
        event.setDropAction(Qt::CopyAction);
    }
    event.setAccepted(isAccepted);
    return isAccepted;
}

void EntryDrop::drop(QDropEvent& event, const DropFolder& folder) const {
    if (!consider(event, folder))
        return;
    if (const EntryMimeData* entries = ownEntries(browser_, event)) {
        QStringList ids;
        for (const FileItem& item : entries->items())
            ids.append(item.id());
        browser_.moveItemsToPath(ids, folder.path);
        return;
    }
    QStringList paths;
    for (const QUrl& url : event.mimeData()->urls())
        if (url.isLocalFile())
            paths.append(url.toLocalFile());
    upload_(paths, folder.id);
}

} // namespace tessary
