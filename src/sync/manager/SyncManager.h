#pragma once

#include "base/local/Trash.h"
#include "platform/settings/StoredList.h"
#include "sync/manager/SyncReportStore.h"
#include "sync/pair/SyncPair.h"
#include "sync/plan/SyncReport.h"
#include "sync/run/SyncRun.h"

#include <QHash>
#include <QObject>
#include <QPointer>

#include <deque>
#include <functional>
#include <optional>
#include <stop_token>
#include <vector>

namespace tessary {

class DeviceManager;
class PhoneFileSystems;

/// What runs work with besides the settings.
struct SyncManagerSetup {
    PhoneFileSystems& phones; ///< must outlive the work in the background
    /// Where local files go that a run deletes or replaces; empty: they are gone.
    std::function<bool(const QString& path)> trash = moveToTrash;
    QString reportFolder = SyncReportStore::defaultFolder();
};

/// The sync pairs and their runs, one at a time and in the order they were asked for. Lives on the
/// main thread and never makes it wait: the work is done in the background, and its state arrives
/// in the pair list.
class SyncManager : public QObject {
    Q_OBJECT

public:
    static constexpr QLatin1StringView settingsKey{"Tessary_SyncPairs"};

    /// Asks the user. The completion is called once, at any time, on the main thread. A run that is
    /// cancelled meanwhile needs no answer any more.
    using OnQuestion = std::function<void(const SyncQuestion& question,
                                          std::function<void(SyncAnswer)> completion)>;

    /// Loads the pairs. `defaults` must outlive the manager.
    SyncManager(SettingsStore& defaults, SyncManagerSetup setup, QObject* parent = nullptr);
    /// Cancels what runs; nothing waits for its end.
    ~SyncManager() override;

    [[nodiscard]] const std::vector<SyncPair>& syncPairs() const {
        return pairs_;
    }
    [[nodiscard]] const SyncPair* pair(const QUuid& id) const;
    void addSyncPair(const SyncPair& pair);
    /// Replaces the pair with this id, but for its state. A pair that runs ends where it began; one
    /// that gets another folder here was never synced, and waits no more.
    void updateSyncPair(const SyncPair& pair);
    /// Cancels the pair's run, too, and forgets its reports. Its manifests stay.
    void removeSyncPair(const QUuid& id);

    /// Runs one pair, after those that wait already. Nothing happens when it runs or waits.
    /// `decisions` were made at a preview.
    void syncPair(const QUuid& id, DeviceManager& deviceManager, const OnQuestion& ask,
                  const SyncDecisions& decisions = {});
    /// Ends the pair's run, or takes it out of the queue; its status becomes `idle`.
    void cancel(const QUuid& id);
    void cancelAll();
    [[nodiscard]] bool isRunning() const {
        return running_.has_value();
    }
    [[nodiscard]] bool isRunningOrWaiting(const QUuid& id) const;

    /// What a run of a pair, which need not be in the list, would do. The result, or the error,
    /// comes later on the main thread; after a stop request neither comes.
    using PreviewDone =
        std::function<void(std::optional<SyncPreview> preview, const std::optional<Error>& error)>;
    std::stop_source preview(const SyncPair& pair, DeviceManager& deviceManager, PreviewDone done);

    /// How the last run of a pair went; null before there was one that is still kept.
    [[nodiscard]] const SyncReport* lastReport(const QUuid& id) const;
    /// The reports of a pair that are kept, the newest first; they come later on the main thread.
    void reports(const QUuid& id, std::function<void(std::vector<SyncReport>)> done);

Q_SIGNALS:
    /// Pairs were added, removed or replaced.
    void syncPairsChanged();
    /// A pair's status, progress or last report is another one.
    void syncPairChanged(const QUuid& id);
    /// "Tessary_SyncDidComplete": a run ended well.
    void syncDidComplete(const QUuid& id);
    /// A run ended, however: see lastReport().
    void runEnded(const QUuid& id);
    /// No run is under way or waits any more.
    void idle();

private:
    struct Job {
        QUuid id;
        QPointer<DeviceManager> deviceManager;
        OnQuestion ask;
        SyncDecisions decisions;
    };
    struct Running {
        QUuid id;
        QString localFolderPath;
        std::stop_source stop;
        bool isCancelled = false;
    };

    [[nodiscard]] SyncPair* find(const QUuid& id);
    void saveSyncPairs();
    void startNext();
    void start(const Job& job);
    void setProgress(const QUuid& id, const SyncProgress& progress);
    void ended(const QUuid& id, SyncReport report);
    void finish(const QUuid& id, const SyncStatus& status, SyncStage stage);
    void loadLastReports();

    SettingsStore& defaults_;
    StoredList storedPairs_;
    const SyncManagerSetup setup_;
    const SyncReportStore store_;
    std::vector<SyncPair> pairs_;
    QHash<QUuid, SyncReport> lastReports_;
    std::deque<Job> waiting_;
    std::optional<Running> running_;
};

} // namespace tessary
