#include "sync/manager/SyncManager.h"

#include "base/threads/Background.h"
#include "base/threads/CancellationError.h"
#include "base/threads/TellLatest.h"
#include "devices/files/PhoneFileSystems.h"
#include "devices/list/DeviceManager.h"
#include "phone/PhoneError.h"
#include "platform/desktop/HostInfo.h"
#include "sync/manager/SyncHost.h"
#include "sync/pair/SyncPairJson.h"
#include "transfer/local/LocalFileSystem.h"

#include <algorithm>
#include <condition_variable>
#include <mutex>

namespace tessary {

namespace {

using Outcome = SyncReport::Outcome;

std::optional<DeviceInfo> deviceOf(const SyncPair& pair, const DeviceManager* manager) {
    if (manager != nullptr)
        for (const DeviceInfo& device : manager->devices())
            if (device.udid == pair.deviceUDID)
                return device;
    return std::nullopt;
}

QDateTime now() {
    return QDateTime::currentDateTime();
}

SyncReport failedReport(const Error& error) {
    SyncReport report;
    report.outcome = Outcome::failed;
    report.startedAt = report.endedAt = now();
    report.failure = error;
    return report;
}

/// An answer that one thread waits for and another gives. Thread-safe.
class PendingAnswer {
public:
    /// The first one counts.
    void give(SyncAnswer answer) {
        const std::scoped_lock lock(mutex_);
        if (!value_)
            value_ = std::move(answer);
        changed_.notify_all();
    }
    /// Throws CancellationError once `stop` asks for it.
    [[nodiscard]] SyncAnswer wait(const std::stop_token& stop) {
        std::unique_lock lock(mutex_);
        if (!changed_.wait(lock, stop, [this] { return value_.has_value(); }))
            throw CancellationError();
        return *value_;
    }

private:
    std::mutex mutex_;
    std::condition_variable_any changed_;
    std::optional<SyncAnswer> value_; ///< guarded by mutex_
};

/// The device side of a pair: an Android phone's storage, an app's documents on an iPhone, or the
/// iPhone's media folder.
std::shared_ptr<PhoneFileSystem> openSide(PhoneFileSystems& phones, const SyncPair& pair,
                                          const DeviceInfo& device) {
    if (device.platform == DevicePlatform::android)
        return phones.open(device);
    if (pair.appBundleID == SyncPair::deviceStorage)
        return phones.openMedia(device);
    AppInfo app;
    app.bundleIdentifier = pair.appBundleID;
    app.displayName = pair.appName;
    return phones.openApp(device, app);
}

/// Everything that a run in the background needs.
struct RunWork {
    SyncPair pair;
    DeviceInfo device;
    QString hostID;
    SyncManagerSetup setup;
    SyncDecisions decisions;

    template <typename Use>
    auto with(const std::stop_token& stop, const SyncRunEvents& events, Use use) const {
        throwIfStopped(stop);
        const auto files = openSide(setup.phones, pair, device);
        LocalFileSystem folder(pair.localFolderPath);
        SyncRunSetup ofRun{pair, hostID, computerName(), syncComputer(folder, setup.trash), *files};
        ofRun.decisions = decisions;
        SyncRun run(std::move(ofRun), events, stop);
        return use(run);
    }
};

} // namespace

SyncManager::SyncManager(SettingsStore& defaults, SyncManagerSetup setup, QObject* parent)
    : QObject(parent),
      defaults_(defaults),
      storedPairs_(defaults, settingsKey),
      setup_(std::move(setup)),
      store_(setup_.reportFolder) {
    MainThread::assertCurrent();
    auto pairs = decodeSyncPairs(storedPairs_.value());
    storedPairs_.setKnown(pairs ? std::optional(encodeSyncPairs(*pairs)) : std::nullopt);
    pairs_ = std::move(pairs).value_or(std::vector<SyncPair>());
    loadLastReports();
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

void SyncManager::saveSyncPairs() {
    std::vector<SyncPair> saved = pairs_;
    for (SyncPair& pair : saved) {
        if (pair.status.kind == SyncStatus::Kind::syncing)
            pair.status = {};
        pair.progress = {};
    }
    storedPairs_.store(encodeSyncPairs(saved));
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
    // A run may have begun or ended since the caller has got it.
    SyncPair changed = pair;
    changed.status = old->status;
    changed.progress = old->progress;
    changed.lastSyncedAt = old->lastSyncedAt;
    // What was decided for one folder holds for no other, whose first run is previewed.
    if (pair.localFolderPath != old->localFolderPath) {
        changed.lastSyncedAt.reset();
        std::erase_if(waiting_, [&](const Job& job) { return job.id == pair.id; });
    }
    *old = std::move(changed);
    saveSyncPairs();
    Q_EMIT syncPairsChanged();
}

void SyncManager::removeSyncPair(const QUuid& id) {
    cancel(id);
    std::erase_if(pairs_, [&](const SyncPair& pair) { return pair.id == id; });
    lastReports_.remove(id);
    saveSyncPairs();
    runInBackground(
        this, [store = store_, id](const std::stop_token&) { store.forget(id); },
        [](BackgroundResult<void>) {});
    Q_EMIT syncPairsChanged();
}

bool SyncManager::isRunningOrWaiting(const QUuid& id) const {
    return (running_ && running_->id == id) ||
           std::any_of(waiting_.begin(), waiting_.end(),
                       [&](const Job& job) { return job.id == id; });
}

void SyncManager::syncPair(const QUuid& id, DeviceManager& deviceManager, const OnQuestion& ask,
                           const SyncDecisions& decisions) {
    MainThread::assertCurrent();
    if (pair(id) == nullptr || isRunningOrWaiting(id))
        return;
    waiting_.push_back({id, &deviceManager, ask, decisions});
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
    SyncProgress progress;
    progress.stage = SyncStage::connecting;
    setProgress(id, progress);
    const SyncPair pair = *find(id);
    const auto device = deviceOf(pair, job.deviceManager);
    if (!device) {
        running_.reset();
        ended(id, failedReport(Error(PhoneError::notConnected)));
        return;
    }
    const RunWork work{pair, *device, syncHostID(defaults_), setup_, job.decisions};
    SyncRunEvents events;
    events.progress = tellLatest<SyncProgress>(this, [this, id](const SyncProgress& told) {
        if (running_ && running_->id == id)
            setProgress(id, told);
    });
    const auto run = [work, events, ask = job.ask,
                      store = store_](const std::stop_token& stop) mutable {
        events.ask = [ask, stop](const SyncQuestion& question) {
            const auto answer = std::make_shared<PendingAnswer>();
            MainThread::post([ask, question, answer] {
                if (ask)
                    ask(question, [answer](SyncAnswer given) { answer->give(std::move(given)); });
                else
                    answer->give(SyncAnswer::stop());
            });
            return answer->wait(stop);
        };
        SyncReport report;
        try {
            report = work.with(stop, events, [](SyncRun& each) { return each.run(); });
        } catch (const Error& error) {
            report = failedReport(error);
        }
        store.add(work.pair.id, report, now());
        return report;
    };
    running_ = Running{id, pair.localFolderPath, {}};
    running_->stop = runInBackground(this, run, [this, id](BackgroundResult<SyncReport> result) {
        SyncReport report;
        try {
            report = result.take();
        } catch (const CancellationError&) {
            report.outcome = Outcome::cancelled;
            report.startedAt = report.endedAt = now();
        }
        ended(id, std::move(report));
    });
}

void SyncManager::ended(const QUuid& id, SyncReport report) {
    // What breaks while a cancelled run winds down is not worth a word.
    if (running_ && running_->isCancelled && report.outcome == Outcome::failed)
        report.outcome = Outcome::cancelled;
    const QString folder = running_ ? running_->localFolderPath : QString();
    running_.reset();
    const Outcome outcome = report.outcome;
    const std::optional<Error> failure = report.failure;
    const bool isToEnd = outcome == Outcome::done || outcome == Outcome::incomplete;
    // One that has got another folder meanwhile was not synced there, and is previewed first.
    if (SyncPair* pair = find(id); pair != nullptr && isToEnd && pair->localFolderPath == folder)
        pair->lastSyncedAt = QDateTime::currentDateTimeUtc();
    lastReports_.insert(id, std::move(report));
    switch (outcome) {
    case Outcome::done:
    case Outcome::incomplete: // the report says what is missing
        finish(id, SyncStatus::completed(), SyncStage::completed);
        Q_EMIT syncDidComplete(id);
        break;
    case Outcome::cancelled:
        finish(id, {}, SyncStage::none);
        break;
    case Outcome::failed:
        finish(id,
               SyncStatus::error(failure && failure->is(PhoneError::notConnected)
                                     ? QStringLiteral("Device disconnected")
                                     : failure.value_or(Error(PhoneError::nonsense)).logText()),
               SyncStage::failed);
        break;
    }
    Q_EMIT runEnded(id);
    startNext();
}

/// The end of a run in the pair list.
void SyncManager::finish(const QUuid& id, const SyncStatus& status, SyncStage stage) {
    SyncPair* pair = find(id);
    if (pair == nullptr)
        return;
    pair->status = status;
    pair->progress.stage = stage;
    pair->progress.currentFileBytes = 0;
    saveSyncPairs();
    Q_EMIT syncPairChanged(id);
}

void SyncManager::setProgress(const QUuid& id, const SyncProgress& progress) {
    if (SyncPair* pair = find(id)) {
        pair->progress = progress;
        pair->status = SyncStatus::syncing(progress.stage);
        Q_EMIT syncPairChanged(id);
    }
}

std::stop_source SyncManager::preview(const SyncPair& pair, DeviceManager& deviceManager,
                                      PreviewDone done) {
    const auto device = deviceOf(pair, &deviceManager);
    const RunWork work{pair, device.value_or(DeviceInfo()), syncHostID(defaults_), setup_, {}};
    return runInBackground(
        this,
        [work, isConnected = device.has_value()](const std::stop_token& stop) {
            if (!isConnected)
                throw Error(PhoneError::notConnected);
            return work.with(stop, {}, [](SyncRun& run) { return run.preview(); });
        },
        [done = std::move(done)](BackgroundResult<SyncPreview> result) {
            try {
                done(result.take(), {});
            } catch (const CancellationError&) {
                return;
            } catch (const Error& error) {
                done(std::nullopt, error);
            }
        });
}

const SyncReport* SyncManager::lastReport(const QUuid& id) const {
    const auto found = lastReports_.constFind(id);
    return found == lastReports_.constEnd() ? nullptr : &*found;
}

void SyncManager::reports(const QUuid& id, std::function<void(std::vector<SyncReport>)> done) {
    constexpr std::size_t most = 200;
    runInBackground(
        this, [store = store_, id](const std::stop_token&) { return store.of(id, most); },
        [done = std::move(done)](BackgroundResult<std::vector<SyncReport>> result) {
            if (result.succeeded())
                done(result.take());
        });
}

void SyncManager::loadLastReports() {
    for (const SyncPair& pair : pairs_)
        runInBackground(
            this,
            [store = store_, id = pair.id](const std::stop_token&) { return store.of(id, 1); },
            [this, id = pair.id](BackgroundResult<std::vector<SyncReport>> result) {
                if (!result.succeeded() || lastReports_.contains(id))
                    return;
                std::vector<SyncReport> found = result.take();
                if (found.empty() || this->pair(id) == nullptr)
                    return;
                lastReports_.insert(id, std::move(found.front()));
                Q_EMIT syncPairChanged(id);
            });
}

} // namespace tessary
