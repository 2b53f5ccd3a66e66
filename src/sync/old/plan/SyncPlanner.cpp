#include "sync/old/plan/SyncPlanner.h"

#include "base/text/ByteCount.h"
#include "sync/old/plan/SyncObstacles.h"

#include <algorithm>

namespace tessary {

namespace {

using Location = DeletionCandidate::DeletionLocation;

/// Fewer deletions than this never look like a mistake by their number.
constexpr std::size_t fewDeletions = 20;

/// File systems and phones hold no longer names, in bytes of UTF-8 and in UTF-16 units.
constexpr qsizetype longestName = 240;

bool isUnchanged(const SyncFileEntry& file, const SyncFileEntry& record, const QDateTime& date) {
    return file.size == record.size && SyncPlanner::isSameDate(file.modifiedDate, date);
}

bool isLocalUnchanged(const SyncFileEntry& file, const SyncFileEntry& record) {
    return isUnchanged(file, record, record.modifiedDate);
}

bool isDeviceUnchanged(const SyncFileEntry& file, const SyncFileEntry& record) {
    return isUnchanged(file, record, record.deviceModifiedDate.value_or(record.modifiedDate));
}

/// Calls `visit(path, local, device, record)` for each path of the three, in ascending order; what
/// does not have the path is null.
template <typename Visit>
void forEachPath(const SyncFiles& local, const SyncFiles& device, const SyncFiles& record,
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
        const auto take = [path](auto& it, const SyncFiles& files) -> const SyncFileEntry* {
            if (it == files.end() || (&it->first != path && it->first != *path))
                return nullptr;
            return &(it++)->second;
        };
        const SyncFileEntry* inLocal = take(l, local);
        const SyncFileEntry* inDevice = take(d, device);
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

bool SyncPlanner::isSameDate(const QDateTime& a, const QDateTime& b) {
    constexpr qint64 tolerance = 2000; // milliseconds
    return std::abs(a.toMSecsSinceEpoch() - b.toMSecsSinceEpoch()) <= tolerance;
}

SyncPlanner::SyncPlanner(const SyncPlanInput& input) : input_(input) {
    static const SyncFiles noRecord;
    const SyncFiles& record = input.record != nullptr ? *input.record : noRecord;
    SyncObstacles obstacles(input.local, input.device);
    const QSet<QString> clashes =
        clashingPaths(input.local, input.device, input.localNames, input.deviceNames);
    // More than there are paths: what is not used takes no memory.
    actions_.reserve(input.local.files.size() + input.device.files.size());
    forEachPath(input.local.files, input.device.files, record,
                [&](const QString& path, const SyncFileEntry* local, const SyncFileEntry* device,
                    const SyncFileEntry* known) {
                    SyncPlannedAction action;
                    action.relativePath = path;
                    action.local = local;
                    action.device = device;
                    action.record = known;
                    Pending pending = Pending::nothing;
                    QString reason = obstacles.reasonFor(path, local != nullptr, device != nullptr);
                    if (reason.isEmpty() && (local != nullptr || device != nullptr)) {
                        pending = decide(action);
                        const bool acts = action.isWork() || pending != Pending::nothing;
                        if (acts && isUnderAny(path, clashes))
                            reason = QStringLiteral("another name differs from it only in case or "
                                                    "in the form of its letters");
                        else if (acts)
                            reason = nameRefusal(action);
                    }
                    if (!reason.isEmpty()) {
                        action.kind = Kind::skip;
                        action.detail = std::move(reason);
                        pending = Pending::nothing;
                    }
                    if (action.kind == Kind::skip && action.detail.isEmpty() &&
                        pending == Pending::nothing)
                        return;
                    actions_.push_back(std::move(action));
                    pending_.push_back(pending);
                });
}

/// Sets an action's kind, or what it waits for. A kind `skip` without a reason means that nothing
/// is to be done and nothing recorded.
SyncPlanner::Pending SyncPlanner::decide(SyncPlannedAction& action) const {
    return action.local != nullptr && action.device != nullptr ? decideBoth(action)
                                                               : decideOne(action);
}

SyncPlanner::Pending SyncPlanner::decideBoth(SyncPlannedAction& action) const {
    const SyncFileEntry& local = *action.local;
    const SyncFileEntry& device = *action.device;
    const bool localUnchanged = action.record != nullptr && isLocalUnchanged(local, *action.record);
    const bool deviceUnchanged =
        action.record != nullptr && isDeviceUnchanged(device, *action.record);
    if (localUnchanged && deviceUnchanged) {
        action.isVouched = true;
        settle(action, true);
        return Pending::nothing;
    }
    if (local.size != device.size) {
        settle(action, false);
        return Pending::nothing;
    }
    if (!localUnchanged && !deviceUnchanged) {
        if (!isSameDate(local.modifiedDate, device.modifiedDate))
            return Pending::sample;
        settle(action, true);
        return Pending::nothing;
    }
    const QDateTime& changed = localUnchanged ? device.modifiedDate : local.modifiedDate;
    const auto& known = action.record->differingDate;
    if (!known || !isSameDate(*known, changed))
        return Pending::sample;
    action.knownToDiffer = true;
    settle(action, false);
    return Pending::nothing;
}

/// Both sides have the file: what follows from whether it is the same.
void SyncPlanner::settle(SyncPlannedAction& action, bool isEqual) const {
    const bool isTwoWay = input_.mode == SyncMode::biDirectional;
    const bool isMove = input_.moves && !isTwoWay;
    if (isEqual) {
        action.kind = !isMove                             ? Kind::alreadyInSync
                      : input_.mode == SyncMode::toiPhone ? Kind::moveDeleteSourceOnly
                                                          : Kind::moveDeleteRemoteSourceOnly;
        return;
    }
    const bool localChanged =
        action.record == nullptr || !isLocalUnchanged(*action.local, *action.record);
    const bool deviceChanged =
        action.record == nullptr || !isDeviceUnchanged(*action.device, *action.record);
    if (localChanged && deviceChanged && isTwoWay) {
        action.kind = Kind::conflict;
        action.deviceWins = action.local->modifiedDate < action.device->modifiedDate;
    } else if (localChanged && input_.mode != SyncMode::toMac) {
        action.kind = Kind::upload;
    } else if (deviceChanged && input_.mode != SyncMode::toiPhone) {
        action.kind = Kind::download;
    } else {
        action.kind = Kind::leave;
        return;
    }
    action.deletesSource = isMove;
}

SyncPlanner::Pending SyncPlanner::decideOne(SyncPlannedAction& action) const {
    const bool isLocal = action.local != nullptr;
    const bool isTwoWay = input_.mode == SyncMode::biDirectional;
    const SyncFileEntry& present = isLocal ? *action.local : *action.device;
    const SyncMode source = isLocal ? SyncMode::toiPhone : SyncMode::toMac;
    if (!isTwoWay && input_.mode != source)
        return Pending::nothing;
    if (isTwoWay && input_.deletes && action.record != nullptr &&
        action.record->size == present.size)
        return Pending::deletion;
    action.kind = isLocal ? Kind::upload : Kind::download;
    action.deletesSource = input_.moves && !isTwoWay;
    return Pending::nothing;
}

/// Why the side that an action would write to cannot hold the name; empty when it can.
QString SyncPlanner::nameRefusal(const SyncPlannedAction& action) const {
    const bool toDevice = action.local != nullptr && action.device == nullptr;
    const bool toLocal = action.local == nullptr && action.device != nullptr;
    if (!toDevice && !toLocal)
        return {};
    const auto& refusal = (toDevice ? input_.deviceNames : input_.localNames).refusal;
    if (!refusal)
        return {};
    for (const QStringView name : QStringView(action.relativePath).tokenize(u'/'))
        if (QString reason = refusal(name); !reason.isEmpty())
            return reason;
    return {};
}

std::vector<DeletionCandidate> SyncPlanner::deletionCandidates() const {
    std::vector<DeletionCandidate> candidates;
    for (std::size_t n = 0; n < actions_.size(); ++n) {
        if (pending_[n] != Pending::deletion)
            continue;
        const SyncPlannedAction& action = actions_[n];
        DeletionCandidate candidate;
        candidate.relativePath = action.relativePath;
        candidate.targetLocation = action.local != nullptr ? Location::localMac
                                   : input_.isAndroid      ? Location::remoteAndroid
                                                           : Location::remoteiPhone;
        candidate.size = action.record->size;
        candidate.isEditedSinceLastSync = action.local != nullptr
                                              ? !isLocalUnchanged(*action.local, *action.record)
                                              : !isDeviceUnchanged(*action.device, *action.record);
        candidates.push_back(std::move(candidate));
    }
    return candidates;
}

QString SyncPlanner::massDeletionWarning() const {
    const auto count =
        static_cast<std::size_t>(std::count(pending_.begin(), pending_.end(), Pending::deletion));
    if (count == 0)
        return {};
    const std::size_t recorded = input_.record->size();
    if (input_.local.files.empty())
        return QStringLiteral("The folder on this computer is empty, although %1 files were in it "
                              "after the last sync. Is its disk missing?")
            .arg(recorded);
    if (input_.device.files.empty())
        return QStringLiteral("The folder on the device is empty, although %1 files were in it "
                              "after the last sync. Is its memory card missing?")
            .arg(recorded);
    if (count >= fewDeletions && 2 * count > recorded)
        return QStringLiteral("%1 of the %2 files of the last sync would be deleted.")
            .arg(count)
            .arg(recorded);
    return {};
}

QStringList SyncPlanner::pathsToCompare() const {
    QStringList paths;
    for (std::size_t n = 0; n < actions_.size(); ++n)
        if (pending_[n] == Pending::sample)
            paths.append(actions_[n].relativePath);
    return paths;
}

bool SyncPlanner::isTaken(const QString& path) const {
    for (const SyncScan* side : {&input_.local, &input_.device})
        if (side->files.contains(path) || side->folders.contains(path) ||
            side->unusable.contains(path))
            return true;
    return false;
}

/// "dir/name (conflict 2024-05-01 101500).ext", numbered when that is taken.
QString SyncPlanner::conflictName(const SyncPlannedAction& action, QSet<QString>& taken) const {
    const QString& path = action.relativePath;
    const qsizetype nameAt = path.lastIndexOf(u'/') + 1;
    const QString name = path.mid(nameAt);
    const qsizetype dot = name.lastIndexOf(u'.');
    QString stem = dot > 0 ? name.left(dot) : name;
    QString extension = dot > 0 ? name.mid(dot) : QString();
    const QString mark =
        QStringLiteral(" (conflict ") + input_.now.toString(QStringLiteral("yyyy-MM-dd HHmmss"));
    for (int n = 1;; ++n) {
        const QString end =
            mark + (n == 1 ? QString() : QLatin1Char(' ') + QString::number(n)) + QLatin1Char(')');
        while ((stem + end + extension).toUtf8().size() > longestName) {
            QString& longer = stem.size() >= extension.size() ? stem : extension;
            longer.chop(longer.back().isLowSurrogate() ? 2 : 1);
        }
        const QString copy = path.left(nameAt) + stem + end + extension;
        if (!taken.contains(copy) && !isTaken(copy)) {
            taken.insert(copy);
            return copy;
        }
    }
}

SyncPlan SyncPlanner::plan(bool deletionsConfirmed, const QSet<QString>& equal) {
    SyncPlan plan;
    QSet<QString> taken;
    for (std::size_t n = 0; n < actions_.size(); ++n) {
        SyncPlannedAction& action = actions_[n];
        if (pending_[n] == Pending::sample) {
            settle(action, equal.contains(action.relativePath));
            action.knownToDiffer = action.kind == Kind::leave;
        } else if (pending_[n] == Pending::deletion) {
            if (action.local != nullptr)
                action.kind = deletionsConfirmed ? Kind::deleteLocal : Kind::upload;
            else
                action.kind = deletionsConfirmed ? Kind::deleteRemote : Kind::download;
        }
        if (action.kind == Kind::conflict)
            action.detail = conflictName(action, taken);
        if (action.isWork())
            ++plan.totalFiles;
        plan.totalBytes = addByteCounts(plan.totalBytes, action.bytes());
    }
    plan.actions = std::move(actions_);
    return plan;
}

} // namespace tessary
