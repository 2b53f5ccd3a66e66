#include "files/MTPUpload.h"

#include "core/CancellationError.h"
#include "core/LocalTree.h"
#include "core/TessaryError.h"
#include "files/DevicePath.h"
#include "files/PhoneNames.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <algorithm>

namespace tessary {

namespace {

bool isStorageFull(const MTPTransportError& error) {
    return error.response() == static_cast<std::uint16_t>(MTPResponseCode::storeFull);
}

/// A local file that is read once, from the front.
class UploadSource {
public:
    explicit UploadSource(const QString& path) : file_(path) {
        if (!QFileInfo(path).isFile())
            throw TessaryError::fileIOError(
                QStringLiteral("Cannot read %1: it is not a file.").arg(path));
        if (!file_.open(QIODevice::ReadOnly | QIODevice::Unbuffered))
            throw TessaryError::fileIOError(
                QStringLiteral("Cannot read %1: %2").arg(path, file_.errorString()));
        size_ = file_.size();
    }

    [[nodiscard]] qint64 size() const {
        return size_;
    }

    std::size_t read(std::span<std::byte> buffer) {
        const qint64 count =
            file_.read(reinterpret_cast<char*>(buffer.data()), static_cast<qint64>(buffer.size()));
        if (count < 0)
            throw TessaryError::fileIOError(
                QStringLiteral("Cannot read %1: %2").arg(file_.fileName(), file_.errorString()));
        if (count == 0)
            throw TessaryError::fileIOError(
                QStringLiteral("%1 became shorter while it was being copied. Copy it again.")
                    .arg(file_.fileName()));
        return static_cast<std::size_t>(count);
    }

private:
    QFile file_;
    qint64 size_ = 0;
};

} // namespace

MTPUpload::MTPUpload(MTPSession& session, DeviceLane::Turn& turn, std::stop_token stop)
    : session_(session), turn_(turn), stop_(std::move(stop)) {}

MTPUpload::Folder MTPUpload::open(const MTPLocation& location, std::uint32_t handle) {
    Folder folder{location, handle, {}, {}};
    session_.forEachChild(
        location.storageID, handle,
        [&](MTPObjectInfo&& info) {
            folder.handles.insert(info.id);
            folder.contents.insert(info.filename, info);
            return true;
        },
        stop_,
        // Nobody knows its name, but it was there before: never a leftover of this upload.
        [&](std::uint32_t unreadable, const MTPTransportError&) {
            folder.handles.insert(unreadable);
        });
    return folder;
}

void MTPUpload::file(const LocalSource& source, const MTPLocation& folder,
                     std::uint32_t folderHandle, const FileProgressCallback& progress) {
    Folder target = open(folder, folderHandle);
    send(source.path, source.name, target, progress);
}

void MTPUpload::file(const LocalSource& source, const MTPLocation& folder,
                     std::uint32_t folderHandle, bool mayReplace, MTPUploadMemory& memory,
                     const FileProgressCallback& progress) {
    const QString key = folder.shownPath();
    const QString& name = source.name;
    // After a failure nobody knows what the folder holds: it is forgotten.
    auto known = memory.folders_.take(key);
    if (known.folder.handle != folderHandle || known.sent.contains(name))
        known = {open(folder, folderHandle), {}};
    const bool isNew = !known.folder.contents.contains(name);
    if (!isNew && !mayReplace)
        throw TessaryError::fileIOError(
            QStringLiteral("\"%1\" has appeared on the phone meanwhile.").arg(name));
    send(source.path, name, known.folder, progress);
    if (isNew)
        known.sent.insert(name);
    memory.folders_.insert(key, std::move(known));
}

/// Sends a file under its name, as a new one or in place of an old one.
void MTPUpload::send(const QString& localFile, const QString& name, Folder& folder,
                     const FileProgressCallback& progress) {
    requireNameForMTP(name);
    const auto old = folder.contents.constFind(name);
    if (old == folder.contents.constEnd()) {
        session_.remember(folder.location.child(name), transfer(localFile, name, folder, progress));
        return;
    }
    if (old->isDirectory())
        throw TessaryError::fileIOError(
            QStringLiteral("A folder named \"%1\" is already on the phone.").arg(name));
    replace(localFile, MTPObjectInfo(*old), folder, progress);
}

void MTPUpload::replace(const QString& localFile, const MTPObjectInfo& old, Folder& folder,
                        const FileProgressCallback& progress) {
    MTPClient& client = session_.client();
    const QString name = old.filename;
    const QString sentAs = newPartName();
    const auto sent = findNew(folder, sentAs, transfer(localFile, sentAs, folder, progress));
    if (!sent)
        throw TessaryError::fileIOError(
            QStringLiteral("The phone does not show the new \"%1\". The old one was kept.")
                .arg(name));

    // Whether the phone can rename at all shows before the old version is touched.
    const QString parkedAs = newPartName();
    try {
        client.renameObject(sent->id, parkedAs);
    } catch (const MTPTransportError& error) {
        if (!error.isProtocolFailure())
            throw;
        removeLeftover(folder, sentAs);
        throw TessaryError::fileIOError(
            QStringLiteral("\"%1\" is already on the phone, and this phone cannot replace files. "
                           "Delete or rename the old one first.")
                .arg(name));
    }
    try {
        if (client.getObjectInfo(old.id).filename == name)
            client.deleteObject(old.id);
    } catch (const MTPTransportError& error) {
        if (error.isProtocolFailure())
            removeLeftover(folder, parkedAs);
        throw;
    }
    try {
        client.renameObject(sent->id, name);
    } catch (const MTPTransportError& error) {
        throw TessaryError::fileIOError(
            QStringLiteral("The new \"%1\" is on the phone under the name \"%2\": it could not be "
                           "renamed (%3).")
                .arg(name, parkedAs, error.description()));
    }
    folder.handles.insert(sent->id);
    MTPObjectInfo now = *sent;
    now.filename = name;
    folder.contents.insert(name, std::move(now));
    session_.remember(folder.location.child(name), sent->id);
}

/// Sends the bytes. Returns the handle that the device announced, or 0.
std::uint32_t MTPUpload::transfer(const QString& localFile, const QString& name,
                                  const Folder& folder, const FileProgressCallback& progress) {
    UploadSource source(localFile);
    qint64 sent = 0;
    MTPStreamOptions options;
    options.stop = stop_;
    options.progress = [&](qint64 done, qint64 total) {
        sent = done;
        if (progress)
            progress(done, total);
    };
    try {
        return session_.client().sendObject(
            [&source](std::span<std::byte> buffer) { return source.read(buffer); },
            static_cast<std::uint64_t>(source.size()), name, folder.handle,
            folder.location.storageID, options);
    } catch (const MTPTransportError& error) {
        // Some devices stall instead of answering once they have every byte. The object tells.
        if (sent == source.size() && error.code() == usb::pipeStalled) {
            const auto object = findNew(folder, name, 0);
            if (object && object->effectiveSize() == static_cast<std::uint64_t>(source.size()))
                return object->id;
        }
        // A device that is gone or mute is not asked for more.
        if (error.isProtocolFailure() || error.code() == usb::pipeStalled)
            removeLeftover(folder, name);
        throw;
    } catch (...) {
        removeLeftover(folder, name);
        throw;
    }
}

/// The object of this name that was not in the folder before.
std::optional<MTPObjectInfo> MTPUpload::findNew(const Folder& folder, const QString& name,
                                                std::uint32_t announced) {
    const auto isIt = [&](std::uint32_t handle) {
        return session_.confirm(handle, name, folder.location.storageID, folder.handle);
    };
    if (announced != 0)
        if (auto info = isIt(announced))
            return info;
    for (const std::uint32_t handle :
         session_.childHandles(folder.location.storageID, folder.handle))
        if (!folder.handles.contains(handle))
            if (auto info = isIt(handle))
                return info;
    return std::nullopt;
}

/// Deletes what a failed upload left; a device that is gone, or refuses, keeps it.
void MTPUpload::removeLeftover(const Folder& folder, const QString& name) noexcept {
    try {
        if (const auto leftover = findNew(folder, name, 0))
            session_.client().deleteObject(leftover->id);
    } catch (const MTPTransportError&) {
        // The failure that led here is the one to report.
    }
}

MTPUpload::Folder MTPUpload::makeFolder(const Folder& parent, const QString& name) {
    requireNameForMTP(name);
    const MTPLocation location = parent.location.child(name);
    const auto old = parent.contents.constFind(name);
    if (old != parent.contents.constEnd()) {
        if (!old->isDirectory())
            throw TessaryError::fileIOError(
                QStringLiteral("A file named \"%1\" is already on the phone.").arg(name));
        return open(location, old->id);
    }
    const std::uint32_t announced =
        session_.client().createFolder(name, parent.handle, parent.location.storageID);
    const auto made = findNew(parent, name, announced);
    if (!made)
        throw TessaryError::fileIOError(
            QStringLiteral("The phone does not show the new folder \"%1\".").arg(name));
    session_.remember(location, made->id);
    return {location, made->id, {}, {}};
}

TransferOutcome MTPUpload::folder(const LocalSource& source, const MTPLocation& parent,
                                  std::uint32_t parentHandle,
                                  const TransferProgressCallback& progress) {
    LocalTree tree = collectLocalFiles(source.path);
    TransferOutcome outcome;
    outcome.skipped = std::move(tree.skipped);
    TransferProgress& state = outcome.progress;
    state.totalFiles = tree.fileCount;
    state.totalBytes = tree.byteCount;
    const auto report = [&] {
        if (progress)
            progress(state);
    };
    report();

    QHash<QString, Folder> folders; // by relative path; "" is the copied folder itself
    folders.insert(QString(), makeFolder(open(parent, parentHandle), source.name));
    for (const LocalEntry& entry : tree.entries) {
        throwIfStopped(stop_);
        turn_.letGuestsIn(session_);
        const QString name = lastComponent(entry.relativePath);
        const auto into =
            folders.find(entry.relativePath.chopped(name.size())
                             .chopped(entry.relativePath.contains(QLatin1Char('/')) ? 1 : 0));
        if (into == folders.end()) {
            outcome.skipped.push_back(
                {entry.relativePath, QStringLiteral("its folder could not be made")});
            continue;
        }
        state.currentFileTotal = entry.size;
        try {
            if (entry.isDirectory) {
                // Made first: the insertion moves what `into` points to.
                const Folder made = makeFolder(*into, name);
                folders.insert(entry.relativePath, made);
            } else {
                send(joinPath(source.path, entry.relativePath), name, *into,
                     [&](qint64 done, qint64 total) {
                         state.currentFileBytes = done;
                         state.currentFileTotal = total;
                         report();
                     });
                state.totalBytes += state.currentFileTotal - entry.size;
                state.completedBytes += state.currentFileTotal;
                ++state.completedFiles;
            }
        } catch (const MTPTransportError& error) {
            if (!error.isProtocolFailure() || isStorageFull(error))
                throw;
            outcome.skipped.push_back({entry.relativePath, error.description()});
        } catch (const TessaryError& error) {
            outcome.skipped.push_back({entry.relativePath, error.message()});
        }
        state.currentFileBytes = 0;
        state.currentFileTotal = 0;
        report();
    }
    return outcome;
}

} // namespace tessary
