#pragma once

#include "phone/NameRules.h"
#include "sync/plan/SyncPlan.h"
#include "sync/plan/SyncRecord.h"

#include <QDateTime>
#include <QStringList>

#include <chrono>
#include <vector>

namespace tessary {

/// Everything that a plan depends on. The trees and the record must outlive the plan.
struct SyncPlanInput {
    const SyncTree& local;
    const SyncTree& device;
    const SyncRecord* record = nullptr; ///< null: the first run of this pair here
    SyncMode mode = SyncMode::biDirectional;
    bool deletes = true;
    bool moves = false; ///< ignored in two-way mode
    NameRules localNames;
    NameRules deviceNames;
    QDateTime now;              ///< in the zone that names of conflict copies are to show
    qint64 filesOnceSynced = 0; ///< by whatever either side remembers
};

/// Decides what a run does with each path. Pure: the same input and answers give the same plan.
/// What it never does: take a file for deleted that was not seen on both sides by one run, replace
/// a file that nobody copied, or take two files for the same without their whole contents.
class SyncPlanner {
public:
    /// Decides all that needs no answer. Takes about a second for a million paths.
    explicit SyncPlanner(const SyncPlanInput& input);

    /// What the user has to confirm.
    [[nodiscard]] std::vector<DeletionCandidate> deletionCandidates() const;
    [[nodiscard]] SyncGuard guard() const;

    /// Files that have to be compared whole, or one of them with what is recorded of its content.
    [[nodiscard]] QStringList pathsToCompare() const;

    /// The plan. Once only.
    [[nodiscard]] SyncPlan plan(const SyncDecisions& decisions, const SyncComparisons& comparisons);

    /// Files that were never synced and have the same size and date are taken for the same beyond
    /// this many bytes of them, rather than compared.
    static constexpr qint64 bytesComparedAtFirst = 256LL * 1024 * 1024;

private:
    using Kind = SyncPlannedAction::Kind;
    /// What an action still waits for.
    enum class Pending : unsigned char {
        nothing,
        comparison,
        resemblance, ///< never synced, and of one size and date
        freshness,   ///< in sync, unless it was edited in the very second of the last run
        deletion,
    };
    /// How a side stands to the record.
    enum class Change : unsigned char {
        none,    ///< and nothing can have happened to it unseen
        unsure,  ///< it looks unchanged, and may have been changed since
        undated, ///< the same, of a file that no date tells of
        near,    ///< its date is another one, of about the same time
        changed, ///< or without a record
    };

    [[nodiscard]] Change localChange(const SyncPlannedAction& action) const;
    [[nodiscard]] Change deviceChange(const SyncPlannedAction& action) const;
    [[nodiscard]] bool isPutBack(const QString& path, const SyncFile* local,
                                 const SyncFile* device) const;
    [[nodiscard]] Change change(const SyncFile& file, qint64 recordedSize,
                                const QDateTime& recordedDate, std::chrono::seconds shift,
                                std::chrono::milliseconds step) const;
    [[nodiscard]] static bool isChange(Change change) {
        return change == Change::near || change == Change::changed;
    }
    void decideResemblances();
    void decideFreshOnes(bool changesRecord);
    [[nodiscard]] bool vouches(const SyncPlannedAction& action) const;
    [[nodiscard]] Pending decideBoth(SyncPlannedAction& action) const;
    [[nodiscard]] Pending decideOne(SyncPlannedAction& action) const;
    void settleEqual(SyncPlannedAction& action, bool isContentKnown) const;
    void settleDiffering(SyncPlannedAction& action, bool isAsRecorded) const;
    void leave(SyncPlannedAction& action) const;
    void choose(SyncPlannedAction& action, ConflictChoice choice) const;
    void answer(SyncPlannedAction& action, Pending pending, const SyncDecisions& decisions,
                const SyncComparisons& comparisons) const;
    [[nodiscard]] SyncReason nameRefusal(const SyncPlannedAction& action) const;
    [[nodiscard]] bool isMove() const {
        return input_.moves && input_.mode != SyncMode::biDirectional;
    }

    SyncPlanInput input_;
    std::chrono::seconds localShift_{0}; ///< of all dates since the record was written
    std::chrono::seconds deviceShift_{0};
    bool settlesDates_ = false;
    // In the order of the paths, of one length:
    std::vector<SyncPlannedAction> actions_;
    std::vector<Pending> pending_;
};

} // namespace tessary
