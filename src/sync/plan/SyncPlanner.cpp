#include "sync/plan/SyncPlanner.h"

#include "base/local/LocalError.h"
#include "base/text/ByteCount.h"
#include "phone/PhoneError.h"
#include "sync/plan/ConflictNames.h"
#include "sync/plan/SyncDates.h"
#include "sync/plan/SyncError.h"
#include "sync/plan/SyncObstacles.h"

#include <algorithm>

namespace tessary {

namespace {

using namespace std::chrono_literals;
using FileMap = std::map<QString, SyncFile>;

/// Fewer deletions than this never look like a mistake by their number.
constexpr std::size_t fewDeletions = 20;

/// Dates within this time are one.
constexpr std::chrono::milliseconds dateTolerance = 2s;

const SyncRecord& orNone(const SyncRecord* record) {
    static const SyncRecord none;
    return record != nullptr ? *record : none;
}

qint64 secondsOf(qint64 msecs) {
    constexpr qint64 second = 1000;
    return (msecs - (msecs < 0 ? second - 1 : 0)) / second;
}

qint64 seconds(const QDateTime& date) {
    return secondsOf(date.toMSecsSinceEpoch());
}

bool isNear(qint64 msecs, qint64 others) {
    return std::abs(msecs - others) <= dateTolerance.count();
}

SyncReason reason(SyncError error, const QString& path) {
    return std::make_shared<const Error>(error, QVariantList{path});
}

/// Calls `visit(path, local, device, record)` for each path of the three, in ascending order; what
/// does not have the path is null.
template <typename Visit>
void forEachPath(const FileMap& local, const FileMap& device, const SyncFiles& record,
                 Visit visit) {
    auto l = local.begin();
    auto d = device.begin();
    auto r = record.begin();
    while (l != local.end() || d != device.end() || r != record.end()) {
        const QString* path = nullptr;
        if (l != local.end())
            path = &l->first;
        if (d != device.end() && (path == nullptr || d->first < *path))
            path = &d->first;
        if (r != record.end() && (path == nullptr || r->first < *path))
            path = &r->first;
        const auto take = [path](auto& it, const auto& files) {
            const bool isThere = it != files.end() && (&it->first == path || it->first == *path);
            return isThere ? &(it++)->second : nullptr;
        };
        const SyncFile* inLocal = take(l, local);
        const SyncFile* inDevice = take(d, device);
        const SyncFileEntry* inRecord = take(r, record);
        visit(*path, inLocal, inDevice, inRecord);
    }
}

} // namespace

qint64 SyncPlannedAction::bytes() const {
    if (kind == Kind::upload)
        return local->size;
    return kind == Kind::download || kind == Kind::conflict ? device->size : 0;
}

SyncPlanner::SyncPlanner(const SyncPlanInput& input) : input_(input) {
    const SyncRecord& record = orNone(input.record);
    localShift_ = dateShift(input.local, record.files, false);
    deviceShift_ = dateShift(input.device, record.files, true);
    SyncObstacles obstacles(input.local, input.device, record.files);
    const QSet<QString> clashes =
        clashingPaths(input.local, input.device, input.localNames, input.deviceNames);
    // More than there are paths: what is not used takes no memory.
    actions_.reserve(input.local.files.size() + input.device.files.size());
    bool changesRecord = false;
    forEachPath(input.local.files, input.device.files, record.files,
                [&](const QString& path, const SyncFile* local, const SyncFile* device,
                    const SyncFileEntry* known) {
                    changesRecord |= (local != nullptr && device != nullptr) != (known != nullptr);
                    SyncPlannedAction action;
                    action.relativePath = path;
                    action.local = local;
                    action.device = device;
                    action.record = isPutBack(path, local, device) ? nullptr : known;
                    Pending pending = Pending::nothing;
                    SyncReason obstacle =
                        obstacles.reasonFor(path, local != nullptr, device != nullptr);
                    if (!obstacle && (local != nullptr || device != nullptr)) {
                        pending = local != nullptr && device != nullptr ? decideBoth(action)
                                                                        : decideOne(action);
                        const bool acts = action.isWork() || (pending != Pending::nothing &&
                                                              pending != Pending::freshness);
                        changesRecord |= acts;
                        if (acts && isUnderAny(path, clashes))
                            obstacle = reason(SyncError::sameNames, path);
                        else if (acts)
                            obstacle = nameRefusal(action);
                    }
                    if (obstacle) {
                        action.kind = Kind::skip;
                        action.reason = std::move(obstacle);
                        pending = Pending::nothing;
                    }
                    if (action.kind == Kind::skip && !action.reason && pending == Pending::nothing)
                        return;
                    actions_.push_back(std::move(action));
                    pending_.push_back(pending);
                });
    decideResemblances();
    decideFreshOnes(changesRecord);
}

/// Files that look the same and were never synced are compared whole, unless that takes too long.
/// A move deletes one of them: it always compares.
void SyncPlanner::decideResemblances() {
    qint64 bytes = 0;
    for (std::size_t n = 0; n < actions_.size(); ++n)
        if (pending_[n] == Pending::resemblance)
            bytes = addByteCounts(bytes, actions_[n].device->size);
    const bool compares = isMove() || bytes <= bytesComparedAtFirst;
    for (std::size_t n = 0; n < actions_.size(); ++n) {
        if (pending_[n] != Pending::resemblance)
            continue;
        pending_[n] = compares ? Pending::comparison : Pending::nothing;
        if (!compares)
            settleEqual(actions_[n], false);
    }
}

/// What was written at the time of the last run is looked at once, as soon as a further edit would
/// have another date, or where the record is written anyway: its date counts as settled from then
/// on. So a run right after another reads no content.
void SyncPlanner::decideFreshOnes(bool changesRecord) {
    const auto isOver = [this](const SyncPlannedAction& action) {
        return action.local->date.addMSecs(dateTolerance.count()) < input_.now;
    };
    for (std::size_t n = 0; n < actions_.size(); ++n)
        settlesDates_ |= pending_[n] == Pending::freshness && isOver(actions_[n]);
    for (Pending& pending : pending_)
        if (pending == Pending::freshness)
            pending = changesRecord || settlesDates_ ? Pending::comparison : Pending::nothing;
}

/// Whether the side of the older record holds a file as it was then, as one that was put back from
/// a backup does: that is no edit of what the newer record says.
bool SyncPlanner::isPutBack(const QString& path, const SyncFile* local,
                            const SyncFile* device) const {
    const SyncRecord& record = orNone(input_.record);
    const auto before = record.before.find(path);
    const SyncFile* file = record.isOlderOnDevice ? device : local;
    if (before == record.before.end() || file == nullptr || file->size != before->second.size)
        return false;
    const QDateTime date = record.isOlderOnDevice
                               ? before->second.deviceDate().addSecs(deviceShift_.count())
                               : before->second.modifiedDate.addSecs(localShift_.count());
    return !file->isDated || isNear(file->date.toMSecsSinceEpoch(), date.toMSecsSinceEpoch());
}

SyncPlanner::Change SyncPlanner::change(const SyncFile& file, qint64 recordedSize,
                                        const QDateTime& recordedDate, std::chrono::seconds shift,
                                        std::chrono::milliseconds step) const {
    if (file.size != recordedSize || step >= 1min)
        return Change::changed;
    if (!file.isDated)
        return Change::undated;
    const qint64 date = file.date.toMSecsSinceEpoch();
    const qint64 recorded = recordedDate.toMSecsSinceEpoch();
    const qint64 expected = recorded + std::chrono::milliseconds(shift).count();
    if (!isNear(date, expected))
        return Change::changed;
    if (secondsOf(date) != secondsOf(expected))
        return Change::near;
    // An edit within the second, or within that of the last run, leaves the date as it is.
    const bool wasSettled =
        recorded + dateTolerance.count() < input_.record->startedAt.toMSecsSinceEpoch();
    return wasSettled ? Change::none : Change::unsure;
}

SyncPlanner::Change SyncPlanner::localChange(const SyncPlannedAction& action) const {
    return action.record == nullptr
               ? Change::changed
               : change(*action.local, action.record->size, action.record->modifiedDate,
                        localShift_, input_.local.dateStep);
}

SyncPlanner::Change SyncPlanner::deviceChange(const SyncPlannedAction& action) const {
    return action.record == nullptr
               ? Change::changed
               : change(*action.device, action.record->size, action.record->deviceDate(),
                        deviceShift_, input_.device.dateStep);
}

/// Whether the record stands for a comparison of both sides' contents.
bool SyncPlanner::vouches(const SyncPlannedAction& action) const {
    return input_.record->isShared && action.record->isContentKnown;
}

/// Sets an action's kind, or what it waits for. A kind `skip` without a reason means that nothing
/// is to be done and nothing recorded.
SyncPlanner::Pending SyncPlanner::decideBoth(SyncPlannedAction& action) const {
    const SyncFile& local = *action.local;
    const SyncFile& device = *action.device;
    const Change localChanged = localChange(action);
    const Change deviceChanged = deviceChange(action);
    if (!isChange(localChanged) && !isChange(deviceChanged)) {
        const bool isCertain = localChanged == Change::none && deviceChanged == Change::none;
        if (isMove() && !(isCertain && vouches(action)))
            return Pending::comparison;
        settleEqual(action, action.record->isContentKnown);
        // A phone that dates its files itself dates what a run sends it by that run.
        return localChanged == Change::unsure ? Pending::freshness : Pending::nothing;
    }
    // Without a date nothing but the content tells whether the other one was edited, too.
    const bool isOneUndated = localChanged == Change::undated || deviceChanged == Change::undated;
    if (local.size != device.size && !isOneUndated) {
        settleDiffering(action, false);
        return Pending::nothing;
    }
    if (action.record == nullptr) {
        const bool looksSame = seconds(local.date) == seconds(device.date) &&
                               input_.local.dateStep < 1min && input_.device.dateStep < 1min;
        return looksSame ? Pending::resemblance : Pending::comparison;
    }
    if (isChange(localChanged) && isChange(deviceChanged))
        return Pending::comparison;
    const QDateTime& changed = isChange(localChanged) ? local.date : device.date;
    const auto& known = action.record->differingDate;
    const bool isLeft =
        input_.mode == (isChange(localChanged) ? SyncMode::toComputer : SyncMode::toPhone);
    if (!known || seconds(*known) != seconds(changed) || (isOneUndated && !isLeft))
        return Pending::comparison;
    action.knownToDiffer = true;
    settleDiffering(action, true);
    return Pending::nothing;
}

void SyncPlanner::settleEqual(SyncPlannedAction& action, bool isContentKnown) const {
    action.isContentKnown = isContentKnown;
    action.kind = !isMove()                          ? Kind::alreadyInSync
                  : input_.mode == SyncMode::toPhone ? Kind::moveDeleteSourceOnly
                                                     : Kind::moveDeleteRemoteSourceOnly;
}

/// Both sides have the file, and it is not the same. `isAsRecorded`: what has no date is unchanged.
void SyncPlanner::settleDiffering(SyncPlannedAction& action, bool isAsRecorded) const {
    const Change here = localChange(action);
    const Change there = deviceChange(action);
    const auto isEdit = [isAsRecorded](Change change, Change other) {
        return isChange(change) || (change == Change::undated && isChange(other) && !isAsRecorded);
    };
    const bool localChanged = isEdit(here, there);
    const bool deviceChanged = isEdit(there, here);
    const bool isTwoWay = input_.mode == SyncMode::biDirectional;
    action.deletesSource = isMove();
    if (localChanged == deviceChanged) {
        // Both changed; or neither seems to have, and the contents tell of an edit that left the
        // date alone.
        action.kind = Kind::conflict;
        action.deviceWins = isTwoWay ? action.local->date < action.device->date
                                     : input_.mode == SyncMode::toComputer;
        action.prefixLoses = isTwoWay && action.record == nullptr;
    } else if (input_.mode == (localChanged ? SyncMode::toComputer : SyncMode::toPhone)) {
        leave(action);
    } else {
        const SyncFile& winner = localChanged ? *action.local : *action.device;
        const SyncFile& loser = localChanged ? *action.device : *action.local;
        action.kind = localChanged ? Kind::upload : Kind::download;
        if (winner.size == 0 && loser.size > 0) {
            // Whoever emptied it may not have meant to.
            action.kind = Kind::conflict;
            action.deviceWins = deviceChanged;
        }
    }
}

/// The change is on the side that files are only copied to.
void SyncPlanner::leave(SyncPlannedAction& action) const {
    action.deletesSource = false;
    action.kind = Kind::leave;
    if (isMove()) {
        action.kind = Kind::skip;
        action.reason = reason(SyncError::changedAtTarget, action.relativePath);
    }
}

SyncPlanner::Pending SyncPlanner::decideOne(SyncPlannedAction& action) const {
    const bool isLocal = action.local != nullptr;
    const bool isTwoWay = input_.mode == SyncMode::biDirectional;
    if (!isTwoWay && input_.mode != (isLocal ? SyncMode::toPhone : SyncMode::toComputer))
        return Pending::nothing;
    action.kind = isLocal ? Kind::upload : Kind::download;
    action.deletesSource = isMove();
    const Change change = isLocal ? localChange(action) : deviceChange(action);
    // Right before a deletion its content is looked at where it has no date.
    const bool wasDeleted = isTwoWay && action.record != nullptr && vouches(action) &&
                            change != Change::changed &&
                            (change != Change::undated || !action.record->sha256.isEmpty());
    return wasDeleted && input_.deletes ? Pending::deletion : Pending::nothing;
}

/// Why the side that an action would write to cannot hold the name; null when it can.
SyncReason SyncPlanner::nameRefusal(const SyncPlannedAction& action) const {
    const bool toDevice = action.local != nullptr && action.device == nullptr;
    const bool toLocal = action.local == nullptr && action.device != nullptr;
    if (!toDevice && !toLocal)
        return {};
    const NameRules& rules = toDevice ? input_.deviceNames : input_.localNames;
    for (const QString& name : action.relativePath.split(u'/'))
        if (!rules.accepts(name))
            return toDevice ? std::make_shared<const Error>(PhoneError::nameNotAllowed,
                                                            QVariantList{name})
                            : std::make_shared<const Error>(LocalError::nameNotUsable,
                                                            QVariantList{name});
    return {};
}

std::vector<DeletionCandidate> SyncPlanner::deletionCandidates() const {
    std::vector<DeletionCandidate> candidates;
    for (std::size_t n = 0; n < actions_.size(); ++n) {
        if (pending_[n] != Pending::deletion)
            continue;
        const SyncPlannedAction& action = actions_[n];
        const bool isLocal = action.local != nullptr;
        DeletionCandidate candidate;
        candidate.relativePath = action.relativePath;
        candidate.isHere = isLocal;
        candidate.size = action.record->size;
        const QDateTime recorded = isLocal
                                       ? action.record->modifiedDate.addSecs(localShift_.count())
                                       : action.record->deviceDate().addSecs(deviceShift_.count());
        const QDateTime& now = isLocal ? action.local->date : action.device->date;
        candidate.isEditedSinceLastSync = seconds(now) != seconds(recorded);
        candidates.push_back(std::move(candidate));
    }
    return candidates;
}

SyncGuard SyncPlanner::guard() const {
    const auto deletions =
        static_cast<std::size_t>(std::count(pending_.begin(), pending_.end(), Pending::deletion));
    const std::size_t recorded = orNone(input_.record).files.size();
    SyncGuard guard{SyncGuard::Kind::nothing,
                    std::max(input_.filesOnceSynced, static_cast<qint64>(recorded)),
                    static_cast<qint64>(deletions)};
    const bool acts = deletions > 0 ||
                      std::any_of(actions_.begin(), actions_.end(),
                                  [](const SyncPlannedAction& action) { return action.isWork(); });
    if (acts && guard.recorded > 0 && input_.local.files.empty())
        guard.kind = SyncGuard::Kind::localEmpty;
    else if (acts && guard.recorded > 0 && input_.device.files.empty())
        guard.kind = SyncGuard::Kind::deviceEmpty;
    else if (deletions >= fewDeletions && 2 * deletions > recorded)
        guard.kind = SyncGuard::Kind::manyDeletions;
    return guard;
}

QStringList SyncPlanner::pathsToCompare() const {
    QStringList paths;
    for (std::size_t n = 0; n < actions_.size(); ++n)
        if (pending_[n] == Pending::comparison)
            paths.append(actions_[n].relativePath);
    return paths;
}

/// What a user makes of a conflict.
void SyncPlanner::choose(SyncPlannedAction& action, ConflictChoice choice) const {
    const bool keepsTarget =
        choice == (input_.mode == SyncMode::toComputer ? ConflictChoice::keepLocal
                                                       : ConflictChoice::keepDevice) &&
        input_.mode != SyncMode::biDirectional;
    switch (choice) {
    case ConflictChoice::keepBoth:
        return;
    case ConflictChoice::keepLocal:
    case ConflictChoice::keepDevice:
        if (keepsTarget)
            break;
        action.kind = choice == ConflictChoice::keepLocal ? Kind::upload : Kind::download;
        return;
    case ConflictChoice::leave:
        break;
    }
    action.kind = Kind::skip;
    action.reason = reason(SyncError::undecided, action.relativePath);
}

/// Settles what an action waited for.
void SyncPlanner::answer(SyncPlannedAction& action, Pending pending, const SyncDecisions& decisions,
                         const SyncComparisons& comparisons) const {
    if (pending == Pending::deletion) {
        if (decisions.deletions.contains(action.relativePath))
            action.kind = action.local != nullptr ? Kind::deleteLocal : Kind::deleteRemote;
    } else if (pending == Pending::comparison) {
        const auto found = comparisons.find(action.relativePath);
        const SyncComparison outcome =
            found != comparisons.end() ? found->second : SyncComparison::unreadable;
        if (outcome == SyncComparison::unreadable) {
            action.kind = Kind::skip;
            action.reason = std::make_shared<const Error>(PhoneError::unreadable,
                                                          QVariantList{action.relativePath});
        } else if (outcome == SyncComparison::equal) {
            settleEqual(action, true);
        } else {
            settleDiffering(action, outcome == SyncComparison::asRecorded);
            action.knownToDiffer = action.kind == Kind::leave;
        }
    }
    if (action.kind == Kind::conflict)
        choose(action, decisions.conflicts.value(action.relativePath, ConflictChoice::keepBoth));
}

SyncPlan SyncPlanner::plan(const SyncDecisions& decisions, const SyncComparisons& comparisons) {
    SyncPlan plan;
    ConflictNames names(input_.local, input_.device, input_.now);
    for (std::size_t n = 0; n < actions_.size(); ++n) {
        SyncPlannedAction& action = actions_[n];
        answer(action, pending_[n], decisions, comparisons);
        if (action.kind == Kind::conflict)
            action.conflictName = names.forPath(action.relativePath);
        if (action.isWork())
            ++plan.totalFiles;
        plan.totalBytes = addByteCounts(plan.totalBytes, action.bytes());
    }
    plan.actions = std::move(actions_);
    plan.settlesDates = settlesDates_;
    return plan;
}

} // namespace tessary
