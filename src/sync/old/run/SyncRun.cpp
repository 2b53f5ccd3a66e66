#include "sync/old/run/SyncRun.h"

#include "base/threads/CancellationError.h"
#include "base/values/TessaryError.h"
#include "sync/old/plan/SyncPlanner.h"
#include "sync/old/run/SyncWorker.h"

#include <QDir>

namespace tessary {

namespace {

using Kind = SyncPlannedAction::Kind;

const QString& deviceRoot(const SyncPair& pair) {
    static const QString slash = QStringLiteral("/");
    return pair.remoteFolderPath.isEmpty() ? slash : pair.remoteFolderPath;
}

/// The line of an action; no value for what is in sync.
std::optional<SyncPreviewItem> previewOf(const SyncPlannedAction& action) {
    using Item = SyncPreviewItem::Kind;
    const SyncFileEntry* file = action.local != nullptr ? action.local : action.device;
    SyncPreviewItem item{Item::skip, false, action.relativePath, action.detail,
                         file != nullptr ? file->size : 0};
    switch (action.kind) {
    case Kind::alreadyInSync:
        return std::nullopt;
    case Kind::upload:
    case Kind::download:
        item.kind = action.deletesSource          ? Item::move
                    : action.kind == Kind::upload ? Item::upload
                                                  : Item::download;
        item.toDevice = action.kind == Kind::upload;
        item.size = action.bytes();
        break;
    case Kind::moveDeleteSourceOnly:
    case Kind::moveDeleteRemoteSourceOnly:
        item.kind = Item::move;
        item.toDevice = action.kind == Kind::moveDeleteSourceOnly;
        break;
    case Kind::conflict:
        item.kind = Item::conflict;
        item.toDevice = !action.deviceWins;
        item.reason.clear();
        break;
    case Kind::deleteLocal:
    case Kind::deleteRemote:
        item.kind = Item::remove;
        item.toDevice = action.kind == Kind::deleteRemote;
        break;
    case Kind::leave:
        item.kind = Item::leave;
        item.reason = QStringLiteral("it was changed on the side that files are copied to");
        break;
    case Kind::skip:
        break;
    }
    return item;
}

} // namespace

QString SyncRun::remotePath(const QString& remoteRoot, const QString& relativePath) {
    QString root = remoteRoot;
    while (root.endsWith(u'/'))
        root.chop(1);
    return relativePath.isEmpty() ? (root.isEmpty() ? QStringLiteral("/") : root)
                                  : root + QLatin1Char('/') + relativePath;
}

SyncRun::SyncRun(SyncRunSetup setup, SyncRunEvents events, std::stop_token stop)
    : setup_(std::move(setup)), events_(std::move(events)), stop_(std::move(stop)) {}

void SyncRun::tell(const QString& message) {
    throwIfStopped(stop_);
    progress_.stage = message;
    if (events_.status)
        events_.status(message);
    if (events_.progress)
        events_.progress(progress_);
}

/// A folder that was synced before and is gone may be on a disk that is missing: only the user
/// knows whether to begin anew.
void SyncRun::ensureLocalFolder() {
    if (setup_.local.exists())
        return;
    remoteManifest_ = setup_.device.loadRemoteManifest(deviceRoot(setup_.pair));
    isRemoteManifestLoaded_ = true;
    manifest_ = SyncManifest::merged({}, remoteManifest_);
    if (setup_.pair.lastSyncedAt || record() != nullptr) {
        SyncQuestion question;
        question.kind = SyncQuestion::Kind::missingLocalFolder;
        question.warning =
            QStringLiteral("The folder %1 is gone, although it was synced before. Is its disk "
                           "missing? Going on makes a new, empty folder.")
                .arg(setup_.pair.localFolderPath);
        if (!events_.ask || !events_.ask(question))
            throw TessaryError::fileIOError(
                QStringLiteral("The folder %1 is missing.").arg(setup_.pair.localFolderPath));
        throwIfStopped(stop_);
    }
    setup_.local.create();
}

void SyncRun::scan() {
    tell(QStringLiteral("Scanning folders…"));
    const auto connection = setup_.device.holdConnection();
    localScan_ = setup_.local.exists() ? setup_.local.scan(stop_) : SyncScan();
    throwIfStopped(stop_);
    deviceScan_ = setup_.device.scanDirectory(deviceRoot(setup_.pair));
    throwIfStopped(stop_);
    if (!isRemoteManifestLoaded_ && deviceScan_.hasManifest)
        remoteManifest_ = setup_.device.loadRemoteManifest(deviceRoot(setup_.pair));
    manifest_ =
        SyncManifest::merged(localScan_.hasManifest ? setup_.local.loadManifest() : std::nullopt,
                             std::move(remoteManifest_));
}

/// What this computer knows of this very pair; null for a first run.
const SyncFiles* SyncRun::record() const {
    const auto host = manifest_.hosts.find(setup_.hostID);
    if (host == manifest_.hosts.end())
        return nullptr;
    const SyncPair& pair = setup_.pair;
    const bool isThisPair =
        host->second.deviceUDID == pair.deviceUDID &&
        remotePath(host->second.remoteFolderPath, {}) == remotePath(pair.remoteFolderPath, {}) &&
        QDir::cleanPath(host->second.localFolderPath) == QDir::cleanPath(pair.localFolderPath);
    return isThisPair ? &host->second.files : nullptr;
}

/// Asks the user what has to be asked; for a preview it only notes the question's warning.
SyncPlan SyncRun::makePlan(SyncPreview* preview) {
    const SyncPair& pair = setup_.pair;
    SyncPlanner planner({localScan_, deviceScan_, record(), pair.syncMode, pair.deleteSyncEnabled,
                         pair.movesFiles(), pair.isAndroid(), setup_.local.nameRules(),
                         setup_.device.nameRules(), setup_.now()});
    bool isConfirmed = preview != nullptr;
    SyncQuestion question{SyncQuestion::Kind::deletions, planner.deletionCandidates(),
                          planner.massDeletionWarning()};
    if (preview != nullptr) {
        preview->warning = question.warning;
    } else if (!question.candidates.empty()) {
        tell(QStringLiteral("Awaiting deletion confirmation…"));
        isConfirmed = events_.ask && events_.ask(question);
        throwIfStopped(stop_);
    }
    tell(QStringLiteral("Analyzing files…"));
    const QSet<QString> equal = compareSamples(planner.pathsToCompare());
    return planner.plan(isConfirmed, equal);
}

QSet<QString> SyncRun::compareSamples(const QStringList& paths) {
    QSet<QString> equal;
    const auto connection = paths.isEmpty() ? nullptr : setup_.device.holdConnection();
    for (const QString& path : paths) {
        throwIfStopped(stop_);
        if (setup_.device.areFilesMatching(
                setup_.local.pathOf(path), remotePath(deviceRoot(setup_.pair), path),
                localScan_.files.at(path).size, deviceScan_.files.at(path).size))
            equal.insert(path);
    }
    return equal;
}

/// What an earlier run left unfinished is of no use to anybody.
void SyncRun::removeLeftovers() {
    for (const auto& [path, date] : localScan_.leftovers)
        setup_.local.removeLeftover(path);
    const QDateTime now = setup_.now();
    for (const auto& [path, date] : deviceScan_.leftovers) {
        throwIfStopped(stop_);
        if (std::chrono::milliseconds(date.msecsTo(now)) < leftoverAge)
            continue;
        try {
            setup_.device.deleteRemoteFile(remotePath(deviceRoot(setup_.pair), path));
        } catch (const CancellationError&) {
            throw;
        } catch (const std::exception&) {
            // It takes room and nothing else; the next run tries again.
        }
    }
}

void SyncRun::reportUnusable(SyncReport& report) const {
    QSet<QString> reported;
    for (const SkippedItem& item : report.skipped)
        reported.insert(item.path);
    for (const SyncScan* side : {&localScan_, &deviceScan_})
        for (const auto& [path, reason] : side->unusable)
            if (!reported.contains(path)) {
                reported.insert(path);
                report.skipped.push_back({path, reason});
            }
}

void SyncRun::writeManifests(SyncFiles files) {
    const SyncPair& pair = setup_.pair;
    manifest_.hosts.insert_or_assign(
        setup_.hostID,
        SyncHostEntry{setup_.computerName.isEmpty() ? QStringLiteral("Mac") : setup_.computerName,
                      pair.deviceUDID, pair.remoteFolderPath, pair.localFolderPath,
                      syncDate(setup_.now()), std::move(files)});
    setup_.local.saveManifest(manifest_);
    setup_.device.saveRemoteManifest(manifest_, deviceRoot(pair));
}

SyncReport SyncRun::run() {
    throwIfStopped(stop_);
    ensureLocalFolder();
    scan();
    const SyncPlan plan = makePlan();
    progress_.totalFiles = plan.totalFiles;
    progress_.totalBytes = plan.totalBytes;
    tell(QStringLiteral("Starting transfer…"));
    const auto connection = setup_.device.holdConnection();
    removeLeftovers();
    SyncWorker worker(setup_, events_, deviceRoot(setup_.pair), progress_, stop_);
    for (const SyncPlannedAction& action : plan.actions)
        worker.carryOut(action);
    SyncFiles files = worker.finish();
    SyncReport report = worker.takeReport();
    reportUnusable(report);
    if (plan.totalFiles == 0)
        tell(QStringLiteral("Up to date"));
    throwIfStopped(stop_);
    writeManifests(std::move(files));
    progress_.stage = QStringLiteral("Completed");
    if (events_.progress)
        events_.progress(progress_);
    return report;
}

SyncPreview SyncRun::preview() {
    scan();
    SyncPreview preview;
    const SyncPlan plan = makePlan(&preview);
    preview.totalBytes = plan.totalBytes;
    SyncReport report;
    for (const SyncPlannedAction& action : plan.actions) {
        if (auto item = previewOf(action)) {
            if (item->kind == SyncPreviewItem::Kind::skip)
                report.skipped.push_back({item->relativePath, item->reason});
            else
                preview.items.push_back(*std::move(item));
        } else {
            ++preview.inSync;
        }
    }
    reportUnusable(report);
    for (SkippedItem& item : report.skipped)
        preview.items.push_back(
            {SyncPreviewItem::Kind::skip, false, std::move(item.path), std::move(item.reason), 0});
    return preview;
}

} // namespace tessary
