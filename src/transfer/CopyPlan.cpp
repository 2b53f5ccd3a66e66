#include "transfer/CopyPlan.h"

#include "base/text/ByteCount.h"
#include "base/text/CopyNames.h"
#include "base/threads/CancellationError.h"
#include "base/threads/CombinedStopToken.h"
#include "phone/DevicePath.h"
#include "transfer/ContentCount.h"

#include <QDirIterator>
#include <QFileInfo>
#include <QSet>
#include <QStorageInfo>

#include <algorithm>

namespace tessary {

namespace {

/// Gives each candidate a name that is free, also among the candidates.
void nameCopies(std::vector<CopyCandidate>& candidates,
                const std::function<bool(const QString&)>& isTaken) {
    QSet<QString> given;
    for (CopyCandidate& candidate : candidates) {
        if (!isSafeName(candidate.name))
            continue;
        candidate.freeName =
            freeCopyName(candidate.name, candidate.isFolder, [&](const QString& name) {
                return given.contains(name.toCaseFolded()) || isTaken(name);
            });
        given.insert(candidate.freeName.toCaseFolded());
    }
}

/// Bytes below a folder of the phone as far as they can be counted.
qint64 bytesIn(FileAccess& files, const FileItem& folder, bool& isPartial,
               const std::stop_token& stopCounting, const std::stop_token& stop) {
    const CombinedStopToken either(stopCounting, stop);
    ContentCount sofar;
    try {
        sofar = countContent(
            files, {folder}, [&sofar](const ContentCount& count) { sofar = count; },
            either.token());
    } catch (const CancellationError&) {
        throwIfStopped(stop);
        isPartial = true;
    }
    return sofar.bytes;
}

/// The same below a local one.
qint64 bytesIn(const QString& folder, bool& isPartial, const std::stop_token& stopCounting,
               const std::stop_token& stop) {
    qint64 bytes = 0;
    QDirIterator files(folder, QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
    while (files.hasNext()) {
        throwIfStopped(stop);
        if (stopCounting.stop_requested()) {
            isPartial = true;
            break;
        }
        files.next();
        bytes = addByteCounts(bytes, files.fileInfo().size());
    }
    return bytes;
}

/// What a folder's disk has free when the queue is done.
std::optional<qint64> freeBytesAt(const QString& folder,
                                  const std::vector<QueuedDownload>& queued) {
    const QStorageInfo disk(folder);
    if (!disk.isValid() || disk.bytesTotal() <= 0)
        return std::nullopt;
    qint64 free = disk.bytesAvailable();
    QHash<QString, bool> isThere; // a thousand jobs mostly go to one folder
    for (const QueuedDownload& job : queued) {
        auto found = isThere.find(job.folder);
        if (found == isThere.end())
            found = isThere.insert(job.folder, QStorageInfo(job.folder).device() == disk.device());
        if (*found)
            free -= std::min(free, job.bytes);
    }
    return free;
}

} // namespace

qint64 CopyPlan::neededBytes(const CopyChoices& choices) const {
    qint64 needed = 0;
    qint64 largestOld = 0;
    for (const CopyCandidate& candidate : candidates) {
        const NameClash choice = choices.value(candidate.key, NameClash::keepBoth);
        if (choice == NameClash::skip)
            continue;
        const bool replaces =
            choice == NameClash::replace && candidate.existing && !candidate.isFolder;
        const qint64 old = replaces ? std::clamp<qint64>(candidate.existing->size, 0,
                                                         std::max<qint64>(candidate.bytes, 0))
                                    : 0;
        needed = addByteCounts(needed, candidate.bytes - old);
        largestOld = std::max(largestOld, old);
    }
    return addByteCounts(needed, largestOld);
}

CopyPlan surveyDownload(const std::shared_ptr<FileAccess>& files, DownloadPlan plan,
                        const std::stop_token& stopCounting, const std::stop_token& stop) {
    CopyPlan survey;
    survey.files = files;
    survey.target = plan.target;
    survey.targetName = lastComponent(plan.target);
    survey.freeBytes = freeBytesAt(plan.target, plan.queued);
    const bool mayNotFit =
        survey.freeBytes && (!plan.mostBytes || *plan.mostBytes > *survey.freeBytes);
    const auto isTaken = [&plan](const QString& name) {
        const QFileInfo info(joinPath(plan.target, name));
        return info.exists() || info.isSymLink();
    };
    for (const FileItem& item : plan.items) {
        throwIfStopped(stop);
        CopyCandidate candidate{
            item.id(), item.name, {}, item.isDirectory, {item.size, item.modifiedDate}, {}, 0};
        if (isSafeName(item.name) && isTaken(item.name)) {
            const QFileInfo there(joinPath(plan.target, item.name));
            candidate.existing = CopySide{there.size(), there.lastModified()};
        }
        if (!item.isDirectory)
            candidate.bytes = std::max<qint64>(item.size, 0);
        else if (mayNotFit)
            candidate.bytes = bytesIn(*files, item, survey.isPartial, stopCounting, stop);
        survey.candidates.push_back(std::move(candidate));
    }
    nameCopies(survey.candidates, isTaken);
    survey.items = std::move(plan.items);
    return survey;
}

CopyPlan surveyUpload(const std::shared_ptr<FileAccess>& files, UploadPlan plan,
                      const std::stop_token& stopCounting, const std::stop_token& stop) {
    CopyPlan survey;
    survey.isUpload = true;
    survey.files = files;
    survey.target = plan.target;
    survey.targetName = files->deviceName();
    survey.freeBytes = plan.freeBytes;
    if (!plan.entries) {
        try {
            plan.entries = files->listDirectory(plan.target, stop);
        } catch (const CancellationError&) {
            throw;
        } catch (const std::exception&) {
            plan.entries.emplace();
        }
    }
    QHash<QString, const FileItem*> byName;
    QSet<QString> taken;
    for (const FileItem& item : *plan.entries) {
        byName.insert(item.name, &item);
        taken.insert(item.name.toCaseFolded());
    }
    for (const QString& path : plan.paths) {
        throwIfStopped(stop);
        const QFileInfo local(path);
        CopyCandidate candidate{path, LocalSource(path).name, {}, local.isDir(), {}, {}, 0};
        candidate.coming = {local.size(), local.lastModified()};
        if (const FileItem* there = byName.value(candidate.name))
            candidate.existing = CopySide{there->size, there->modifiedDate};
        candidate.bytes = candidate.isFolder && survey.freeBytes
                              ? bytesIn(path, survey.isPartial, stopCounting, stop)
                              : candidate.coming.size;
        survey.candidates.push_back(std::move(candidate));
    }
    nameCopies(survey.candidates,
               [&taken](const QString& name) { return taken.contains(name.toCaseFolded()); });
    return survey;
}

} // namespace tessary
