#include "views/listing/FolderPositions.h"

#include <QAbstractItemView>
#include <QScrollBar>

namespace tessary {

FolderPositions::FolderPositions(FileBrowserViewModel& browser,
                                 std::function<QAbstractItemView&()> listing, QObject* parent)
    : QObject(parent), browser_(browser), listing_(std::move(listing)) {
    connect(&browser, &FileBrowserViewModel::connectionChanged, this,
            &FolderPositions::connectionChanged);
    connect(&browser, &FileBrowserViewModel::historyChanged, this,
            &FolderPositions::historyChanged);
    connect(&browser, &FileBrowserViewModel::pathChanged, this, &FolderPositions::folderChanged);
    connect(&browser, &FileBrowserViewModel::stateChanged, this, [this] {
        if (!browser_.isLoading())
            takeUp();
    });
}

/// Comes before the folder changes.
void FolderPositions::connectionChanged() {
    const QString identity = browser_.files() ? browser_.files()->identity() : QString();
    if (identity == identity_)
        return; // only more is known of it
    leave();
    left_.insert(identity_, std::move(visits_));
    visits_ = left_.take(identity);
    identity_ = identity;
    index_ = -1;
    awaited_.reset();
}

void FolderPositions::leave() {
    if (index_ >= 0 && index_ < static_cast<int>(visits_.positions.size()))
        visits_.positions[static_cast<std::size_t>(index_)] = now();
}

FolderPositions::Position FolderPositions::now() const {
    return {listing_().verticalScrollBar()->value(), browser_.selection().ids(),
            browser_.selection().currentId().value_or(QString())};
}

/// Comes before the folder changes: what is shown is still the one that is left.
void FolderPositions::historyChanged() {
    const BrowserHistory& history = browser_.history();
    const bool isWalk = history.paths() == visits_.paths;
    const int before = index_;
    leave();
    visits_.paths = history.paths();
    index_ = history.index();
    if (!isWalk)
        visits_.positions.resize(before < 0 ? 0 : static_cast<std::size_t>(index_));
    visits_.positions.resize(visits_.paths.size());
    awaited_.reset();
    if (isWalk)
        awaited_ = visits_.positions[static_cast<std::size_t>(index_)];
}

void FolderPositions::folderChanged() {
    listing_().scrollToTop();
    if (!browser_.items().empty())
        takeUp();
}

void FolderPositions::takeUp() {
    if (!awaited_)
        return;
    const Position position = *std::exchange(awaited_, std::nullopt);
    QSet<QString> there;
    for (const QString& id : position.selected)
        if (browser_.itemWithId(id) != nullptr)
            there.insert(id);
    browser_.selection().set(there, position.current);
    // The rows have to have their places first; then the selection has scrolled, too.
    QMetaObject::invokeMethod(
        this,
        [this, scroll = position.scroll, path = browser_.currentPath()] {
            if (path == browser_.currentPath())
                listing_().verticalScrollBar()->setValue(scroll);
        },
        Qt::QueuedConnection);
}

} // namespace tessary
