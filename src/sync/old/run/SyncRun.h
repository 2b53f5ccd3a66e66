#pragma once

#include "sync/old/plan/SyncPlan.h"
#include "sync/old/plan/SyncReport.h"
#include "sync/old/run/SyncDeviceBackend.h"
#include "sync/old/run/SyncLocalFolder.h"

#include <QDateTime>
#include <QSet>

#include <functional>
#include <stop_token>

namespace tessary {

/// What a run tells while it works, on its thread.
struct SyncRunEvents {
    std::function<void(const QString& message)> status;
    std::function<void(const SyncProgress&)> progress; ///< also for each piece of a file
    /// Blocks until the user has answered: delete, or create again. No function: no.
    std::function<bool(const SyncQuestion&)> ask;
};

/// What a run works with. Both sides must outlive it.
struct SyncRunSetup {
    SyncPair pair;
    QString hostID;
    QString computerName;
    SyncLocalFolder& local;
    SyncDeviceBackend& device;
    std::function<QDateTime()> now; ///< in local time
};

/// One run of one pair, once the device is connected: scans both folders, asks about deletions,
/// plans, carries the plan out and writes the manifest to both sides. Blocking; used once, by one
/// thread. An error or a cancellation (CancellationError) leaves both manifests as they were; what
/// was copied by then stays.
class SyncRun {
public:
    SyncRun(SyncRunSetup setup, SyncRunEvents events, std::stop_token stop);

    SyncReport run();
    /// What run() would do. Changes nothing on either side and asks nothing.
    [[nodiscard]] SyncPreview preview();

    /// Below `remoteRoot`, which may be empty or "/".
    [[nodiscard]] static QString remotePath(const QString& remoteRoot, const QString& relativePath);

private:
    void ensureLocalFolder();
    void scan();
    [[nodiscard]] const SyncFiles* record() const;
    [[nodiscard]] SyncPlan makePlan(SyncPreview* preview = nullptr);
    [[nodiscard]] QSet<QString> compareSamples(const QStringList& paths);
    void removeLeftovers();
    void reportUnusable(SyncReport& report) const;
    void writeManifests(SyncFiles files);
    void tell(const QString& message);

    SyncRunSetup setup_;
    SyncRunEvents events_;
    const std::stop_token stop_;
    SyncProgress progress_;
    SyncScan localScan_;
    SyncScan deviceScan_;
    bool isRemoteManifestLoaded_ = false;
    std::optional<SyncManifest> remoteManifest_;
    SyncManifest manifest_; ///< both copies merged
};

} // namespace tessary
