#pragma once

#include "sync/plan/SyncPlanner.h"
#include "sync/plan/SyncRecord.h"
#include "sync/plan/SyncReport.h"
#include "sync/run/SyncConsent.h"
#include "sync/run/SyncContents.h"
#include "sync/run/SyncLock.h"
#include "sync/run/SyncRunEvents.h"
#include "sync/run/SyncTransfer.h"

#include <QDateTime>

#include <functional>
#include <optional>
#include <stop_token>

namespace tessary {

class SyncWorker;

/// What a run works with. Both sides must outlive it.
struct SyncRunSetup {
    SyncPair pair;
    QString hostID;
    QString computerName;
    SyncComputer computer;
    PhoneFileSystem& device;
    /// In local time.
    std::function<QDateTime()> now = [] { return QDateTime::currentDateTime(); };
    QString lockFile = SyncLock::defaultFile(); ///< see SyncLock; empty: nobody else runs
    /// What was decided beforehand, at a preview; anything else is asked.
    SyncDecisions decisions{};
};

/// One run of one pair, once the device is connected: scans both folders, asks what has to be
/// asked, plans, carries the plan out and writes the record to both sides. While it asks it holds
/// up nobody, and looks at both sides anew afterwards. Blocking; used once, by one thread.
class SyncRun {
public:
    SyncRun(SyncRunSetup setup, SyncRunEvents events, std::stop_token stop);

    /// Throws nothing that has to do with files, phones or cancellation: how it ended is in the
    /// report. Whatever ended it, what is done by then is recorded.
    [[nodiscard]] SyncReport run();
    /// What run() would do. Changes nothing on either side and asks nothing. Throws Error and
    /// CancellationError.
    [[nodiscard]] SyncPreview preview();

private:
    class Hold;

    void runToEnd();
    [[nodiscard]] std::optional<SyncQuestion> lookAtBoth();
    [[nodiscard]] std::optional<SyncQuestion> questionOfFolder();
    [[nodiscard]] SyncAnswer ask(const SyncQuestion& question);
    void loadManifests();
    void scan(SyncSide::Leftovers leftovers);
    [[nodiscard]] SyncPlanner makePlanner();
    void carryOutRenames();
    [[nodiscard]] SyncComparison comparisonOf(const SyncedFile& file, const QString& path);
    [[nodiscard]] SyncComparisons compare(const QStringList& paths, bool isRenamed);
    void carryOut(const SyncPlan& plan);
    void reportUnknown();
    void recordBrokenOff(SyncWorker& worker, const SyncPlan& plan, std::size_t reached,
                         bool reachesDevice);
    [[nodiscard]] bool isRecorded(const SyncFiles& files) const;
    bool writeManifests(SyncFiles files, bool onDevice);
    [[nodiscard]] bool forgetMoved(const QStringList& paths);
    void enter(SyncStage stage);

    SyncRunSetup setup_;
    SyncRunEvents events_;
    const Call call_;
    SyncRunProgress progress_;
    SyncSide local_;
    SyncSide device_;
    SyncTransfer transfer_;
    SyncReport report_;

    std::optional<SyncManifest> localManifest_;
    std::optional<SyncManifest> deviceManifest_;
    std::optional<SyncRecord> record_;
    SyncFiles remembered_;  ///< the record as it was read, before renames
    bool isStored_ = false; ///< this run has written a record, and is not at its end
    SyncTree localTree_;
    SyncTree deviceTree_;
    NameRules localNames_;
    NameRules deviceNames_;
    std::vector<SyncRename> renames_;
    SyncConsent consent_;
};

} // namespace tessary
