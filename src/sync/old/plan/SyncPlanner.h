#pragma once

#include "sync/old/plan/SyncPlan.h"
#include "sync/old/plan/SyncScan.h"

#include <QDateTime>
#include <QSet>
#include <QStringList>

#include <vector>

namespace tessary {

/// Everything that a plan depends on. The scans and the record must outlive the plan.
struct SyncPlanInput {
    const SyncScan& local;
    const SyncScan& device;
    const SyncFiles* record = nullptr; ///< null: the first run of this pair here
    SyncMode mode = SyncMode::biDirectional;
    bool deletes = true;
    bool moves = false; ///< ignored in two-way mode
    bool isAndroid = true;
    SyncNameRules localNames;
    SyncNameRules deviceNames;
    QDateTime now; ///< in the zone that names of conflict copies are to show
};

/// Decides what a run does with each path. Pure: the same input and answers give the same plan.
class SyncPlanner {
public:
    /// Decides all that needs no answer. Takes a second for a million paths.
    explicit SyncPlanner(const SyncPlanInput& input);

    /// What the user has to confirm.
    [[nodiscard]] std::vector<DeletionCandidate> deletionCandidates() const;
    /// Why the deletions look like a mistake, in words; empty when they do not.
    [[nodiscard]] QString massDeletionWarning() const;

    /// Files of one size and different dates, on which the plan depends.
    [[nodiscard]] QStringList pathsToCompare() const;

    /// The plan. `equal` are those of pathsToCompare() whose samples are the same. Once only.
    [[nodiscard]] SyncPlan plan(bool deletionsConfirmed, const QSet<QString>& equal);

    /// Whether two dates count as one: not more than two seconds apart.
    [[nodiscard]] static bool isSameDate(const QDateTime& a, const QDateTime& b);

private:
    using Kind = SyncPlannedAction::Kind;
    /// What an action still waits for.
    enum class Pending : unsigned char { nothing, sample, deletion };

    [[nodiscard]] Pending decide(SyncPlannedAction& action) const;
    [[nodiscard]] Pending decideBoth(SyncPlannedAction& action) const;
    [[nodiscard]] Pending decideOne(SyncPlannedAction& action) const;
    void settle(SyncPlannedAction& action, bool isEqual) const;
    [[nodiscard]] QString nameRefusal(const SyncPlannedAction& action) const;
    [[nodiscard]] QString conflictName(const SyncPlannedAction& action, QSet<QString>& taken) const;
    [[nodiscard]] bool isTaken(const QString& path) const;

    SyncPlanInput input_;
    // In the order of the paths, of one length:
    std::vector<SyncPlannedAction> actions_;
    std::vector<Pending> pending_;
};

} // namespace tessary
