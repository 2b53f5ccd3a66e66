#include "sync/manager/SyncManager.h"

#include "base/threads/Background.h"
#include "base/threads/CancellationError.h"
#include "base/values/TessaryError.h"
#include "devices/list/DeviceManager.h"
#include "platform/desktop/HostInfo.h"
#include "sync/old/plan/SyncHost.h"
#include "sync/old/run/DiskSyncFolder.h"
#include "sync/old/run/SyncRun.h"
#include "transfer/ErrorAdvice.h"

#include <QJsonObject>
#include <QLocale>

#include <algorithm>
#include <condition_variable>
#include <mutex>

namespace tessary {

namespace {

/// The text of an error that work in the background ended with. A cancellation has none.
QString textOf(const std::exception_ptr& failure) {
    try {
        std::rethrow_exception(failure);
    } catch (const CancellationError&) {
        return {};
    } catch (const std::exception& error) {
        return adviceFor(error).text();
    }
}

std::optional<DeviceInfo> deviceOf(const SyncPair& pair, const DeviceManager* manager) {
    if (manager != nullptr)
        for (const DeviceInfo& device : manager->devices())
            if (device.udid == pair.deviceUDID)
                return device;
    return std::nullopt;
}

const QString& disconnected() {
    static const QString text = QStringLiteral("Device disconnected");
    return text;
}

/// An answer that one thread waits for and another gives.
struct Answer {
    std::mutex mutex;
    std::condition_variable_any changed;
    std::optional<bool> value; ///< guarded by mutex

    void give(bool answer) {
        const std::scoped_lock lock(mutex);
        if (!value)
            value = answer;
        changed.notify_all();
    }
    [[nodiscard]] bool wait(const std::stop_token& stop) {
        std::unique_lock lock(mutex);
        if (!changed.wait(lock, stop, [this] { return value.has_value(); }))
            throw CancellationError();
        return *value;
    }
};

/// The newest progress on its way to the main thread: one post at a time, however many come.
struct LatestProgress {
    std::mutex mutex;
    SyncProgress value;    ///< guarded by mutex
    bool isPosted = false; ///< guarded by mutex
};

} // namespace

SyncManager::SyncManager(UserDefaults& defaults, SyncConnector connect, QObject* parent)
    : QObject(parent), defaults_(defaults), connect_(std::move(connect)) {
    MainThread::assertCurrent();
    loadSyncPairs();
}

SyncManager::~SyncManager() {
    if (running_)
        running_->stop.request_stop();
}

const SyncPair* SyncManager::pair(const QUuid& id) const {
    const auto it = std::find_if(pairs_.begin(), pairs_.end(),
                                 [&](const SyncPair& pair) { return pair.id == id; });
    return it == pairs_.end() ? nullptr : &*it;
}

SyncPair* SyncManager::find(const QUuid& id) {
    return const_cast<SyncPair*>(pair(id));
}

void SyncManager::loadSyncPairs() {
    pairs_ = decodeSyncPairs(defaults_.value(userDefaultsKey)).value_or(std::vector<SyncPair>());
    Q_EMIT syncPairsChanged();
}

void SyncManager::saveSyncPairs() {
    std::vector<SyncPair> saved = pairs_;
    for (SyncPair& pair : saved) {
        if (pair.status.kind == SyncStatus::Kind::syncing)
            pair.status = {};
        pair.progress = {};
    }
    defaults_.setValue(userDefaultsKey, encodeSyncPairs(saved));
}

void SyncManager::addSyncPair(const SyncPair& pair) {
    pairs_.push_back(pair);
    saveSyncPairs();
    Q_EMIT syncPairsChanged();
}

void SyncManager::updateSyncPair(const SyncPair& pair) {
    SyncPair* old = find(pair.id);
    if (old == nullptr)
        return;
    SyncPair changed = pair;
    if (isRunningOrWaiting(pair.id)) {
        changed.status = old->status;
        changed.progress = old->progress;
    }
    *old = std::move(changed);
    saveSyncPairs();
    Q_EMIT syncPairsChanged();
}

void SyncManager::removeSyncPair(const QUuid& id) {
    cancel(id);
    std::erase_if(pairs_, [&](const SyncPair& pair) { return pair.id == id; });
    saveSyncPairs();
    Q_EMIT syncPairsChanged();
}

QString SyncManager::macHostID() {
    return syncHostID(defaults_);
}

void SyncManager::setBrowsingContext(std::optional<DeviceInfo> device, std::optional<AppInfo> app,
                                     const QString& remotePath) {
    activeDevice_ = std::move(device);
    activeApp_ = std::move(app);
    activeRemotePath_ = remotePath;
}

bool SyncManager::isRunningOrWaiting(const QUuid& id) const {
    return (running_ && running_->id == id) ||
           std::any_of(waiting_.begin(), waiting_.end(),
                       [&](const Job& job) { return job.id == id; });
}

void SyncManager::syncAll(DeviceManager& deviceManager, const OnDeleteConfirm& onDeleteConfirm) {
    std::vector<QUuid> ids;
    for (const SyncPair& pair : pairs_)
        ids.push_back(pair.id);
    for (const QUuid& id : ids)
        syncPair(id, deviceManager, onDeleteConfirm);
}

void SyncManager::syncPair(const QUuid& id, DeviceManager& deviceManager,
                           const OnDeleteConfirm& onDeleteConfirm) {
    MainThread::assertCurrent();
    if (pair(id) == nullptr || isRunningOrWaiting(id))
        return;
    waiting_.push_back({id, &deviceManager, onDeleteConfirm});
    if (running_)
        Q_EMIT syncPairChanged(id);
    else
        startNext();
}

void SyncManager::cancel(const QUuid& id) {
    if (std::erase_if(waiting_, [&](const Job& job) { return job.id == id; }) > 0)
        Q_EMIT syncPairChanged(id);
    if (running_ && running_->id == id) {
        running_->isCancelled = true;
        running_->stop.request_stop();
    }
}

void SyncManager::cancelAll() {
    for (const Job& job : std::exchange(waiting_, {}))
        Q_EMIT syncPairChanged(job.id);
    if (running_)
        cancel(running_->id);
}

void SyncManager::startNext() {
    while (!running_ && !waiting_.empty()) {
        const Job job = std::move(waiting_.front());
        waiting_.pop_front();
        if (pair(job.id) != nullptr)
            start(job);
    }
    if (!running_)
        Q_EMIT idle();
}

void SyncManager::start(const Job& job) {
    const QUuid id = job.id;
    setProgress(id, {});
    setStatus(id, SyncStatus::syncing(QStringLiteral("Connecting to device…")));
    const SyncPair pair = *find(id);
    const auto device = deviceOf(pair, job.deviceManager);
    if (!device) {
        finish(id, SyncStatus::error(disconnected()), QStringLiteral("Error"));
        addHistory(id, disconnected());
        return;
    }
    const QPointer<SyncManager> self(this);
    const auto latest = std::make_shared<LatestProgress>();
    SyncRunEvents events;
    events.status = [self, id](const QString& message) {
        MainThread::post([self, id, message] {
            if (self && self->running_ && self->running_->id == id)
                self->setStatus(id, SyncStatus::syncing(message));
        });
    };
    events.progress = [self, id, latest](const SyncProgress& progress) {
        const std::scoped_lock lock(latest->mutex);
        latest->value = progress;
        if (std::exchange(latest->isPosted, true))
            return;
        MainThread::post([self, id, latest] {
            SyncProgress newest;
            {
                const std::scoped_lock takeLock(latest->mutex);
                latest->isPosted = false;
                newest = latest->value;
            }
            // Who hears of it may do anything: without the lock.
            if (self && self->running_ && self->running_->id == id)
                self->setProgress(id, newest);
        });
    };
    const auto run = [pair, device = *device, connect = connect_, events, confirm = job.confirm,
                      hostID = macHostID()](const std::stop_token& stop) mutable {
        events.ask = [confirm, stop](const SyncQuestion& question) {
            const auto answer = std::make_shared<Answer>();
            MainThread::post([confirm, question, answer] {
                if (confirm)
                    confirm(question, [answer](bool yes) { answer->give(yes); });
                else
                    answer->give(false);
            });
            return answer->wait(stop);
        };
        const auto backend = connect(pair, device, stop);
        DiskSyncFolder folder(pair.localFolderPath);
        return SyncRun({pair, hostID, computerName(), folder, *backend,
                        [] { return QDateTime::currentDateTime(); }},
                       events, stop)
            .run();
    };
    running_ = Running{id, {}};
    running_->stop = runInBackground(this, run, [this, id](BackgroundResult<SyncReport> result) {
        ended(id, [&result] { return result.take(); });
    });
}

void SyncManager::ended(const QUuid& id, const std::function<SyncReport()>& result) {
    const bool isCancelled = running_ && running_->isCancelled;
    running_.reset();
    try {
        addHistory(id, result().summary());
        if (SyncPair* pair = find(id))
            pair->lastSyncedAt = QDateTime::currentDateTimeUtc();
        finish(id, SyncStatus::completed(), QStringLiteral("Completed"));
        Q_EMIT syncDidComplete(id);
    } catch (const CancellationError&) {
        addHistory(id, QStringLiteral("Cancelled"));
        finish(id, {}, {});
    } catch (const std::exception& error) {
        // What breaks while a cancelled run winds down is not worth a word.
        addHistory(id, isCancelled ? QStringLiteral("Cancelled") : adviceFor(error).text());
        finish(id, isCancelled ? SyncStatus() : SyncStatus::error(adviceFor(error).text()),
               isCancelled ? QString() : QStringLiteral("Error"));
    }
    startNext();
}

/// The end of a run in the pair list.
void SyncManager::finish(const QUuid& id, const SyncStatus& status, const QString& stage) {
    SyncPair* pair = find(id);
    if (pair == nullptr)
        return;
    pair->status = status;
    pair->progress.stage = stage;
    pair->progress.currentFileBytes = 0;
    saveSyncPairs();
    Q_EMIT syncPairChanged(id);
}

void SyncManager::setStatus(const QUuid& id, const SyncStatus& status) {
    if (SyncPair* pair = find(id)) {
        pair->status = status;
        pair->progress.stage = status.message;
        Q_EMIT syncPairChanged(id);
    }
}

void SyncManager::setProgress(const QUuid& id, const SyncProgress& progress) {
    if (SyncPair* pair = find(id)) {
        pair->progress = progress;
        Q_EMIT syncPairChanged(id);
    }
}

std::stop_source SyncManager::preview(const SyncPair& pair, DeviceManager& deviceManager,
                                      PreviewDone done) {
    const auto device = deviceOf(pair, &deviceManager);
    const auto work = [pair, device, connect = connect_,
                       hostID = macHostID()](const std::stop_token& stop) {
        if (!device)
            throw TessaryError::deviceNotFound(disconnected());
        const auto backend = connect(pair, *device, stop);
        DiskSyncFolder folder(pair.localFolderPath);
        return SyncRun({pair,
                        hostID,
                        {},
                        folder,
                        *backend,
                        [] { return QDateTime::currentDateTime(); }},
                       {}, stop)
            .preview();
    };
    return runInBackground(
        this, work, [device, done = std::move(done)](BackgroundResult<SyncPreview> result) {
            if (result.succeeded()) {
                done(result.take(), {});
                return;
            }
            const QString text = device ? textOf(result.error()) : disconnected();
            if (!text.isEmpty())
                done(std::nullopt, text);
        });
}

void SyncManager::addHistory(const QUuid& id, const QString& line) {
    QJsonObject history = defaults_.value(historyKey).toObject();
    for (const QString& key : history.keys())
        if (pair(QUuid::fromString(key)) == nullptr)
            history.remove(key);
    history.insert(id.toString(QUuid::WithoutBraces),
                   QJsonObject{{QLatin1StringView("date"),
                                QDateTime::currentDateTimeUtc().toString(Qt::ISODate)},
                               {QLatin1StringView("text"), line}});
    defaults_.setValue(historyKey, history);
}

QString SyncManager::historyLine(const QUuid& id) const {
    const QJsonObject entry =
        defaults_.value(historyKey).toObject().value(id.toString(QUuid::WithoutBraces)).toObject();
    const QDateTime date =
        QDateTime::fromString(entry.value(QLatin1StringView("date")).toString(), Qt::ISODate);
    if (!date.isValid())
        return {};
    return QLocale().toString(date.toLocalTime(), QLocale::ShortFormat) + QStringLiteral(": ") +
           entry.value(QLatin1StringView("text")).toString();
}

} // namespace tessary
