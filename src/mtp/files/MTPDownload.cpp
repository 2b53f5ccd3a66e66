#include "mtp/files/MTPDownload.h"

#include "base/local/PartFile.h"
#include "base/text/ByteCount.h"
#include "base/text/CopyNames.h"
#include "base/threads/CancellationError.h"
#include "base/values/TessaryError.h"
#include "phone/DevicePath.h"

#include <QDir>
#include <QFileInfo>
#include <QSet>

#include <algorithm>

namespace tessary {

namespace {

/// Deeper trees are a device's mistake: paths of a real one are far shorter.
constexpr int maxDepth = 128;

struct PlannedFile {
    MTPObjectInfo info;
    QString devicePath;
    QString localFile;
};

struct PlannedFolder {
    QString devicePath;
    QString localFolder;
};

struct Plan {
    std::vector<PlannedFolder> folders; ///< a folder comes before what it holds
    std::vector<PlannedFile> files;
    std::vector<SkippedItem> skipped;
    qint64 byteCount = 0;
};

/// Walks the phone and decides what goes where. Touches nothing on this machine.
class DownloadPlanner {
public:
    DownloadPlanner(MTPSession& session, DeviceLane::Turn& turn, const std::stop_token& stop)
        : session_(session), turn_(turn), stop_(stop) {}

    Plan run(const MTPLocation& folder, std::uint32_t handle, const QString& localFolder) {
        walk(folder, handle, localFolder, 0);
        return std::move(plan_);
    }

private:
    void walk(const MTPLocation& folder, std::uint32_t handle, const QString& localFolder,
              int depth) {
        plan_.folders.push_back({folder.shownPath(), localFolder});
        visited_.insert(handle);
        std::vector<MTPObjectInfo> children;
        const auto unreadable = [&](std::uint32_t child, const MTPTransportError& error) {
            skip(folder.child(QStringLiteral("(object %1)").arg(child)), error.description());
        };
        try {
            session_.forEachChild(
                folder.storageID, handle,
                [&](MTPObjectInfo&& info) {
                    children.push_back(std::move(info));
                    return true;
                },
                stop_, unreadable);
        } catch (const MTPTransportError& error) {
            if (!error.isProtocolFailure() || depth == 0)
                throw;
            skip(folder, error.description());
        }
        turn_.letGuestsIn(session_);

        QSet<QString> taken; // two objects of one folder may have the same name
        for (MTPObjectInfo& info : children) {
            const MTPLocation place = folder.child(info.filename);
            if (!isSafeName(info.filename)) {
                skip(place, QStringLiteral("its name cannot be used on this computer"));
                continue;
            }
            const QString name =
                freeCopyName(QFile::decodeName(QFile::encodeName(info.filename)),
                             info.isDirectory(), [&](const QString& one) {
                                 throwIfStopped(stop_); // a phone may give all one name
                                 return taken.contains(one);
                             });
            if (isTooLongName(name)) {
                skip(place, QStringLiteral("its name is too long for this computer"));
                continue;
            }
            taken.insert(name);
            const QString local = joinPath(localFolder, name);
            if (!info.isDirectory()) {
                plan_.byteCount =
                    addByteCounts(plan_.byteCount, clampedByteCount(info.effectiveSize()));
                plan_.files.push_back({std::move(info), place.shownPath(), local});
            } else if (visited_.contains(info.id) || depth >= maxDepth) {
                skip(place, QStringLiteral("the phone lists this folder inside itself"));
            } else {
                walk(place, info.id, local, depth + 1);
            }
        }
    }

    void skip(const MTPLocation& place, const QString& reason) {
        plan_.skipped.push_back({place.shownPath(), reason});
    }

    MTPSession& session_;
    DeviceLane::Turn& turn_;
    const std::stop_token& stop_;
    Plan plan_;
    QSet<std::uint32_t> visited_;
};

} // namespace

qint64 downloadObject(MTPSession& session, const MTPObjectInfo& info, const QString& localFile,
                      const FileProgressCallback& progress, const std::stop_token& stop) {
    PartFile part(localFile);
    MTPStreamOptions options;
    // Some phones cut the size of a large object to 32 bits everywhere but in this property.
    options.expectedSize = session.client().getObjectSize(info.id);
    if (!options.expectedSize)
        options.expectedSize = info.true64BitSize;
    const auto total = clampedByteCount(options.expectedSize.value_or(info.effectiveSize()));
    if (progress)
        options.progress = [&](qint64 done, qint64) { progress(done, std::max(done, total)); };
    options.stop = stop;
    session.client().getObject(
        info.id, [&part](ByteView bytes) { part.write(bytes); }, options);
    if (options.expectedSize && part.size() != total)
        throw MTPTransportError::underlying(
            QStringLiteral("The phone sent %1 of the %2 bytes of %3. Copy it again.")
                .arg(part.size())
                .arg(total)
                .arg(info.filename));
    part.commit(info.dateModified);
    if (progress)
        progress(part.size(), part.size());
    return part.size();
}

TransferOutcome downloadFolder(MTPSession& session, DeviceLane::Turn& turn,
                               const MTPLocation& folder, std::uint32_t handle,
                               const QString& localFolder, const TransferProgressCallback& progress,
                               const std::stop_token& stop) {
    Plan plan = DownloadPlanner(session, turn, stop).run(folder, handle, localFolder);
    TransferOutcome outcome;
    outcome.skipped = std::move(plan.skipped);
    TransferProgress& state = outcome.progress;
    state.totalFiles = static_cast<qint64>(plan.files.size());
    state.totalBytes = plan.byteCount;
    const auto report = [&] {
        if (progress)
            progress(state);
    };
    report();
    if (!QDir().mkpath(localFolder))
        throw TessaryError::fileIOError(
            QStringLiteral("Cannot create the folder %1 on this computer.").arg(localFolder));
    QSet<QString> unusable; // local folders that cannot be made: a file is in the way
    for (const PlannedFolder& planned : plan.folders)
        if (!QDir().mkpath(planned.localFolder)) {
            unusable.insert(planned.localFolder);
            outcome.skipped.push_back(
                {planned.devicePath,
                 QStringLiteral("the folder cannot be created on this computer")});
        }

    for (const PlannedFile& file : plan.files) {
        throwIfStopped(stop);
        turn.letGuestsIn(session);
        if (unusable.contains(parentPath(file.localFile)))
            continue;
        if (QFileInfo(file.localFile).isDir()) {
            outcome.skipped.push_back(
                {file.devicePath, QStringLiteral("a folder of this name is on this computer")});
            continue;
        }
        state.currentFileTotal = clampedByteCount(file.info.effectiveSize());
        try {
            const qint64 size = downloadObject(
                session, file.info, file.localFile,
                [&](qint64 done, qint64 total) {
                    state.currentFileBytes = done;
                    state.currentFileTotal = total;
                    report();
                },
                stop);
            // What the phone sent counts, and not what it had announced.
            const qint64 others = state.totalBytes - clampedByteCount(file.info.effectiveSize());
            state.totalBytes = addByteCounts(std::max<qint64>(others, 0), size);
            state.completedBytes += size;
            ++state.completedFiles;
        } catch (const MTPTransportError& error) {
            if (!error.isProtocolFailure())
                throw;
            outcome.skipped.push_back({file.devicePath, error.description()});
        }
        state.currentFileBytes = 0;
        state.currentFileTotal = 0;
        report();
    }
    return outcome;
}

} // namespace tessary
