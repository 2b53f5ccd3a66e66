// The copies that a browser starts, and what is found out before.

#include "base/text/ByteCount.h"
#include "base/threads/Background.h"
#include "browser/model/FileBrowserViewModel.h"
#include "phone/DevicePath.h"

#include <QPointer>

#include <algorithm>

namespace tessary {

namespace {

using namespace std::chrono_literals;

/// Folders that take longer to count are copied without knowing whether they fit.
constexpr auto countingLimit = 3s;

/// Stops a count on time.
std::stop_token countingToken() {
    std::stop_source source;
    QTimer::singleShot(countingLimit, [source]() mutable { source.request_stop(); });
    return source.get_token();
}

/// Calls `survey` in the background; `whenDone` unless `context` is gone by then.
template <typename Survey, typename Plan>
void runSurvey(QObject* context, Survey survey, const std::shared_ptr<FileAccess>& files, Plan plan,
               FileBrowserViewModel::SurveyDone whenDone) {
    runInBackground(
        context,
        [=, plan = std::move(plan), counting = countingToken()](const std::stop_token& stop) {
            return survey(files, plan, counting, stop);
        },
        [whenDone = std::move(whenDone)](BackgroundResult<CopyPlan> result) {
            if (result.succeeded())
                whenDone(result.take());
        });
}

/// The storage that a root of an Android phone stands for; null while nothing is known.
const StorageVolume* volumeOf(const DeviceInfo& device, const QString& root) {
    for (const StorageVolume& volume : device.volumes)
        if (root == QStringLiteral("/storage/") + volume.id)
            return &volume;
    return device.volumes.empty() ? nullptr : &device.volumes.front();
}

/// Free bytes of the storage below `root` as last heard.
std::optional<qint64> freeBytesOf(const DeviceInfo& device, const QString& root) {
    if (device.platform == DevicePlatform::iOS)
        return device.freeStorageBytes;
    const StorageVolume* volume = volumeOf(device, root);
    return volume != nullptr && volume->totalBytes > 0
               ? std::optional(clampedByteCount(volume->freeBytes))
               : std::nullopt;
}

/// Bytes that files take there.
std::optional<qint64> usedBytesOf(const DeviceInfo& device, const QString& root) {
    const StorageVolume* volume = volumeOf(device, root);
    return volume != nullptr && volume->totalBytes > volume->freeBytes
               ? std::optional(volume->usedBytes())
               : std::nullopt;
}

} // namespace

void FileBrowserViewModel::surveyDownload(const QStringList& ids, const QString& localFolder,
                                          SurveyDone whenDone) {
    if (!files_)
        return;
    DownloadPlan plan;
    plan.items = itemsWithIds(ids);
    plan.target = localFolder;
    if (activeDevice_)
        plan.mostBytes = usedBytesOf(*activeDevice_, rootPath_);
    for (const TransferJob& job : transfers_.jobs())
        if (job.type == TransferJob::TransferType::download && !job.isFinished())
            plan.queued.push_back(
                {parentPath(job.destinationPath), job.progress.totalBytes - job.doneBytes()});
    runSurvey(this, tessary::surveyDownload, files_, std::move(plan), std::move(whenDone));
}

void FileBrowserViewModel::surveyUpload(const QStringList& localPaths, const QString& intoFolderId,
                                        SurveyDone whenDone) {
    if (!files_)
        return;
    const FileItem* folder = intoFolderId.isEmpty() ? nullptr : itemWithId(intoFolderId);
    UploadPlan plan;
    plan.paths = localPaths;
    plan.target = folder ? files_->canonicalPath(folder->path) : currentPath_;
    // What is in a folder that is not shown has to be read first.
    if (folder == nullptr)
        plan.entries = items();
    if (activeDevice_)
        plan.freeBytes = freeBytesOf(*activeDevice_, rootPath_);
    for (const TransferJob& job : transfers_.jobs())
        if (plan.freeBytes && job.type == TransferJob::TransferType::upload && !job.isFinished() &&
            job.connection == files_->identity())
            *plan.freeBytes -= std::min(*plan.freeBytes, job.progress.totalBytes - job.doneBytes());
    runSurvey(this, tessary::surveyUpload, files_, std::move(plan), std::move(whenDone));
}

void FileBrowserViewModel::copy(const CopyPlan& survey, const CopyChoices& choices) {
    QSet<QString> used;
    for (std::size_t i = 0; i < survey.candidates.size(); ++i) {
        const CopyCandidate& candidate = survey.candidates[i];
        const NameClash choice = choices.value(candidate.key, NameClash::keepBoth);
        if (choice == NameClash::skip)
            continue;
        // Of two that share a name the second does not replace the first.
        const bool replaces =
            choice == NameClash::replace && !used.contains(candidate.name.toCaseFolded());
        const QString& name = replaces ? candidate.name : candidate.freeName;
        used.insert(name.toCaseFolded());
        if (survey.isUpload)
            transfers_.enqueueUpload({candidate.key, name}, survey.target, survey.files,
                                     UploadFacts{candidate.isFolder, candidate.coming.size});
        else // a job with an unsafe name fails by itself, in words; it must not become a path
            transfers_.enqueueDownload(
                survey.items[i], name.isEmpty() ? survey.target : joinPath(survey.target, name),
                survey.files);
    }
}

void FileBrowserViewModel::downloadItems(const QStringList& ids, const QString& localFolder) {
    if (files_) // with nothing to count: only the local disk is looked at
        copy(tessary::surveyDownload(files_, {itemsWithIds(ids), localFolder, {}, 0}, {}, {}), {});
}

void FileBrowserViewModel::uploadFiles(const QStringList& localPaths, const QString& intoFolderId) {
    if (!files_)
        return;
    const FileItem* folder = intoFolderId.isEmpty() ? nullptr : itemWithId(intoFolderId);
    if (!intoFolderId.isEmpty() && (!folder || !folder->isDirectory))
        return;
    const QString target = folder ? files_->canonicalPath(folder->path) : currentPath_;
    for (const QString& path : localPaths)
        transfers_.enqueueUpload(path, target, files_);
}

} // namespace tessary
