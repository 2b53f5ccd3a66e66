#include "sync/run/SyncRun.h"

#include "base/local/LocalError.h"
#include "base/log/DiagnosticsLogger.h"
#include "base/text/PathNames.h"
#include "base/threads/CancellationError.h"
#include "phone/PartNames.h"
#include "phone/PhoneQueue.h"
#include "sync/plan/SyncError.h"
#include "sync/run/SyncContents.h"
#include "sync/run/SyncStore.h"
#include "sync/run/SyncWorker.h"
#include "transfer/copy/CopyErrors.h"
#include "transfer/copy/FileCopy.h"

#include <QSet>
#include <QSysInfo>
#include <QUuid>

#include <algorithm>
#include <span>

namespace tessary {

namespace {

/// The name of a path before renames that were planned and not carried out.
QString nameBefore(QString path, const std::vector<SyncRename>& renames, bool onDevice) {
    for (auto it = renames.rbegin(); it != renames.rend(); ++it)
        if (it->onDevice == onDevice && isAtOrBelow(path, it->to))
            path = it->from + path.mid(it->to.size());
    return path;
}

/// Drops what is known of a path and of all below it.
template <typename Map>
void dropBelow(Map& map, const QString& path) {
    map.erase(path);
    const QString prefix = path + QLatin1Char('/');
    for (auto it = map.lower_bound(prefix); it != map.end() && it->first.startsWith(prefix);)
        it = map.erase(it);
}

/// Runs of one pair that have the same lock come one after the other: what such a run finds of
/// theirs is nobody's any more.
Call callOf(const SyncRunSetup& setup, std::stop_token stop) {
    Call call(std::move(stop), Urgency::copy);
    const QString key = syncRecordKey(setup.hostID, setup.pair);
    const QString machine = QString::fromLatin1(QSysInfo::machineUniqueId());
    call.partOwner = partOwner(QStringList{key, setup.lockFile, machine}.join(QChar::Null));
    return call;
}

void logFailure(const char* what, const Error& error) {
    DiagnosticsLogger::shared().transfer.error(what, {error.logText()});
}

} // namespace

SyncRun::SyncRun(SyncRunSetup setup, SyncRunEvents events, std::stop_token stop)
    : setup_(std::move(setup)),
      events_(std::move(events)),
      call_(callOf(setup_, std::move(stop))),
      progress_(events_),
      local_(setup_.computer.files, setup_.pair.localFolderPath),
      device_(setup_.device, setup_.pair.remoteFolderPath),
      transfer_(local_, device_, setup_.computer, call_),
      consent_(setup_.decisions) {}

void SyncRun::enter(SyncStage stage) {
    throwIfStopped(call_.stop);
    progress_.enter(stage);
}

/// A folder that was synced before and is gone may be on a disk that is missing: only the user
/// knows whether to begin anew.
std::optional<SyncQuestion> SyncRun::questionOfFolder() {
    if (consent_.mayMakeFolder() || local_.exists(call_))
        return std::nullopt;
    const auto before = filesOnceSynced({}, deviceManifest_, setup_.hostID, setup_.pair);
    if (!setup_.pair.lastSyncedAt && !before)
        return std::nullopt;
    SyncQuestion question;
    question.kind = SyncQuestion::Kind::missingLocalFolder;
    question.path = setup_.pair.localFolderPath;
    question.guard = {SyncGuard::Kind::localEmpty, before.value_or(0), 0};
    return question;
}

void SyncRun::loadManifests() {
    deviceManifest_ = loadManifest(device_, call_);
    localManifest_.reset();
    if (local_.exists(call_))
        localManifest_ = loadManifest(local_, call_);
    record_ = syncRecord(localManifest_, deviceManifest_, setup_.hostID, setup_.pair);
    remembered_ = record_ ? record_->files : SyncFiles();
}

void SyncRun::scan(SyncSide::Leftovers leftovers) {
    enter(SyncStage::scanning);
    const SyncPatterns patterns(setup_.pair.patterns);
    const auto scanned = [&](SyncSide& side, NameRules& names) {
        if (!side.exists(call_))
            return SyncTree();
        names = side.files().nameRules(side.pathOf({}), call_);
        return side.scan(patterns, leftovers, remembered_, call_);
    };
    localTree_ = scanned(local_, localNames_);
    deviceTree_ = scanned(device_, deviceNames_);
    if (record_)
        renames_ = takeCaseRenames(localTree_, deviceTree_, record_->files, setup_.pair.syncMode);
}

SyncPlanner SyncRun::makePlanner() {
    const SyncPair& pair = setup_.pair;
    return SyncPlanner(
        {.local = localTree_,
         .device = deviceTree_,
         .record = record_ ? &*record_ : nullptr,
         .mode = pair.syncMode,
         .deletes = pair.deleteSyncEnabled,
         .moves = pair.movesFiles(),
         .localNames = localNames_,
         .deviceNames = deviceNames_,
         .now = setup_.now(),
         .filesOnceSynced =
             filesOnceSynced(localManifest_, deviceManifest_, setup_.hostID, pair).value_or(0)});
}

SyncAnswer SyncRun::ask(const SyncQuestion& question) {
    if (question.kind != SyncQuestion::Kind::missingLocalFolder)
        enter(SyncStage::confirming);
    SyncAnswer answer = events_.ask ? events_.ask(question) : SyncAnswer::stop();
    throwIfStopped(call_.stop);
    return answer;
}

/// A name that cannot be taken over leaves its files alone, as they are on both sides.
void SyncRun::carryOutRenames() {
    std::vector<const SyncRename*> refused;
    for (const SyncRename& rename : renames_) {
        SyncSide& side = rename.onDevice ? device_ : local_;
        throwIfStopped(call_.stop);
        try {
            const auto found = side.files().find(side.pathOf(rename.from), call_);
            if (!found)
                throw Error(SyncError::changedMeanwhile, {rename.from});
            (void)side.files().rename(*found, lastComponent(rename.to), TakenName::refused, call_);
            report_.items.push_back(
                {rename.onDevice ? SyncDeed::renameOnDevice : SyncDeed::renameHere, rename.to,
                 rename.from, 0});
        } catch (const Error& error) {
            if (endsCopy(error))
                throw;
            SyncTree& tree = rename.onDevice ? deviceTree_ : localTree_;
            dropBelow(tree.files, rename.to);
            refused.push_back(&rename);
            tree.unknown.insert_or_assign(rename.from, error);
            tree.unknown.insert_or_assign(rename.to, error);
        }
    }
    for (auto rename = refused.rbegin(); rename != refused.rend(); ++rename)
        takeBack(**rename, record_->files);
}

/// Of a file that is recorded under `path`.
SyncComparison SyncRun::comparisonOf(const SyncedFile& file, const QString& path) {
    if (haveSameContent(local_, device_, file, call_))
        return SyncComparison::equal;
    const auto isAsRecorded = [&](SyncSide& side, const QString& name, const SyncFile& seen) {
        if (seen.isDated || !record_)
            return false;
        const auto known = record_->files.find(path);
        return known != record_->files.end() && !known->second.sha256.isEmpty() &&
               known->second.size == seen.size &&
               known->second.sha256 == hashOf(side.files(), side.itemOf(name, seen), call_);
    };
    return isAsRecorded(local_, file.localPath, file.local) ||
                   isAsRecorded(device_, file.devicePath, file.device)
               ? SyncComparison::asRecorded
               : SyncComparison::differing;
}

SyncComparisons SyncRun::compare(const QStringList& paths, bool isRenamed) {
    SyncComparisons comparisons;
    for (const QString& path : paths) {
        throwIfStopped(call_.stop);
        const QString here = isRenamed ? path : nameBefore(path, renames_, false);
        const QString there = isRenamed ? path : nameBefore(path, renames_, true);
        try {
            comparisons[path] = comparisonOf(
                {here, localTree_.files.at(path), there, deviceTree_.files.at(path)}, path);
        } catch (const Error& error) {
            if (endsCopy(error))
                throw;
            logFailure("not compared: %s", error);
        }
    }
    return comparisons;
}

void SyncRun::reportUnknown() {
    QSet<QString> reported;
    for (const SyncSkippedItem& item : report_.skipped)
        reported.insert(item.path);
    for (const SyncTree* side : {&localTree_, &deviceTree_})
        for (const auto& [path, error] : side->unknown)
            if (!reported.contains(path)) {
                reported.insert(path);
                report_.skipped.push_back({path, error});
            }
}

/// Whether the record says all this already.
bool SyncRun::isRecorded(const SyncFiles& files) const {
    return record_ && record_->isShared && !isStored_ && report_.items.empty() &&
           remembered_ == files;
}

/// False when a side could not store it, which is reported. Each time has an identifier of its own:
/// a run that ends between the two sides has not stored the same on both.
bool SyncRun::writeManifests(SyncFiles files, bool onDevice) {
    const SyncPair& pair = setup_.pair;
    const QString key = syncRecordKey(setup_.hostID, pair);
    qint64 number = 0;
    for (const auto* manifest : {&localManifest_, &deviceManifest_})
        if (*manifest && (*manifest)->hosts.contains(key))
            number = std::max(number, (*manifest)->hosts.at(key).runNumber);
    SyncManifest manifest = SyncManifest::merged(localManifest_, deviceManifest_);
    const QString name =
        setup_.computerName.isEmpty() ? QStringLiteral("Computer") : setup_.computerName;
    manifest.hosts.insert_or_assign(
        key, SyncHostEntry{name, pair.deviceUDID, pair.appBundleID, pair.remoteFolderPath,
                           pair.localFolderPath,
                           QUuid::createUuid().toString(QUuid::WithoutBraces).toUpper(), number + 1,
                           syncDate(report_.startedAt), syncDate(setup_.now()), std::move(files)});
    // Nothing that the record speaks of may be lost when the power goes.
    setup_.computer.flush();
    Call whole = call_;
    whole.stop = {};
    bool isWhole = true;
    for (SyncSide* side : {&local_, &device_}) {
        if (side == &device_ && !onDevice)
            continue;
        try {
            saveManifest(*side, manifest, whole);
        } catch (const Error& error) {
            logFailure("sync record not stored: %s", error);
            if (endsEverything(error))
                throw;
            isWhole = false;
            report_.skipped.push_back(
                {SyncManifest::fileName,
                 Error(SyncError::recordNotStored, {side->pathOf(SyncManifest::fileName)}, error)});
        }
    }
    localManifest_ = std::move(manifest);
    return isWhole;
}

bool SyncRun::forgetMoved(const QStringList& paths) {
    isStored_ = true;
    for (const QString& path : paths)
        remembered_.erase(path);
    return writeManifests(remembered_, true);
}

/// What is done is recorded, and of what was not reached the old record stays.
void SyncRun::recordBrokenOff(SyncWorker& worker, const SyncPlan& plan, std::size_t reached,
                              bool reachesDevice) {
    for (std::size_t n = reached; n < plan.actions.size(); ++n)
        worker.keepRecord(plan.actions[n]);
    SyncFiles files = worker.takeFiles();
    if (isRecorded(files))
        return;
    try {
        writeManifests(std::move(files), reachesDevice);
    } catch (const std::exception& error) {
        DiagnosticsLogger::shared().transfer.error("sync record not stored: %s",
                                                   {QString::fromUtf8(error.what())});
    }
}

void SyncRun::carryOut(const SyncPlan& plan) {
    progress_.setTotals(plan.totalFiles, plan.totalBytes);
    enter(SyncStage::starting);
    if (!record_ && plan.totalFiles > 0) {
        // Both sides hold a record from the beginning: should this run break off, the next one
        // knows what it has done.
        writeManifests({}, true);
        isStored_ = true;
    }
    SyncWorker worker(transfer_, {localTree_, deviceTree_}, setup_.pair, setup_.computer, progress_,
                      report_, [this](const QStringList& paths) { return forgetMoved(paths); });
    std::size_t reached = 0;
    try {
        while (reached < plan.actions.size())
            reached += worker.carryOutFirst(std::span(plan.actions).subspan(reached));
        worker.finish();
    } catch (const Error& error) {
        recordBrokenOff(worker, plan, reached + 1, !endsEverything(error));
        throw;
    } catch (const CancellationError&) {
        recordBrokenOff(worker, plan, reached, true);
        throw;
    }
    if (plan.totalFiles == 0)
        progress_.enter(SyncStage::upToDate);
    SyncFiles files = worker.takeFiles();
    if (plan.settlesDates || !isRecorded(files))
        writeManifests(std::move(files), true);
}

/// Keeps other runs from the folders, and from the phone who only wants to know figures.
class SyncRun::Hold {
public:
    explicit Hold(SyncRun& run) {
        if (!run.setup_.lockFile.isEmpty())
            lock_.emplace(
                run.setup_.lockFile, [&run] { run.enter(SyncStage::waiting); }, run.call_.stop);
        if (const auto queue = run.setup_.device.queue())
            job_.emplace(queue->beginJob());
    }

private:
    std::optional<SyncLock> lock_;
    std::optional<PhoneQueue::Job> job_;
};

/// Looks at both sides, and returns what the user has to say first.
std::optional<SyncQuestion> SyncRun::lookAtBoth() {
    loadManifests();
    if (auto question = questionOfFolder())
        return question;
    if (!local_.exists(call_))
        setup_.computer.makeFolder();
    scan(SyncSide::Leftovers::finished);
    return consent_.questionOf(makePlanner());
}

void SyncRun::runToEnd() {
    // So often the folders may have become others while a question was open.
    constexpr int mostQuestions = 5;
    throwIfStopped(call_.stop);
    std::optional<Hold> hold(std::in_place, *this);
    int asked = 0;
    while (const auto question = lookAtBoth()) {
        if (++asked > mostQuestions)
            throw Error(SyncError::changedMeanwhile, {setup_.pair.localFolderPath});
        if (const auto known = events_.answer ? events_.answer(*question) : std::nullopt) {
            consent_.heed(*question, *known);
            if (question->kind == SyncQuestion::Kind::missingLocalFolder)
                continue;
            break;
        }
        // He may take hours: others need not wait, and what they do meanwhile is seen then.
        hold.reset();
        consent_.heed(*question, ask(*question));
        hold.emplace(*this);
    }
    enter(SyncStage::planning);
    carryOutRenames();
    SyncPlanner planner = makePlanner();
    const SyncComparisons comparisons = compare(planner.pathsToCompare(), true);
    carryOut(planner.plan(consent_.decisions(), comparisons));
}

SyncReport SyncRun::run() {
    report_.startedAt = setup_.now();
    try {
        runToEnd();
    } catch (const CancellationError&) {
        report_.outcome = SyncReport::Outcome::cancelled;
    } catch (const Error& error) {
        report_.outcome = error.is(SyncError::stopped) ? SyncReport::Outcome::cancelled
                                                       : SyncReport::Outcome::failed;
        report_.failure = error;
    }
    reportUnknown();
    const auto& skipped = report_.skipped;
    if (report_.outcome == SyncReport::Outcome::done &&
        !std::all_of(skipped.begin(), skipped.end(),
                     [](const SyncSkippedItem& item) { return isForGood(item.reason); }))
        report_.outcome = SyncReport::Outcome::incomplete;
    report_.endedAt = setup_.now();
    return std::move(report_);
}

SyncPreview SyncRun::preview() {
    report_.startedAt = setup_.now();
    loadManifests();
    scan(SyncSide::Leftovers::shown);
    SyncPlanner planner = makePlanner();
    const SyncGuard guard = planner.guard();
    SyncDecisions all;
    for (const DeletionCandidate& candidate : planner.deletionCandidates())
        all.deletions.insert(candidate.relativePath);
    const SyncComparisons comparisons = compare(planner.pathsToCompare(), false);
    SyncPreview preview = previewOf(planner.plan(all, comparisons), renames_, guard);
    reportUnknown();
    QSet<QString> named;
    for (const SyncPreviewItem& item : preview.items)
        named.insert(item.path);
    for (const SyncSkippedItem& item : report_.skipped)
        if (!named.contains(item.path))
            preview.items.push_back(
                {{}, item.path, {}, 0, std::make_shared<const Error>(item.reason), false});
    return preview;
}

} // namespace tessary
