#include "transfer/TransferViewModel.h"

#include "base/text/ByteCount.h"
#include "base/threads/Background.h"
#include "base/threads/CancellationError.h"
#include "base/threads/MainThread.h"
#include "base/values/TessaryError.h"
#include "phone/DevicePath.h"
#include "transfer/TransferEnd.h"

#include <QFileInfo>
#include <QPointer>

#include <algorithm>
#include <mutex>
#include <utility>

namespace tessary {

namespace {

using Status = TransferJob::TransferStatus;
using Type = TransferJob::TransferType;

/// One file's byte counts as the progress of a whole job.
FileProgressCallback asJobProgress(const TransferProgressCallback& progress) {
    return [&progress](qint64 done, qint64 total) {
        progress({.totalFiles = 1,
                  .totalBytes = total,
                  .currentFileBytes = done,
                  .currentFileTotal = total});
    };
}

void requireComplete(TransferOutcome outcome) {
    if (!outcome.isComplete())
        throw IncompleteTransferError(std::move(outcome));
}

} // namespace

/// Where the engine's thread leaves the progress of one job and the main thread finds it.
struct TransferViewModel::Feed {
    const QUuid id;
    std::mutex mutex;
    std::optional<TransferProgress> latest; ///< guarded by mutex

    void put(const TransferProgress& progress) {
        const std::scoped_lock lock(mutex);
        latest = progress;
    }
    std::optional<TransferProgress> take() {
        const std::scoped_lock lock(mutex);
        return std::exchange(latest, std::nullopt);
    }
};

TransferViewModel::TransferViewModel(TransferEngine& engine, QObject* parent)
    : QObject(parent), engine_(engine) {
    progressTimer_.setInterval(progressInterval);
    connect(&progressTimer_, &QTimer::timeout, this, &TransferViewModel::showProgress);
}

TransferViewModel::~TransferViewModel() {
    // From the last to the first, so that none starts in between.
    for (auto job = jobs_.rbegin(); job != jobs_.rend(); ++job)
        if (!job->isFinished())
            engine_.cancelJob(job->id);
}

int TransferViewModel::indexOf(const QUuid& jobId) const {
    return indexes_.value(jobId, -1);
}

QUuid TransferViewModel::enqueueUpload(const LocalSource& source, const QString& remotePath,
                                       const std::shared_ptr<FileAccess>& files,
                                       std::optional<UploadFacts> known) {
    if (!known) {
        const QFileInfo local(source.path);
        known = UploadFacts{local.isDir(), local.size()};
    }
    QString folder = remotePath;
    if (folder.size() >= 2 && folder.endsWith(QLatin1Char('/')))
        folder.chop(1);

    TransferJob job;
    job.type = Type::upload;
    job.name = source.name;
    job.sourcePath = source.path;
    job.destinationPath = joinPath(folder, job.name);
    if (files) {
        job.deviceName = files->deviceName();
        job.connection = files->identity();
    }
    job.isDirectory = known->isDirectory;
    job.isMeasuring = job.isDirectory;
    if (!job.isDirectory) {
        job.progress.totalFiles = 1;
        job.progress.totalBytes = known->bytes;
    }
    const bool isDirectory = job.isDirectory;
    const QUuid id = append(std::move(job));
    start(id, files,
          [=](FileAccess& device, const TransferProgressCallback& progress,
              const std::stop_token& stop) {
              if (isDirectory)
                  requireComplete(device.uploadDirectory(source, remotePath, progress, stop));
              else
                  device.uploadFile(source, remotePath, asJobProgress(progress), stop);
          });
    if (isDirectory) {
        toMeasure_.push_back(id);
        measureNext();
    }
    return id;
}

QUuid TransferViewModel::enqueueDownload(const FileItem& item, const QString& localURL,
                                         const std::shared_ptr<FileAccess>& files,
                                         const TransferFinished& onFinished) {
    TransferJob job;
    job.type = Type::download;
    job.name = item.name;
    job.sourcePath = item.path;
    job.destinationPath = localURL;
    if (files) {
        job.deviceName = files->deviceName();
        job.connection = files->identity();
    }
    job.isDirectory = item.isDirectory;
    job.isMeasuring = item.isDirectory;
    if (!item.isDirectory) {
        job.progress.totalFiles = 1;
        job.progress.totalBytes = std::max<qint64>(item.size, 0);
    }
    const QUuid id = append(std::move(job));
    if (onFinished)
        onFinished_.insert(id, onFinished);
    start(id, files,
          [=](FileAccess& device, const TransferProgressCallback& progress,
              const std::stop_token& stop) {
              if (!isSafeName(item.name))
                  throw TessaryError::fileIOError(
                      QStringLiteral("The name \"%1\" cannot be used on this computer. Rename it "
                                     "on the phone first.")
                          .arg(item.name));
              if (item.isDirectory)
                  requireComplete(device.downloadDirectoryContents(item, localURL, progress, stop));
              else
                  device.downloadFile(item, localURL, asJobProgress(progress), stop);
          });
    return id;
}

QUuid TransferViewModel::append(TransferJob job) {
    MainThread::assertCurrent();
    if (summary_.isIdle()) {
        speed_ = {};
        finishedBytes_ = 0;
        movedBytes_ = 0;
    }
    job.id = QUuid::createUuid();
    const QUuid id = job.id;
    const int index = static_cast<int>(jobs_.size());
    Q_EMIT jobAboutToBeAdded(index);
    queuedBytes_ = addByteCounts(queuedBytes_, job.progress.totalBytes);
    jobs_.push_back(std::move(job));
    indexes_.insert(id, index);
    ++summary_.queued;
    Q_EMIT jobAdded(index);
    updateSummary();
    return id;
}

void TransferViewModel::start(
    const QUuid& id, const std::shared_ptr<FileAccess>& files,
    std::function<void(FileAccess&, const TransferProgressCallback&, const std::stop_token&)>
        work) {
    const auto feed = std::make_shared<Feed>(id);
    // On the engine's thread the pointer is only carried along.
    const QPointer<TransferViewModel> self(this);
    engine_.enqueue(
        id,
        [files, work = std::move(work)](const TransferProgressCallback& progress,
                                        const std::stop_token& stop) {
            if (!files)
                throw TessaryError::fileIOError(QStringLiteral("No device connected for download"));
            throwIfStopped(stop);
            work(*files, progress, stop);
        },
        {.onStart =
             [self, feed] {
                 MainThread::post([self, feed] {
                     if (self)
                         self->markJobInProgress(feed->id, feed);
                 });
             },
         .onProgress = [feed](const TransferProgress& progress) { feed->put(progress); },
         .onComplete =
             [self, feed, files](const std::exception_ptr& error) {
                 MainThread::post([self, feed, end = TransferEnd::from(error, files.get())] {
                     if (self)
                         self->completeJob(feed->id, feed, end);
                 });
             }});
}

void TransferViewModel::markJobInProgress(const QUuid& id, const std::shared_ptr<Feed>& feed) {
    const int index = indexOf(id);
    if (index < 0)
        return;
    TransferJob& job = jobs_[static_cast<std::size_t>(index)];
    if (job.status != Status::queued)
        return;
    job.status = Status::inProgress;
    queuedBytes_ -= std::min(queuedBytes_, job.progress.totalBytes);
    --summary_.queued;
    ++summary_.running;
    feed_ = feed;
    progressTimer_.start();
    Q_EMIT jobChanged(index);
    updateSummary();
}

void TransferViewModel::updateProgress(TransferJob& job, const TransferProgress& progress) {
    job.progress = progress;
    job.isMeasuring = false;
}

/// Takes over what the engine has left since the last time.
void TransferViewModel::showProgress() {
    const int index = feed_ ? indexOf(feed_->id) : -1;
    if (index < 0) {
        progressTimer_.stop();
        return;
    }
    TransferJob& job = jobs_[static_cast<std::size_t>(index)];
    const TransferJob before = job;
    if (const auto progress = feed_->take())
        updateProgress(job, *progress);
    const qint64 done = job.doneBytes();
    speed_.update(addByteCounts(movedBytes_, done), TransferSpeed::Clock::now());
    job.isFinishing = job.progress.totalBytes > 0 && done >= job.progress.totalBytes;
    job.bytesPerSecond = job.isFinishing ? 0 : speed_.bytesPerSecond();
    job.timeLeft = job.isFinishing ? std::nullopt : speed_.timeLeft(job.progress.totalBytes - done);
    if (job == before)
        return;
    Q_EMIT jobChanged(index);
    updateSummary();
}

void TransferViewModel::completeJob(const QUuid& id, const std::shared_ptr<Feed>& feed,
                                    const TransferEnd& end) {
    const int index = indexOf(id);
    if (index < 0)
        return;
    TransferJob& job = jobs_[static_cast<std::size_t>(index)];
    if (job.isFinished())
        return;
    if (const auto progress = feed->take())
        updateProgress(job, *progress);
    if (!end.error) {
        job.progress.completedFiles = job.progress.totalFiles;
        job.progress.completedBytes = job.progress.totalBytes;
        job.progress.currentFileBytes = 0;
        job.progress.currentFileTotal = 0;
        finish(index, Status::completed, nullptr);
        Q_EMIT transferComplete();
    } else if (end.isCancelled) {
        finish(index, Status::cancelled, end.error);
    } else {
        job.error = end.words.message;
        job.advice = end.words.advice;
        job.skipped = end.skipped;
        finish(index, Status::failed, end.error);
    }
}

void TransferViewModel::finish(int index, Status status, const std::exception_ptr& error) {
    TransferJob& job = jobs_[static_cast<std::size_t>(index)];
    const QUuid id = job.id;
    if (job.status == Status::queued) {
        queuedBytes_ -= std::min(queuedBytes_, job.progress.totalBytes);
        --summary_.queued;
    } else {
        --summary_.running;
    }
    finishedBytes_ = addByteCounts(finishedBytes_, job.progress.totalBytes);
    movedBytes_ = addByteCounts(movedBytes_, job.doneBytes());
    ++summary_.finished;
    if (feed_ && feed_->id == id) {
        feed_.reset();
        progressTimer_.stop();
    }
    job.status = status;
    job.isMeasuring = false;
    job.isFinishing = false;
    job.bytesPerSecond = 0;
    job.timeLeft.reset();
    const TransferFinished onFinished = onFinished_.take(id);
    Q_EMIT jobChanged(index);
    updateSummary();
    if (onFinished)
        onFinished(error);
    Q_EMIT jobFinished(id);
}

void TransferViewModel::cancelJob(const QUuid& jobId) {
    MainThread::assertCurrent();
    const int index = indexOf(jobId);
    if (index < 0 || jobs_[static_cast<std::size_t>(index)].isFinished())
        return;
    engine_.cancelJob(jobId);
    finish(index, Status::cancelled, std::make_exception_ptr(CancellationError()));
}

void TransferViewModel::cancelAll() {
    // From the last to the first, so that none starts in between; listeners may change the list.
    std::vector<QUuid> ids;
    for (auto job = jobs_.rbegin(); job != jobs_.rend(); ++job)
        if (!job->isFinished())
            ids.push_back(job->id);
    for (const QUuid& id : ids)
        cancelJob(id);
}

void TransferViewModel::clearCompleted() {
    MainThread::assertCurrent();
    for (int last = static_cast<int>(jobs_.size()) - 1; last >= 0; --last) {
        int first = last;
        while (first >= 0 && jobs_[static_cast<std::size_t>(first)].isFinished())
            --first;
        if (first == last)
            continue;
        ++first;
        Q_EMIT jobsAboutToBeRemoved(first, last);
        for (int i = first; i <= last; ++i)
            indexes_.remove(jobs_[static_cast<std::size_t>(i)].id);
        jobs_.erase(jobs_.begin() + first, jobs_.begin() + last + 1);
        for (std::size_t i = static_cast<std::size_t>(first); i < jobs_.size(); ++i)
            indexes_[jobs_[i].id] = static_cast<int>(i);
        summary_.finished -= last - first + 1;
        Q_EMIT jobsRemoved(first, last);
        last = first;
    }
    updateSummary();
}

/// Counts the folders that wait to be uploaded, one at a time. One that has begun counts itself.
void TransferViewModel::measureNext() {
    const auto isWaiting = [this](const QUuid& id) {
        const int index = indexOf(id);
        return index >= 0 && jobs_[static_cast<std::size_t>(index)].status == Status::queued;
    };
    while (!isMeasuring_ && !toMeasure_.empty()) {
        const QUuid id = toMeasure_.front();
        toMeasure_.pop_front();
        if (!isWaiting(id))
            continue;
        isMeasuring_ = true;
        const QString folder = jobs_[static_cast<std::size_t>(indexOf(id))].sourcePath;
        runInBackground(
            this, [folder] { return calculateLocalDirectoryStats(folder); },
            [this, id, isWaiting](BackgroundResult<LocalDirectoryStats> result) {
                isMeasuring_ = false;
                if (result.succeeded() && isWaiting(id)) {
                    const LocalDirectoryStats stats = result.take();
                    const int index = indexOf(id);
                    TransferJob& job = jobs_[static_cast<std::size_t>(index)];
                    job.progress.totalFiles = stats.totalFiles;
                    job.progress.totalBytes = stats.totalBytes;
                    job.isMeasuring = false;
                    queuedBytes_ = addByteCounts(queuedBytes_, stats.totalBytes);
                    Q_EMIT jobChanged(index);
                    updateSummary();
                }
                measureNext();
            });
    }
}

void TransferViewModel::updateSummary() {
    TransferSummary summary = summary_;
    summary.doneBytes = finishedBytes_;
    summary.totalBytes = addByteCounts(finishedBytes_, queuedBytes_);
    const int running = feed_ ? indexOf(feed_->id) : -1;
    if (running >= 0) {
        const TransferJob& job = jobs_[static_cast<std::size_t>(running)];
        summary.doneBytes = addByteCounts(summary.doneBytes, job.doneBytes());
        summary.totalBytes = addByteCounts(summary.totalBytes, job.progress.totalBytes);
    }
    const bool isIdle = summary.isIdle();
    summary.bytesPerSecond = isIdle ? 0 : speed_.bytesPerSecond();
    summary.timeLeft =
        isIdle ? std::nullopt : speed_.timeLeft(summary.totalBytes - summary.doneBytes);
    // Compared with what was last announced: the counts above are kept current in place.
    summary_ = summary;
    if (summary != announced_) {
        announced_ = summary;
        Q_EMIT summaryChanged();
    }
}

} // namespace tessary
