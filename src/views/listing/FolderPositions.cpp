#include "views/listing/FolderPositions.h"

#include <QAbstractItemView>
#include <QScrollBar>

namespace tessary {

FolderPositions::FolderPositions(FileBrowserViewModel& browser,
                                 std::function<QAbstractItemView&()> listing, QObject* parent)
    : QObject(parent), browser_(browser), listing_(std::move(listing)) {
    connect(&browser, &FileBrowserViewModel::connectionChanged, this, &FolderPositions::startOver);
    connect(&browser, &FileBrowserViewModel::historyChanged, this,
            &FolderPositions::historyChanged);
    connect(&browser, &FileBrowserViewModel::pathChanged, this, &FolderPositions::folderChanged);
    connect(&browser, &FileBrowserViewModel::stateChanged, this, [this] {
        if (!browser_.isLoading())
            takeUp();
    });
}

void FolderPositions::startOver() {
    paths_.clear();
    positions_.clear();
    index_ = -1;
    awaited_.reset();
}

FolderPositions::Position FolderPositions::now() const {
    return {listing_().verticalScrollBar()->value(), browser_.selectedItems(),
            browser_.currentItemID().value_or(QString())};
}

/// Comes before the folder changes: what is shown is still the one that is left.
void FolderPositions::historyChanged() {
    const BrowserHistory& history = browser_.history();
    const bool isWalk = history.paths() == paths_;
    if (index_ >= 0 && index_ < static_cast<int>(positions_.size()))
        positions_[static_cast<std::size_t>(index_)] = now();
    paths_ = history.paths();
    index_ = history.index();
    if (!isWalk && index_ >= 0)
        positions_.resize(static_cast<std::size_t>(index_));
    positions_.resize(paths_.size());
    awaited_.reset();
    if (isWalk && index_ >= 0)
        awaited_ = positions_[static_cast<std::size_t>(index_)];
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
    browser_.setSelection(there, position.current);
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
