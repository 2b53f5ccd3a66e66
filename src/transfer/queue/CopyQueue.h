#pragma once

#include "transfer/queue/CopyRecord.h"
#include "transfer/queue/CopySummary.h"
#include "transfer/queue/CopyThreads.h"

#include <QHash>
#include <QObject>
#include <QTimer>

#include <functional>
#include <memory>
#include <vector>

namespace tessary {

/// The two file systems of a copy; null for one that stays as it is.
struct CopyEnds {
    std::shared_ptr<PhoneFileSystem> from{};
    std::shared_ptr<PhoneFileSystem> to{};
};

/// The copies that the user sees, in their order, and what he asks of them. One at a time a phone,
/// in the order of the list; copies of different phones side by side; one between two phones needs
/// both. Lives on the main thread and does no I/O there.
class CopyQueue : public QObject {
    Q_OBJECT

public:
    /// Progress reaches the list at most this often.
    static constexpr std::chrono::milliseconds progressInterval{66};
    /// Called on the main thread each time that a job comes to an end.
    using Finished = std::function<void(const CopyJob&)>;

    explicit CopyQueue(QObject* parent = nullptr);
    /// Stops what runs.
    ~CopyQueue() override;

    [[nodiscard]] const std::vector<CopyJob>& jobs() const {
        return jobs_;
    }
    /// -1 for an id that is not in the list.
    [[nodiscard]] int indexOf(const QUuid& id) const;
    [[nodiscard]] const CopySummary& summary() const {
        return summary_;
    }
    /// What to remember of a job, and what is missing of it by now.
    [[nodiscard]] CopyRecord recordOf(const QUuid& id) const;
    /// Bytes that wait or are under way to a target: they are not free there any more.
    [[nodiscard]] qint64 bytesOnTheWayTo(const QString& targetIdentity) const;

    /// Adds a copy of at least one item at the end. Returns its id; another run of the program may
    /// have given it.
    QUuid enqueue(TreeCopyRequest request, Finished onFinished = {},
                  const QUuid& id = QUuid::createUuid());
    /// Shown as cancelled at once. No effect on one that has finished.
    void cancel(const QUuid& id);
    void cancelAll();
    /// Holds a job up: one that runs stops and keeps what has arrived.
    void pause(const QUuid& id);
    /// Lets one that is paused wait for its turn again.
    void resume(const QUuid& id);
    /// Brings what is missing of a job that canGoOn(): what was left out alone, or the rest of one
    /// that broke off, under the names that it has given. It is queued again under its id. `ends`
    /// are the same file systems, opened anew where their phones were plugged in again.
    void goOn(const QUuid& id, const CopyEnds& ends = {});
    /// Puts a job that waits before another place in the list.
    void moveTo(const QUuid& id, int index);
    /// Removes every job that has finished, but for a cancelled one that has still to end.
    void clearFinished();
    /// Asks what runs to stop and waits for it; nothing is started afterwards. False when something
    /// did not end in time.
    bool stop(std::chrono::milliseconds limit);

Q_SIGNALS:
    void jobAboutToBeAdded(int index);
    void jobAdded(int index);
    void jobChanged(int index);
    /// As QAbstractItemModel::beginMoveRows() takes it for one row.
    void jobAboutToBeMoved(int from, int before);
    void jobMoved();
    void jobsAboutToBeRemoved(int first, int last);
    void jobsRemoved(int first, int last);
    void summaryChanged();
    void jobFinished(const QUuid& id);
    /// recordOf() has another answer that is worth keeping: the job was queued, or all of it has
    /// come to an end, its thread included.
    void recordChanged(const QUuid& id);

private:
    struct Work;

    [[nodiscard]] CopyJob* find(const QUuid& id);
    void startNext();
    void start(CopyJob& job);
    void takeOutcome(const QUuid& id, const std::shared_ptr<Work>& work, CopyOutcome outcome);
    void finish(CopyJob& job, CopyJob::Status status);
    void showProgress();
    void updateSummary();
    void tellChanged(const std::vector<QUuid>& ids);
    void noteOrder();

    std::vector<CopyJob> jobs_;
    QHash<QUuid, int> indexes_;
    QHash<QUuid, std::shared_ptr<Work>> works_;
    QTimer progressTimer_;
    CopySummary summary_;
    CopyTotals totals_;

    CopyThreads threads_; ///< last: its end waits for what still posts to this
};

} // namespace tessary
