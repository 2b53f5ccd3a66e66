#pragma once

#include "base/local/LocalSource.h"
#include "phone/TransferOutcome.h"
#include "phone/records/FileItem.h"

#include <QString>
#include <QStringList>

#include <memory>
#include <stop_token>
#include <vector>

namespace tessary {

/// The top of a browsable tree.
struct BrowserRoot {
    QString path;
    QString name; ///< as the path bar shows it

    bool operator==(const BrowserRoot&) const = default;
};

/// The files of one connection: a phone, or the documents of one app. What the browser and the
/// transfers work on.
///
/// Thread-safe. `identity`, `deviceName`, `rootOf` and `canonicalPath` answer at once and may be
/// called on any thread; all else blocks, is called off the main thread only, throws the errors of
/// its layer, and CancellationError once `stop` asks for it.
class FileAccess {
public:
    virtual ~FileAccess() = default;

    /// Tells this connection's files from those of any other; the same at every attachment.
    [[nodiscard]] virtual QString identity() const = 0;
    /// The device (or app) as the user knows it.
    [[nodiscard]] virtual QString deviceName() const = 0;
    /// The root of the tree that a path lies in.
    [[nodiscard]] virtual BrowserRoot rootOf(const QString& path) const = 0;
    /// The one form of a path that the browser shows and keeps: below its root, without a "/" at
    /// the end.
    [[nodiscard]] virtual QString canonicalPath(const QString& path) const = 0;

    [[nodiscard]] virtual std::vector<FileItem> listDirectory(const QString& at,
                                                              const std::stop_token& stop) = 0;
    /// The entry at a path; the root is a folder called after itself.
    [[nodiscard]] virtual FileItem itemAt(const QString& path, const std::stop_token& stop) = 0;

    /// Copies a file to `to`, a path that ends in the new file's name: whole or not at all.
    virtual void downloadFile(const FileItem& item, const QString& to,
                              const FileProgressCallback& progress,
                              const std::stop_token& stop) = 0;
    /// Copies a folder's content into `localFolder`, which is made when it is missing.
    [[nodiscard]] virtual TransferOutcome
    downloadDirectoryContents(const FileItem& item, const QString& localFolder,
                              const TransferProgressCallback& progress,
                              const std::stop_token& stop) = 0;
    /// Copies a file into a folder, under the source's name. An older file of that name is
    /// replaced.
    virtual void uploadFile(const LocalSource& source, const QString& remoteParentPath,
                            const FileProgressCallback& progress, const std::stop_token& stop) = 0;
    /// Copies a local folder into `remoteParentPath`, under the source's name.
    [[nodiscard]] virtual TransferOutcome uploadDirectory(const LocalSource& source,
                                                          const QString& remoteParentPath,
                                                          const TransferProgressCallback& progress,
                                                          const std::stop_token& stop) = 0;

    /// Until the result goes, the calls of this thread share what costs time to set up. May be
    /// null.
    [[nodiscard]] virtual std::shared_ptr<void> hold() {
        return nullptr;
    }

    virtual void createFolder(const QString& name, const QString& parentPath,
                              const std::stop_token& stop) = 0;
    virtual void deleteItem(const FileItem& item, const std::stop_token& stop) = 0;
    virtual void renameItem(const FileItem& item, const QString& newName,
                            const std::stop_token& stop) = 0;
    virtual void moveItem(const FileItem& item, const QString& newParentPath,
                          const std::stop_token& stop) = 0;

    /// A local copy for dragging out. Returns its path after about two seconds at most, even when
    /// the copy is not complete: then there is no file there yet. `stop` ends the copy.
    [[nodiscard]] virtual QString stageItemForDrag(const FileItem& item,
                                                   const std::stop_token& stop) = 0;
    /// The programs that keep this one from the device right now; never throws.
    [[nodiscard]] virtual QStringList programsHolding() = 0;
};

} // namespace tessary
