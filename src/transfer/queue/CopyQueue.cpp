#include "transfer/queue/CopyQueue.h"

#include "base/text/ByteCount.h"
#include "base/threads/MainThread.h"

#include <QPointer>
#include <QSet>

#include <algorithm>
#include <array>
#include <iterator>
#include <mutex>
#include <set>
#include <utility>

namespace tessary {

namespace {

using Status = CopyJob::Status;

CopyJob::Direction directionOf(const TreeCopyRequest& request) {
    const bool isFromPhone = request.from->queue() != nullptr;
    if (request.to->queue())
        return isFromPhone ? CopyJob::Direction::betweenPhones : CopyJob::Direction::toPhone;
    return isFromPhone ? CopyJob::Direction::toComputer : CopyJob::Direction::onComputer;
}

/// The phones that a copy keeps busy.
std::set<const PhoneQueue*> phonesOf(const TreeCopyRequest& request) {
    std::set<const PhoneQueue*> phones{request.from->queue().get(), request.to->queue().get()};
    phones.erase(nullptr);
    return phones;
}

/// Of what was left out in folders nobody was asked about a clash in the folder that was made here:
/// both are kept.
void keepBothOf(TreeCopyRequest& request, const std::vector<LeftOut>& leftOut) {
    QSet<QString> fromFolders;
    for (const LeftOut& one : leftOut)
        if (!one.item.folder.isEmpty())
            fromFolders.insert(one.item.item.id());
    if (request.policy && !fromFolders.isEmpty())
        request.policy = [given = request.policy, fromFolders](const Clash& clash) {
            return fromFolders.contains(clash.coming.id()) ? ClashAnswer::keepBoth : given(clash);
        };
}

Status statusAfter(CopyOutcome::End end) {
    constexpr std::array statuses{Status::done, Status::incomplete, Status::cancelled,
                                  Status::failed}; // in the order of the ends
    return statuses[static_cast<std::size_t>(end)];
}

} // namespace

/// What belongs to a job and is not shown.
struct CopyQueue::Work {
    TreeCopyRequest request;
    Finished onFinished;
    std::optional<std::stop_source> stop; ///< while it runs
    bool isPausing = false;
    bool isCancelled = false;
    TransferSpeed speed;
    bool mayFindBytes = false; ///< its first bytes may be those of an earlier run

    std::mutex mutex;
    std::optional<TransferProgress> latest; ///< guarded by mutex: where the copy's thread leaves it

    void put(const TransferProgress& progress) {
        const std::scoped_lock lock(mutex);
        latest = progress;
    }
    [[nodiscard]] std::optional<TransferProgress> take() {
        const std::scoped_lock lock(mutex);
        return std::exchange(latest, std::nullopt);
    }
};

CopyQueue::CopyQueue(QObject* parent) : QObject(parent) {
    progressTimer_.setInterval(progressInterval);
    connect(&progressTimer_, &QTimer::timeout, this, &CopyQueue::showProgress);
}

CopyQueue::~CopyQueue() = default;

int CopyQueue::indexOf(const QUuid& id) const {
    return indexes_.value(id, -1);
}

CopyJob* CopyQueue::find(const QUuid& id) {
    MainThread::assertCurrent();
    const int index = indexOf(id);
    return index < 0 ? nullptr : &jobs_[static_cast<std::size_t>(index)];
}

void CopyQueue::noteOrder() {
    indexes_.clear();
    for (std::size_t i = 0; i < jobs_.size(); ++i)
        indexes_.insert(jobs_[i].id, static_cast<int>(i));
}

/// Who hears of it may change the list.
void CopyQueue::tellChanged(const std::vector<QUuid>& ids) {
    for (const QUuid& id : ids)
        if (const int index = indexOf(id); index >= 0)
            Q_EMIT jobChanged(index);
}

qint64 CopyQueue::bytesOnTheWayTo(const QString& targetIdentity) const {
    qint64 bytes = 0;
    for (const CopyJob& job : jobs_)
        if (!job.isFinished() && job.target == targetIdentity)
            bytes = addByteCounts(bytes, job.progress.totalBytes - job.doneBytes());
    return bytes;
}

CopyRecord CopyQueue::recordOf(const QUuid& id) const {
    const int index = indexOf(id);
    if (index < 0)
        return {};
    CopyRecord record{jobs_[static_cast<std::size_t>(index)], QDateTime::currentDateTime()};
    const TreeCopyRequest& request = works_[id]->request;
    record.removesSource = request.removesSource;
    record.verifies = request.verifies;
    if (record.job.status != Status::done)
        record.rest = request.items;
    return record;
}

QUuid CopyQueue::enqueue(TreeCopyRequest request, Finished onFinished, const QUuid& id) {
    MainThread::assertCurrent();
    Q_ASSERT(!request.items.empty() && indexOf(id) < 0);
    CopyJob job;
    job.id = id;
    job.direction = directionOf(request);
    const CopyItem& first = request.items.front();
    job.name = first.name;
    job.things = static_cast<int>(request.items.size());
    job.isFolder = first.item.isDirectory;
    job.sourcePath = first.item.path;
    job.targetFolder = request.folder;
    job.phone = request.to->queue() ? request.to->displayName() : request.from->displayName();
    if (job.direction == CopyJob::Direction::betweenPhones)
        job.sourcePhone = request.from->displayName();
    job.source = request.from->identity();
    job.target = request.to->identity();
    job.sourceApp = request.from->appName();
    job.targetApp = request.to->appName();
    for (const CopyItem& item : request.items) {
        if (item.item.isDirectory) {
            job.isMeasuring = true;
        } else {
            ++job.progress.totalFiles;
            job.progress.totalBytes =
                addByteCounts(job.progress.totalBytes, std::max<qint64>(item.item.size, 0));
        }
    }
    if (summary_.isIdle())
        totals_.beginAnew();
    auto work = std::make_shared<Work>();
    work->request = std::move(request);
    work->onFinished = std::move(onFinished);
    const int index = static_cast<int>(jobs_.size());
    Q_EMIT jobAboutToBeAdded(index);
    works_.insert(id, std::move(work));
    jobs_.push_back(std::move(job));
    indexes_.insert(id, index);
    Q_EMIT jobAdded(index);
    Q_EMIT recordChanged(id);
    startNext();
    return id;
}

/// Starts whatever has its phones for itself and nobody before it who waits for one of them.
void CopyQueue::startNext() {
    std::set<const PhoneQueue*> busy;
    for (const CopyJob& job : jobs_)
        if (works_[job.id]->stop)
            busy.merge(phonesOf(works_[job.id]->request));
    std::vector<QUuid> started;
    for (CopyJob& job : jobs_) {
        if (job.status != Status::queued || works_[job.id]->stop)
            continue;
        std::set<const PhoneQueue*> phones = phonesOf(works_[job.id]->request);
        const bool isFree = std::none_of(phones.begin(), phones.end(), [&busy](const auto* phone) {
            return busy.contains(phone);
        });
        busy.merge(phones);
        if (!isFree)
            continue;
        start(job);
        started.push_back(job.id);
    }
    tellChanged(started);
    updateSummary();
}

void CopyQueue::start(CopyJob& job) {
    const std::shared_ptr<Work> work = works_[job.id];
    work->speed = {};
    work->mayFindBytes = true;
    job.status = Status::running;
    job.error.reset();
    job.leftOut.clear();
    const QPointer<CopyQueue> self(this);
    work->stop = threads_.start(
        work->request,
        {.onProgress = [work](const TransferProgress& progress) { work->put(progress); },
         .onEnd =
             [self, work, id = job.id](CopyOutcome outcome) {
                 // On the copy's thread the pointer is only carried along.
                 MainThread::post(
                     [self, work, id, shared = std::make_shared<CopyOutcome>(std::move(outcome))] {
                         if (self)
                             self->takeOutcome(id, work, std::move(*shared));
                     });
             }});
    progressTimer_.start();
}

void CopyQueue::takeOutcome(const QUuid& id, const std::shared_ptr<Work>& work,
                            CopyOutcome outcome) {
    work->stop.reset();
    CopyJob* const job = find(id); // what runs is not cleared
    const auto progress = work->take();
    const CopyOutcome::End end = work->isCancelled ? CopyOutcome::End::cancelled : outcome.end();
    const bool isPaused =
        work->isPausing && end == CopyOutcome::End::cancelled && !work->isCancelled;
    if (progress && !isPaused) // else what there is of a file stays, and is shown
        job->progress = *progress;
    job->alreadyThere += outcome.alreadyThere;
    job->made += outcome.made;
    job->made.removeDuplicates();
    job->entries.add(outcome.entries);
    work->request.brought.add(outcome.brought);
    job->leftOut = std::move(outcome.leftOut);
    job->error = outcome.failure;
    // What goes on later knows what is there already.
    work->request.skipsSame = true;
    if (end == CopyOutcome::End::incomplete)
        keepBothOf(work->request, job->leftOut);
    // A move goes on with all that has not gone, for its folders' sake.
    work->request.items.clear();
    if (end == CopyOutcome::End::incomplete && !work->request.removesSource)
        std::ranges::transform(job->leftOut, std::back_inserter(work->request.items),
                               &LeftOut::item);
    else
        work->request.items = std::move(outcome.items);
    work->isPausing = false;
    if (isPaused) {
        job->bytesPerSecond = 0;
        job->timeLeft.reset();
        tellChanged({id});
        startNext();
        return;
    }
    finish(*job, statusAfter(end));
    Q_EMIT recordChanged(id);
    startNext();
}

/// The job has come to an end, or is shown so.
void CopyQueue::finish(CopyJob& job, Status status) {
    if (job.isFinished())
        return;
    job.status = status;
    job.isMeasuring = false;
    job.isFinishing = false;
    job.bytesPerSecond = 0;
    job.timeLeft.reset();
    totals_.noteEnd(job);
    const CopyJob shown = job; // listeners may change the list
    const Finished told = works_[job.id]->onFinished;
    tellChanged({shown.id});
    updateSummary();
    if (told)
        told(shown);
    Q_EMIT jobFinished(shown.id);
}

void CopyQueue::cancel(const QUuid& id) {
    CopyJob* const job = find(id);
    if (job == nullptr || job->isFinished())
        return;
    Work& work = *works_[id];
    work.isCancelled = true;
    const bool isUnderWay = work.stop.has_value();
    if (isUnderWay)
        work.stop->request_stop();
    finish(*job, Status::cancelled);
    if (!isUnderWay)
        Q_EMIT recordChanged(id);
    startNext();
}

void CopyQueue::cancelAll() {
    // From the last to the first, so that none starts in between; listeners may change the list.
    std::vector<QUuid> ids;
    for (auto job = jobs_.rbegin(); job != jobs_.rend(); ++job)
        if (!job->isFinished())
            ids.push_back(job->id);
    for (const QUuid& id : ids)
        cancel(id);
}

void CopyQueue::pause(const QUuid& id) {
    CopyJob* const job = find(id);
    if (job == nullptr || (job->status != Status::queued && job->status != Status::running))
        return;
    Work& work = *works_[id];
    job->status = Status::paused;
    if (work.stop) {
        work.isPausing = true;
        work.stop->request_stop();
    }
    tellChanged({id});
    startNext();
}

void CopyQueue::resume(const QUuid& id) {
    CopyJob* const job = find(id);
    if (job == nullptr || job->status != Status::paused)
        return;
    job->status = Status::queued; // it waits until its thread has ended
    tellChanged({id});
    startNext();
}

void CopyQueue::goOn(const QUuid& id, const CopyEnds& ends) {
    CopyJob* const job = find(id);
    if (job == nullptr || !job->canGoOn())
        return;
    if (summary_.isIdle())
        totals_.beginAnew();
    Work& work = *works_[id];
    work.isCancelled = false;
    work.isPausing = work.stop.has_value(); // it begins once its thread has ended
    if (ends.from)
        work.request.from = ends.from;
    if (ends.to)
        work.request.to = ends.to;
    job->status = Status::queued;
    job->progress = {};
    job->isMeasuring = true;
    tellChanged({id});
    Q_EMIT recordChanged(id);
    startNext();
}

void CopyQueue::moveTo(const QUuid& id, int index) {
    CopyJob* const job = find(id);
    const int from = indexOf(id);
    const int before = std::clamp(index, 0, static_cast<int>(jobs_.size()));
    if (job == nullptr || before == from || before == from + 1)
        return;
    Q_EMIT jobAboutToBeMoved(from, before);
    const auto moved = jobs_.begin() + from;
    if (before < from)
        std::rotate(jobs_.begin() + before, moved, moved + 1);
    else
        std::rotate(moved, moved + 1, jobs_.begin() + before);
    noteOrder();
    Q_EMIT jobMoved();
    startNext();
}

void CopyQueue::clearFinished() {
    MainThread::assertCurrent();
    // What was cancelled and has not ended yet has still to say what it made.
    const auto isOver = [this](int index) {
        const CopyJob& job = jobs_[static_cast<std::size_t>(index)];
        return job.isFinished() && !works_[job.id]->stop;
    };
    for (int last = static_cast<int>(jobs_.size()) - 1; last >= 0; --last) {
        int first = last;
        while (first >= 0 && isOver(first))
            --first;
        if (first == last)
            continue;
        ++first;
        Q_EMIT jobsAboutToBeRemoved(first, last);
        for (int i = first; i <= last; ++i)
            works_.remove(jobs_[static_cast<std::size_t>(i)].id);
        jobs_.erase(jobs_.begin() + first, jobs_.begin() + last + 1);
        noteOrder();
        Q_EMIT jobsRemoved(first, last);
        last = first;
    }
    updateSummary();
}

bool CopyQueue::stop(std::chrono::milliseconds limit) {
    return threads_.stop(limit);
}

/// Takes over what the copies' threads have left since the last time.
void CopyQueue::showProgress() {
    std::vector<QUuid> running;
    const auto now = TransferSpeed::Clock::now();
    for (CopyJob& job : jobs_) {
        if (job.status != Status::running)
            continue;
        running.push_back(job.id);
        Work& work = *works_[job.id];
        if (const auto progress = work.take()) {
            job.progress = *progress;
            job.isMeasuring = false;
            if (work.mayFindBytes && job.doneBytes() > 0) {
                work.mayFindBytes = false;
                work.speed.skip();
                totals_.noteFound();
            }
        }
        const qint64 done = job.doneBytes();
        work.speed.update(done, now);
        job.isFinishing = job.progress.totalBytes > 0 && done >= job.progress.totalBytes;
        job.bytesPerSecond = job.isFinishing ? 0 : work.speed.bytesPerSecond();
        job.timeLeft =
            job.isFinishing ? std::nullopt : work.speed.timeLeft(job.progress.totalBytes - done);
    }
    if (running.empty())
        progressTimer_.stop();
    tellChanged(running);
    updateSummary();
}

void CopyQueue::updateSummary() {
    const CopySummary summary = totals_.summaryOf(jobs_);
    if (summary == summary_)
        return;
    summary_ = summary;
    Q_EMIT summaryChanged();
}

} // namespace tessary
