#include "mtp/files/MTPUpload.h"

#include "base/local/LocalTree.h"
#include "base/local/PartFile.h"
#include "base/threads/CancellationError.h"
#include "base/values/TessaryError.h"
#include "phone/DevicePath.h"
#include "phone/PhoneNames.h"

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
    const std::uint64_t edits = turn_.edits();
    return {location, session_.look(location, handle, stop_), edits};
}

/// Looks again when someone changed files of the device in between.
void MTPUpload::refresh(Folder& folder) {
    if (folder.edits != turn_.edits())
        folder = open(folder.location, folder.contents.folder());
}

void MTPUpload::file(const LocalSource& source, const MTPLocation& folder,
                     std::uint32_t folderHandle, const FileProgressCallback& progress) {
    Folder target = open(folder, folderHandle);
    send(source.path, source.name, target, progress);
    session_.keep(target.location, target.contents);
}

void MTPUpload::file(const LocalSource& source, const MTPLocation& folder,
                     std::uint32_t folderHandle, bool mayReplace, MTPUploadMemory& memory,
                     const FileProgressCallback& progress) {
    const QString key = folder.shownPath();
    const QString& name = source.name;
    memory.lastSent_.reset();
    // After a failure nobody knows what the folder holds: it is forgotten.
    Folder known = memory.folders_.take(key);
    if (known.contents.folder() != folderHandle || known.contents.hasNameOnly(name))
        known = open(folder, folderHandle);
    refresh(known);
    if (!mayReplace && known.contents.find(name))
        throw TessaryError::fileIOError(
            QStringLiteral("\"%1\" has appeared on the phone meanwhile.").arg(name));
    if (const std::uint32_t handle = send(source.path, name, known, progress); handle != 0)
        memory.lastSent_ = session_.confirm(handle, name, folder.storageID, folderHandle);
    memory.folders_.insert(key, std::move(known));
}

/// Sends a file under its name, as a new one or in place of an old one. Returns the handle that it
/// has, as far as the device tells, or 0.
std::uint32_t MTPUpload::send(const QString& localFile, const QString& name, Folder& folder,
                              const FileProgressCallback& progress) {
    requireNameForMTP(name);
    refresh(folder);
    const MTPObjectInfo* old = folder.contents.find(name);
    if (!old) {
        if (const auto other = folder.contents.sameName(name))
            throwSameToPhone(*other, name);
        const std::uint32_t handle = transfer(localFile, name, folder, progress);
        session_.remember(folder.location.child(name), handle);
        folder.contents.insertName(name);
        return handle;
    }
    if (old->isDirectory())
        throw TessaryError::fileIOError(
            QStringLiteral("A folder named \"%1\" is already on the phone.").arg(name));
    return replace(localFile, MTPObjectInfo(*old), folder, progress);
}

std::uint32_t MTPUpload::replace(const QString& localFile, const MTPObjectInfo& old, Folder& folder,
                                 const FileProgressCallback& progress) {
    MTPClient& client = session_.client();
    const QString name = old.filename;
    const QString sentAs = PartFile::newName();
    const auto sent = findNew(folder, sentAs, transfer(localFile, sentAs, folder, progress));
    if (!sent)
        throw TessaryError::fileIOError(
            QStringLiteral("The phone does not show the new \"%1\". The old one was kept.")
                .arg(name));

    // Whether the phone can rename at all shows before the old version is touched.
    const QString parkedAs = PartFile::newName();
    try {
        client.renameObject(sent->id, parkedAs);
    } catch (const MTPTransportError& error) {
        if (!error.isProtocolFailure())
            throw;
        removeSent(folder, sentAs, sent->id);
        throw TessaryError::fileIOError(
            QStringLiteral("\"%1\" is already on the phone, and this phone cannot replace files. "
                           "Delete or rename the old one first.")
                .arg(name));
    }
    const auto now =
        session_.confirm(old.id, name, folder.location.storageID, folder.contents.folder());
    if (!now || now->effectiveSize() != old.effectiveSize() ||
        now->dateModified != old.dateModified) {
        removeSent(folder, parkedAs, sent->id);
        throw TessaryError::fileIOError(
            QStringLiteral("\"%1\" has changed on the phone meanwhile. It was kept.").arg(name));
    }
    try {
        client.deleteObject(old.id);
    } catch (const MTPTransportError& error) {
        if (error.isProtocolFailure())
            removeSent(folder, parkedAs, sent->id);
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
    folder.contents.remove(old.id);
    MTPObjectInfo renamed = *sent;
    renamed.filename = name;
    folder.contents.insert(renamed);
    session_.remember(folder.location.child(name), sent->id);
    return sent->id;
}

/// Sends the bytes. Returns the handle that the device announced, or 0.
std::uint32_t MTPUpload::transfer(const QString& localFile, const QString& name,
                                  const Folder& folder, const FileProgressCallback& progress) {
    UploadSource source(localFile);
    qint64 sent = 0;
    std::optional<std::uint32_t> announced; // none: the device made nothing
    MTPStreamOptions options;
    options.stop = stop_;
    options.accepted = [&announced](std::uint32_t handle) { announced = handle; };
    options.progress = [&](qint64 done, qint64 total) {
        sent = done;
        if (progress)
            progress(done, total);
    };
    try {
        return session_.client().sendObject(
            [&source](std::span<std::byte> buffer) { return source.read(buffer); },
            static_cast<std::uint64_t>(source.size()), name, folder.contents.folder(),
            folder.location.storageID, options);
    } catch (const MTPTransportError& error) {
        // Some devices stall instead of answering once they have every byte. The object tells.
        if (announced && sent == source.size() && error.code() == usb::pipeStalled) {
            const auto object = findNew(folder, name, *announced);
            if (object && object->effectiveSize() == static_cast<std::uint64_t>(source.size()))
                return object->id;
        }
        // A device that is gone or mute is not asked for more.
        if (announced && (error.isProtocolFailure() || error.code() == usb::pipeStalled))
            removeLeftover(folder, name, *announced, source.size());
        throw;
    } catch (...) {
        if (announced)
            removeLeftover(folder, name, *announced, source.size());
        throw;
    }
}

/// The object of this name that was not in the folder before.
std::optional<MTPObjectInfo> MTPUpload::findNew(const Folder& folder, const QString& name,
                                                std::uint32_t announced) {
    const std::uint32_t parent = folder.contents.folder();
    const auto isIt = [&](std::uint32_t handle) -> std::optional<MTPObjectInfo> {
        if (handle == 0 || folder.contents.contains(handle))
            return std::nullopt;
        return session_.confirm(handle, name, folder.location.storageID, parent);
    };
    if (auto info = isIt(announced))
        return info;
    for (const std::uint32_t handle : session_.childHandles(folder.location.storageID, parent))
        if (auto info = isIt(handle))
            return info;
    return std::nullopt;
}

/// Deletes what a failed upload left; a device that is gone, or refuses, keeps it. What is larger
/// than the upload is somebody else's.
void MTPUpload::removeLeftover(const Folder& folder, const QString& name, std::uint32_t announced,
                               qint64 size) noexcept {
    try {
        const auto leftover = findNew(folder, name, announced);
        if (leftover && leftover->effectiveSize() <= static_cast<std::uint64_t>(size))
            session_.client().deleteObject(leftover->id);
    } catch (const MTPTransportError&) {
        // The failure that led here is the one to report.
    }
}

/// Deletes a new version that cannot take the place of the old one.
void MTPUpload::removeSent(const Folder& folder, const QString& name,
                           std::uint32_t handle) noexcept {
    try {
        if (session_.confirm(handle, name, folder.location.storageID, folder.contents.folder()))
            session_.client().deleteObject(handle);
    } catch (const MTPTransportError&) {
        // The failure that led here is the one to report.
    }
}

MTPUpload::Folder MTPUpload::makeFolder(Folder& parent, const QString& name) {
    requireNameForMTP(name);
    refresh(parent);
    const MTPLocation location = parent.location.child(name);
    if (const MTPObjectInfo* old = parent.contents.find(name)) {
        if (!old->isDirectory())
            throw TessaryError::fileIOError(
                QStringLiteral("A file named \"%1\" is already on the phone.").arg(name));
        return open(location, old->id);
    }
    if (const auto other = parent.contents.sameName(name))
        throwSameToPhone(*other, name);
    const std::uint32_t announced =
        session_.client().createFolder(name, parent.contents.folder(), parent.location.storageID);
    const auto made = findNew(parent, name, announced);
    if (!made)
        throw TessaryError::fileIOError(
            QStringLiteral("The phone does not show the new folder \"%1\".").arg(name));
    session_.remember(location, made->id);
    parent.contents.insert(*made);
    return {location, MTPFolderContents(made->id), turn_.edits()};
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
    Folder top = open(parent, parentHandle);
    folders.insert(QString(), makeFolder(top, source.name));
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
