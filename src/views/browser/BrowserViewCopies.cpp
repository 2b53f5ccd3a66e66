#include "base/text/Printable.h"
#include "browser/listing/EntryMimeData.h"
#include "views/browser/BrowserView.h"
#include "views/dialogs/ClashQuestion.h"

#include <QAbstractItemView>
#include <QDragEnterEvent>
#include <QFileDialog>
#include <QLabel>
#include <QMimeData>
#include <QPointer>
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
                return QFileDialog::getExistingDirectory(parent, tr("Copy to"), downloadsFolder());
            },
            [](QWidget* parent) {
                return QFileDialog::getOpenFileNames(parent, tr("Copy Files to the Phone"));
            },
            [](QWidget* parent) {
                return QFileDialog::getExistingDirectory(parent, tr("Copy a Folder to the Phone"));
            }};
}

void BrowserView::downloadSelected() {
    const QStringList ids = selectedIds();
    if (ids.isEmpty())
        return;
    const auto isStillHere = shownHere();
    const QString target = dialogs_.chooseTargetFolder(this);
    if (!target.isEmpty() && isStillHere())
        browser_.surveyDownload(ids, target, askAndCopy());
}

void BrowserView::upload(const QStringList& paths, const QString& intoFolderId) {
    if (!paths.isEmpty())
        browser_.surveyUpload(paths, intoFolderId, askAndCopy());
}

/// Starts a copy once the user has answered what there is to ask about it.
FileBrowserViewModel::SurveyDone BrowserView::askAndCopy() {
    return [self = QPointer<BrowserView>(this)](const CopyPlan& survey) {
        if (!self)
            return;
        const auto choices = askAboutClashes(self, survey);
        if (choices && askAboutSpace(self, survey, *choices) && self)
            self->browser_.copy(survey, *choices);
    };
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
        status_->setText(tr("Into “%1”").arg(printable(folder->name)));
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
