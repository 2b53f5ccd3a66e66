#include "app/Translations.h"
#include "app/views/BrowserView.h"
#include "app/views/ClashQuestion.h"
#include "core/Background.h"
#include "core/Printable.h"
#include "files/EntryMimeData.h"

#include <QAbstractItemView>
#include <QDir>
#include <QDragEnterEvent>
#include <QFileDialog>
#include <QFileInfo>
#include <QLabel>
#include <QMimeData>
#include <QStackedWidget>
#include <QStandardPaths>

#include <algorithm>

// The copies to and from the phone that a browser view starts, by command and by drag and drop.

namespace tessary {

namespace {

QString downloadsFolder() {
    return QStandardPaths::writableLocation(QStandardPaths::DownloadLocation);
}

} // namespace

BrowserView::Dialogs BrowserView::systemDialogs() {
    return {[](QWidget* parent) {
                return QFileDialog::getExistingDirectory(parent, tessary::tr("Copy to"),
                                                         downloadsFolder());
            },
            [](QWidget* parent) {
                return QFileDialog::getOpenFileNames(parent,
                                                     tessary::tr("Copy Files to the Phone"));
            },
            [](QWidget* parent) {
                return QFileDialog::getExistingDirectory(parent,
                                                         tessary::tr("Copy a Folder to the Phone"));
            }};
}

void BrowserView::downloadSelected() {
    const QStringList ids = selectedIds();
    if (ids.isEmpty())
        return;
    const auto isStillHere = shownHere();
    const QString target = dialogs_.chooseTargetFolder(this);
    if (target.isEmpty() || !isStillHere())
        return;
    const QStringList taken = browser_.namesTakenIn(target, ids);
    std::vector<Clash> clashes;
    for (const FileItem& item : browser_.selectedEntries()) {
        if (!taken.contains(item.name))
            continue;
        const QFileInfo existing(QDir(target), item.name);
        clashes.push_back({item.id(),
                           item.name,
                           item.isDirectory,
                           {item.size, item.modifiedDate},
                           {existing.size(), existing.lastModified()}});
    }
    const auto choices = askAboutClashes(this, clashes, true);
    if (!choices)
        return;
    QStringList replacing;
    QStringList keeping;
    for (const QString& id : ids) {
        const ClashChoice choice = choices->value(id, ClashChoice::keepBoth);
        if (choice != ClashChoice::skip)
            (choice == ClashChoice::replace ? replacing : keeping).append(id);
    }
    if (!replacing.isEmpty())
        browser_.downloadItems(replacing, target, NameClash::replace);
    if (!keeping.isEmpty())
        browser_.downloadItems(keeping, target, NameClash::keepBoth);
}

void BrowserView::upload(const QStringList& paths, const QString& intoFolderId) {
    if (paths.isEmpty() || browser_.files() == nullptr)
        return;
    const FileItem* folder = intoFolderId.isEmpty() ? nullptr : browser_.itemWithId(intoFolderId);
    if (folder == nullptr) {
        uploadBeside(paths, {}, browser_.items());
        return;
    }
    // What is in a folder that is not shown has to be read first.
    runInBackground(
        this,
        [files = browser_.files(), path = folder->path](const std::stop_token& stop) {
            return files->listDirectory(path, stop);
        },
        [this, paths, intoFolderId](BackgroundResult<std::vector<FileItem>> listing) {
            // A folder that cannot be read takes no files either: the copy says why.
            uploadBeside(paths, intoFolderId,
                         listing.succeeded() ? listing.take() : std::vector<FileItem>());
        });
}

/// Uploads next to these entries, of which some may have to be replaced.
void BrowserView::uploadBeside(const QStringList& paths, const QString& intoFolderId,
                               const std::vector<FileItem>& entries) {
    QHash<QString, const FileItem*> byName;
    for (const FileItem& item : entries)
        byName.insert(item.name, &item);
    std::vector<Clash> clashes;
    for (const QString& path : paths) {
        const QFileInfo local(path);
        if (const FileItem* item = byName.value(local.fileName()))
            clashes.push_back({path,
                               item->name,
                               local.isDir(),
                               {local.size(), local.lastModified()},
                               {item->size, item->modifiedDate}});
    }
    const auto choices = askAboutClashes(this, clashes, false);
    if (!choices)
        return;
    QStringList wanted;
    for (const QString& path : paths)
        if (choices->value(path, ClashChoice::replace) == ClashChoice::replace)
            wanted.append(path);
    if (!wanted.isEmpty())
        browser_.uploadFiles(wanted, intoFolderId);
}

/// Entries that the window itself drags: from this connection, and not onto themselves.
const EntryMimeData* BrowserView::ownEntries(const QDropEvent& event) const {
    const auto* entries = qobject_cast<const EntryMimeData*>(event.mimeData());
    return entries != nullptr && browser_.files() != nullptr &&
                   entries->identity() == browser_.files()->identity()
               ? entries
               : nullptr;
}

void BrowserView::dragEnterEvent(QDragEnterEvent* event) {
    const bool isUsable = browser_.files() != nullptr && browser_.state() == BrowserState::ready;
    if (isUsable && (ownEntries(*event) != nullptr || event->mimeData()->hasUrls()))
        event->acceptProposedAction();
}

void BrowserView::dragMoveEvent(QDragMoveEvent* event) {
    const QString folder = folderUnder(event->position().toPoint());
    if (const EntryMimeData* entries = ownEntries(*event)) {
        const bool isOntoItself =
            std::any_of(entries->items().begin(), entries->items().end(),
                        [&folder](const FileItem& item) { return item.id() == folder; });
        event->setDropAction(Qt::MoveAction);
        event->setAccepted(!folder.isEmpty() && !isOntoItself);
    } else {
        event->setDropAction(Qt::CopyAction);
        event->accept();
    }
    showDropTarget(event->isAccepted() ? folder : QString());
}

void BrowserView::dragLeaveEvent(QDragLeaveEvent* event) {
    showDropTarget({});
    QWidget::dragLeaveEvent(event);
}

void BrowserView::showDropTarget(const QString& folderId) {
    const FileItem* folder = folderId.isEmpty() ? nullptr : browser_.itemWithId(folderId);
    if (folder != nullptr)
        status_->setText(tessary::tr("Into “%1”").arg(printable(folder->name)));
    else
        showStatus();
}

/// The folder of the listing at a position of this widget; empty for anything else.
QString BrowserView::folderUnder(const QPoint& position) const {
    const QAbstractItemView& view = currentListing();
    if (stack_->currentWidget() != &view)
        return {};
    const QModelIndex index = view.indexAt(view.viewport()->mapFrom(this, position));
    return index.data(FileListModel::isDirectoryRole).toBool()
               ? index.data(FileListModel::idRole).toString()
               : QString();
}

void BrowserView::dropEvent(QDropEvent* event) {
    showDropTarget({});
    const QString folder = folderUnder(event->position().toPoint());
    if (const EntryMimeData* entries = ownEntries(*event)) {
        QStringList ids;
        for (const FileItem& item : entries->items())
            ids.append(item.id());
        if (const FileItem* target = browser_.itemWithId(folder)) {
            event->setDropAction(Qt::MoveAction);
            event->accept();
            browser_.moveItemsToPath(ids, target->path);
        }
        return;
    }
    QStringList paths;
    for (const QUrl& url : event->mimeData()->urls())
        if (url.isLocalFile())
            paths.append(url.toLocalFile());
    if (paths.isEmpty())
        return;
    event->setDropAction(Qt::CopyAction);
    event->accept();
    upload(paths, folder);
}

} // namespace tessary
