// What the user does to the entries of a browser: edits, copies, previews and drags.

#include "base/log/DiagnosticsLogger.h"
#include "base/threads/Background.h"
#include "base/threads/CancellationError.h"
#include "browser/model/FileBrowserViewModel.h"
#include "phone/DevicePath.h"

#include <QFileInfo>

#include <algorithm>
#include <atomic>

namespace tessary {

namespace {

/// Why an entry cannot be dragged to this computer, whatever the way; empty when it can.
QString obstacleTo(const FileItem& item) {
    return isSafeName(item.name) && !isTooLongName(item.name)
               ? QString()
               : QStringLiteral("The name \"%1\" cannot be used on this computer.").arg(item.name);
}

/// Copies each entry beforehand; blocking.
DragFiles stage(FileAccess& files, const std::vector<FileItem>& items,
                const std::stop_token& stop) {
    DragFiles drag;
    // Then nothing can be dropped elsewhere, and a move within the window needs no copies.
    for (const FileItem& item : items)
        if (item.isDirectory)
            drag.notReady.push_back({item.path, QStringLiteral("folders are copied, not dragged")});
    if (!drag.notReady.empty())
        return drag;
    for (const FileItem& item : items) {
        throwIfStopped(stop);
        try {
            const QString path = files.stageItemForDrag(item, stop);
            if (QFileInfo(path).isFile())
                drag.localPaths << path;
            else
                drag.notReady.push_back(
                    {item.path, QStringLiteral("it is still being copied from the phone")});
        } catch (const CancellationError&) {
            throw;
        } catch (const std::exception& error) {
            drag.notReady.push_back({item.path, adviceFor(error).message});
        }
    }
    return drag;
}

/// Promises the entries, or where that cannot be done copies them beforehand; blocking.
DragFiles prepare(const std::shared_ptr<FileAccess>& files, const std::vector<FileItem>& items,
                  OnDemandMount* promises, const std::stop_token& stop) {
    DragFiles drag;
    for (const FileItem& item : items)
        if (const QString obstacle = obstacleTo(item); !obstacle.isEmpty())
            drag.notReady.push_back({item.path, obstacle});
    if (!drag.notReady.empty())
        return drag;
    if (promises != nullptr)
        drag.localPaths = promises->promise(files, items);
    return drag.localPaths.isEmpty() ? stage(*files, items, stop) : drag;
}

} // namespace

void FileBrowserViewModel::cancelEdits() {
    for (std::stop_source& stop : edits_)
        stop.request_stop();
}

QString FileBrowserViewModel::freeFolderName() const {
    return tessary::freeFolderName(items());
}

/// Does something to each entry in the background, reports, and reads the folder again.
void FileBrowserViewModel::edit(std::vector<FileItem> items, const QString& verb, EditAction action,
                                EditDone whenDone, const QStringList& newPaths) {
    if (!files_ || items.empty())
        return;
    QStringList changedPaths = newPaths;
    for (const FileItem& item : items)
        changedPaths << item.path;
    const auto total = static_cast<int>(items.size());
    if (edits_.empty())
        editProgress_ = {};
    editProgress_.total += total;
    // The main thread shows the newest count, however many there were.
    const QPointer<FileBrowserViewModel> self(this);
    const auto shown = std::make_shared<std::atomic<bool>>(true);
    const auto done = std::make_shared<std::atomic<int>>(editProgress_.done);
    const auto progress = [self, shown, done](int count, int before) {
        *done = before + count;
        if (!shown->exchange(false))
            return;
        MainThread::post([self, shown, done] {
            *shown = true;
            if (!self || !self->isEditing())
                return;
            self->editProgress_.done = *done;
            Q_EMIT self->editingChanged();
        });
    };
    const auto source = std::make_shared<std::stop_source>(std::nostopstate);
    *source = runInBackground(
        this,
        [files = files_, items = std::move(items), verb, action, progress,
         before = editProgress_.done](const std::stop_token& stop) {
            return editEach(
                *files, items, verb,
                [&](const FileItem& item, const std::stop_token& token) {
                    action(*files, item, token);
                },
                [&](int count) { progress(count, before); }, stop);
        },
        [this, source, whenDone, changedPaths, files = files_,
         path = currentPath_](BackgroundResult<BrowserEditReport> result) {
            edits_.erase(std::find(edits_.begin(), edits_.end(), *source));
            Q_EMIT editingChanged();
            for (const QString& changed : changedPaths)
                folders_.entryChanged(files->identity(), changed);
            if (!result.succeeded())
                return;
            const BrowserEditReport report = result.take();
            if (whenDone && !report.donePaths.isEmpty())
                whenDone(report.donePaths);
            applyEdit(report, files.get(), path);
        });
    edits_.push_back(*source);
    Q_EMIT editingChanged();
}

void FileBrowserViewModel::applyEdit(const BrowserEditReport& report, const FileAccess* editedFiles,
                                     const QString& path) {
    if (report.error)
        setError(report.error);
    if (!files_ || files_->identity() != editedFiles->identity() || path != currentPath_)
        return;
    if (report.isDeviceLost)
        setState(BrowserState::deviceLost, false);
    else
        reload();
}

void FileBrowserViewModel::refuse(const QString& verb, const FileItem& item,
                                  const QString& reason) {
    setError(ErrorAdvice{QStringLiteral("Failed to %1 %2: %3").arg(verb, item.name, reason), {}});
}

void FileBrowserViewModel::createFolder(const QString& name) {
    const QString wanted = name.isEmpty() ? freeFolderName() : name;
    // The folder does not exist yet: an entry that only carries its name and place.
    FileItem folder(wanted, joinPath(currentPath_, wanted), true, 0, std::nullopt);
    edit(
        {std::move(folder)}, QStringLiteral("create"),
        [parent = currentPath_](FileAccess& files, const FileItem& item,
                                const std::stop_token& stop) {
            files.createFolder(item.name, parent, stop);
        },
        [this, wanted, parent = currentPath_](const QStringList&) {
            if (parent == currentPath_)
                awaited_ = Awaited{wanted, true};
        });
}

void FileBrowserViewModel::deleteItems(const QStringList& ids) {
    edit(
        itemsWithIds(ids), QStringLiteral("delete"),
        [](FileAccess& files, const FileItem& item, const std::stop_token& stop) {
            files.deleteItem(item, stop);
        },
        [this](const QStringList& paths) { Q_EMIT itemsDeleted(paths); });
}

void FileBrowserViewModel::renameItem(const QString& id, const QString& newName) {
    const FileItem* item = itemWithId(id);
    if (!item || newName == item->name)
        return;
    const QString verb = QStringLiteral("rename");
    if (newName.isEmpty()) {
        refuse(verb, *item, QStringLiteral("a name cannot be empty"));
        return;
    }
    // Phones let two entries share a name: then neither could be told from the other.
    const auto isTaken = [&](const FileItem& other) { return other.name == newName; };
    if (std::any_of(items().begin(), items().end(), isTaken)) {
        refuse(verb, *item, QStringLiteral("\"%1\" is already there").arg(newName));
        return;
    }
    edit(
        {*item}, verb,
        [newName](FileAccess& files, const FileItem& entry, const std::stop_token& stop) {
            files.renameItem(entry, newName, stop);
        },
        [this, newName, folder = currentPath_](const QStringList& paths) {
            if (folder == currentPath_)
                awaited_ = Awaited{newName};
            Q_EMIT itemRenamed(paths.front(), joinPath(parentPath(paths.front()), newName));
        },
        {joinPath(parentPath(item->path), newName)});
}

void FileBrowserViewModel::moveSelectedItems(const QString& toFolderId) {
    const FileItem* folder = itemWithId(toFolderId);
    if (!folder || !folder->isDirectory)
        return;
    QStringList ids;
    for (const QString& id : selection_.ids())
        if (id != toFolderId)
            ids << id;
    moveItemsToPath(ids, folder->path);
}

void FileBrowserViewModel::moveSelectedItemsToPath(const QString& path) {
    moveItemsToPath(QStringList(selection_.ids().begin(), selection_.ids().end()), path);
}

void FileBrowserViewModel::moveItemsToPath(const QStringList& ids, const QString& path) {
    if (!files_)
        return;
    const QString target = files_->canonicalPath(path);
    if (target == currentPath_)
        return;
    std::vector<FileItem> items = itemsWithIds(ids);
    QStringList newPaths;
    for (const FileItem& item : items)
        newPaths << joinPath(target, item.name);
    edit(
        std::move(items), QStringLiteral("move"),
        [target](FileAccess& files, const FileItem& item, const std::stop_token& stop) {
            files.moveItem(item, target, stop);
        },
        {}, newPaths);
}

void FileBrowserViewModel::cacheFileForPreview(const QString& id) {
    const FileItem* item = itemWithId(id);
    cancelPreview();
    if (!files_ || !item)
        return;
    const std::uint64_t number = previewNumber_;
    // The main thread shows the newest figure, however many there were.
    const QPointer<FileBrowserViewModel> self(this);
    const auto shown = std::make_shared<std::atomic<bool>>(true);
    const auto progress = [self, shown, id, number](qint64 done, qint64 total) {
        if (!shown->exchange(false))
            return;
        MainThread::post([self, shown, id, number, done, total] {
            *shown = true;
            if (self && number == self->previewNumber_)
                Q_EMIT self->previewProgress(id, done, total);
        });
    };
    stopPreview_ = runInBackground(
        this,
        [files = files_, item = *item, &previews = previews_, progress](
            const std::stop_token& stop) { return previews.fetch(*files, item, progress, stop); },
        [this, id, number](BackgroundResult<QString> result) {
            if (number != previewNumber_)
                return;
            try {
                const QString path = result.take();
                Q_EMIT previewReady(id, path);
            } catch (const CancellationError&) {
                // Nobody waits for it.
            } catch (const std::exception& error) {
                const ErrorAdvice words = adviceFor(error);
                DiagnosticsLogger::shared().ui.error("Failed to cache file for preview: %s",
                                                     {words.message});
                Q_EMIT previewFailed(id, words);
            }
        });
}

void FileBrowserViewModel::cancelPreview() {
    ++previewNumber_;
    stopPreview_.request_stop();
}

std::stop_source
FileBrowserViewModel::prepareDragURLs(const QStringList& ids,
                                      std::function<void(const DragFiles&)> whenReady) {
    if (!files_)
        return std::stop_source(std::nostopstate);
    return runInBackground(
        this,
        [files = files_, items = itemsWithIds(ids), promises = promises_](
            const std::stop_token& stop) { return prepare(files, items, promises, stop); },
        [whenReady = std::move(whenReady)](BackgroundResult<DragFiles> result) {
            if (result.succeeded())
                whenReady(result.take());
        });
}

} // namespace tessary
