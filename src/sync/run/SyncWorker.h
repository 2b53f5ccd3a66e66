#pragma once

#include "sync/plan/SyncPlan.h"
#include "sync/plan/SyncReport.h"
#include "sync/run/SyncRemovals.h"
#include "sync/run/SyncRunEvents.h"
#include "sync/run/SyncTransfer.h"

#include <map>
#include <span>

namespace tessary {

/// Carries the actions of a plan out, one after the other, and knows at any time what is in sync.
/// What one file refuses is skipped and named, and keeps its record; what ends everything is
/// thrown.
class SyncWorker {
public:
    /// What the scans of both sides saw; both must outlive the worker.
    struct Trees {
        const SyncTree& local;
        const SyncTree& device;
    };

    SyncWorker(SyncTransfer& transfer, Trees trees, const SyncPair& pair,
               const SyncComputer& computer, SyncRunProgress& progress, SyncReport& report,
               SyncRemovals::ForgetFiles forget);

    void carryOut(const SyncPlannedAction& action);
    /// Carries out the first action, or the first few: small new files of one folder go together
    /// where the phone takes or sends them so. How many they were.
    std::size_t carryOutFirst(std::span<const SyncPlannedAction> actions);
    /// Notes an action that is not carried out any more: its record stays.
    void keepRecord(const SyncPlannedAction& action);
    /// Deletes what was moved, removes folders that became empty, and looks at what was sent as the
    /// device shows it in the end.
    void finish();
    /// What is in sync: after finish(), or after a run that broke off.
    [[nodiscard]] SyncFiles takeFiles() {
        return std::move(files_);
    }

private:
    using Action = SyncPlannedAction;
    /// Where a conflict's loser is kept, and what is there of it already.
    struct LoserCopy {
        QString name;
        std::optional<SyncFile> local;
        std::optional<SyncFile> device;
    };

    [[nodiscard]] std::size_t countTogether(std::span<const Action> actions) const;
    void carryOutTogether(std::span<const Action> actions);
    void act(const Action& action);
    void transfer(const Action& action, bool toDevice);
    void noteTransfer(const Action& action, const SyncFile& arrived);
    void resolveConflict(const Action& action);
    [[nodiscard]] LoserCopy loserCopy(const Action& action, bool deviceWins);
    [[nodiscard]] QString keepLoserOnBoth(const Action& action, bool deviceWins);
    [[nodiscard]] QString keepLoserAtTarget(const Action& action);
    void deleteConfirmed(const Action& action);
    void confirmSent(const QString& folder, const QStringList& names);
    void confirmOne(const QString& path, const std::optional<SyncFile>& now);

    [[nodiscard]] FileItem copy(const SyncTransfer::Copy& copy);
    void enter(const QString& path, const SyncFile& local, const SyncFile& device,
               bool isContentKnown, const SyncFileEntry* before = nullptr);
    [[nodiscard]] QByteArray hashHere(const QString& path, const SyncFile& local);
    void skip(const QString& path, Error reason);
    [[nodiscard]] ByteProgress byteProgress();
    void addItem(SyncDeed deed, const QString& path, qint64 size, const QString& other = {});

    SyncTransfer& transfer_;
    const Trees trees_;
    const SyncPair& pair_;
    SyncRunProgress& progress_;
    SyncReport& report_;
    SyncRemovals removals_;
    SyncFiles files_;
    std::map<QString, SyncFile> sent_; ///< to the device, as it showed them then
};

} // namespace tessary
