#include "views/common/EntryDrop.h"

#include "base/text/PathNames.h"

#include <QCursor>
#include <QDropEvent>
#include <QMenu>
#include <QMimeData>
#include <QUrl>

#include <algorithm>
#include <optional>

namespace tessary {

namespace {

const EntryMimeData* entriesOf(const QDropEvent& event) {
    return qobject_cast<const EntryMimeData*>(event.mimeData());
}

/// Shift moves, Ctrl copies; without them what is dragged moves within its phone and is copied
/// elsewhere.
bool isMove(const QDropEvent& event, bool isOwn) {
    const bool shift = event.modifiers().testFlag(Qt::ShiftModifier);
    const bool control = event.modifiers().testFlag(Qt::ControlModifier);
    return shift != control ? shift : isOwn;
}

/// Alt has the user choose from a menu, where the drop is. No value when he wants neither.
std::optional<EntryMimeData::Use> useOf(const QDropEvent& event, bool isOwn) {
    using Use = EntryMimeData::Use;
    if (!event.modifiers().testFlag(Qt::AltModifier))
        return isMove(event, isOwn) ? Use::move : Use::copy;
    QMenu menu;
    const QAction* move = menu.addAction(EntryDrop::tr("Move Here"));
    const QAction* copy = menu.addAction(EntryDrop::tr("Copy Here"));
    menu.addSeparator();
    menu.addAction(EntryDrop::tr("Cancel"));
    const QAction* chosen = menu.exec(QCursor::pos());
    if (chosen == move)
        return Use::move;
    return chosen == copy ? std::optional(Use::copy) : std::nullopt;
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
            return isAtOrBelow(target, browser_.files()->canonicalPath(item.path));
        };
        const bool moves = isMove(event, true);
        const auto isThere = [&](const FileItem& item) {
            return browser_.files()->canonicalPath(parentPath(item.path)) == target;
        };
        isAccepted =
            (!moves || !std::all_of(entries->items().begin(), entries->items().end(), isThere)) &&
            std::none_of(entries->items().begin(), entries->items().end(), holdsTarget);
        event.setDropAction(moves ? Qt::MoveAction : Qt::CopyAction);
    } else if (isAccepted) {
        event.setDropAction(isMove(event, false) ? Qt::MoveAction : Qt::CopyAction);
    }
    event.setAccepted(isAccepted);
    return isAccepted;
}

void EntryDrop::drop(QDropEvent& event, const DropFolder& folder) const {
    if (!consider(event, folder))
        return;
    if (const EntryMimeData* entries = entriesOf(event)) {
        if (const auto use = useOf(event, isOwn(*entries)))
            callbacks_.take(*entries, folder.path, *use);
        return;
    }
    QStringList paths;
    for (const QUrl& url : event.mimeData()->urls())
        if (url.isLocalFile())
            paths.append(url.toLocalFile());
    const auto use = useOf(event, false);
    // Who dragged them must not remove them before they are here: the move is this program's.
    event.setDropAction(Qt::CopyAction);
    if (use)
        callbacks_.upload(paths, folder.path, *use);
}

} // namespace tessary
