#pragma once

#include "phone/FileAccess.h"
#include "transfer/TransferEngine.h"
#include "transfer/TransferJob.h"
#include "transfer/queue/TransferSpeed.h"

#include <QHash>
#include <QObject>
#include <QTimer>

#include <deque>
#include <functional>
#include <memory>
#include <optional>
#include <stop_token>
#include <vector>

namespace tessary {

struct TransferEnd;

/// The queue as a whole: what is under way since it was last empty.
struct TransferSummary {
    int queued = 0;
    int running = 0;  ///< 0 or 1
    int finished = 0; ///< in the list, whatever their outcome
    qint64 doneBytes = 0;
    qint64 totalBytes = 0;
    double bytesPerSecond = 0;
    std::optional<std::chrono::seconds> timeLeft;

    [[nodiscard]] bool isIdle() const {
        return queued + running == 0;
    }
    bool operator==(const TransferSummary&) const = default;
};

/// What is known of something local that is to be uploaded.
struct UploadFacts {
    bool isDirectory = false;
    qint64 bytes = 0; ///< of a file
};

/// How a download ended: null for success, else what went wrong (CancellationError included).
using TransferFinished = std::function<void(const std::exception_ptr&)>;

/// The list of transfers that the user sees, oldest first, and what they ask of it. Lives on the
/// main thread and does no I/O there beyond reading the facts of a local file that is to be
/// uploaded, where nobody else has.
///
/// A folder transfer that had to leave something out ends as `failed`, with an error that counts
/// and names what is missing ("3 of 200 files were not copied: ..."): `completed` means that all of
/// it is there.
class TransferViewModel : public QObject {
    Q_OBJECT

public:
    /// Progress reaches the list at most this often.
    static constexpr std::chrono::milliseconds progressInterval{66};

    /// `engine` must outlive this.
    explicit TransferViewModel(TransferEngine& engine = TransferEngine::shared(),
                               QObject* parent = nullptr);
    /// Cancels what has not finished.
    ~TransferViewModel() override;

    [[nodiscard]] const std::vector<TransferJob>& jobs() const {
        return jobs_;
    }
    /// -1 for an id that is not in the list.
    [[nodiscard]] int indexOf(const QUuid& jobId) const;
    [[nodiscard]] const TransferSummary& summary() const {
        return summary_;
    }

    /// Copies a local file or folder into the device folder `remotePath`, under the source's name.
    /// Returns the job's id. Looks at the local disk for what is not known.
    QUuid enqueueUpload(const LocalSource& source, const QString& remotePath,
                        const std::shared_ptr<FileAccess>& files,
                        std::optional<UploadFacts> known = {});
    /// Copies a file or folder of the device to `localURL`, the path of the copy itself, whose
    /// folder exists. An older file of that path is replaced, folders are merged. `onFinished` is
    /// called on the main thread.
    QUuid enqueueDownload(const FileItem& item, const QString& localURL,
                          const std::shared_ptr<FileAccess>& files,
                          const TransferFinished& onFinished = {});

    /// The job is shown as cancelled at once. No effect on one that has finished.
    void cancelJob(const QUuid& jobId);
    void cancelAll();
    /// Removes every job that has finished.
    void clearCompleted();

Q_SIGNALS:
    void jobAboutToBeAdded(int index);
    void jobAdded(int index);
    void jobChanged(int index);
    void jobsAboutToBeRemoved(int first, int last);
    void jobsRemoved(int first, int last);
    void summaryChanged();
    /// The job has reached its last state; emitted once a job.
    void jobFinished(const QUuid& jobId);
    /// After every successful job.
    void transferComplete();

private:
    struct Feed;

    QUuid append(TransferJob job);
    void
    start(const QUuid& id, const std::shared_ptr<FileAccess>& files,
          std::function<void(FileAccess&, const TransferProgressCallback&, const std::stop_token&)>
              work);
    void markJobInProgress(const QUuid& id, const std::shared_ptr<Feed>& feed);
    void updateProgress(TransferJob& job, const TransferProgress& progress);
    void completeJob(const QUuid& id, const std::shared_ptr<Feed>& feed, const TransferEnd& end);
    void finish(int index, TransferJob::TransferStatus status, const std::exception_ptr& error);
    void showProgress();
    void measureNext();
    void updateSummary();

    TransferEngine& engine_;
    std::vector<TransferJob> jobs_;
    QHash<QUuid, int> indexes_;
    QHash<QUuid, TransferFinished> onFinished_;
    std::deque<QUuid> toMeasure_;
    bool isMeasuring_ = false;
    std::shared_ptr<Feed> feed_; ///< of the running job; null while none runs
    QTimer progressTimer_;
    TransferSummary summary_;
    TransferSummary announced_; ///< as of the last summaryChanged

    // Of the jobs since the queue was last empty:
    TransferSpeed speed_;
    qint64 queuedBytes_ = 0;   ///< totals of those that wait
    qint64 finishedBytes_ = 0; ///< totals of those that have ended, however they did
    qint64 movedBytes_ = 0;    ///< what those that have ended really copied
};

} // namespace tessary
