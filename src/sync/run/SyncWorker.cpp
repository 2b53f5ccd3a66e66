#include "sync/run/SyncWorker.h"

#include "base/text/ByteCount.h"
#include "base/text/PathNames.h"
#include "base/threads/CancellationError.h"
#include "sync/plan/ConflictNames.h"
#include "sync/plan/SyncError.h"
#include "sync/run/SyncContents.h"
#include "transfer/copy/CopyErrors.h"
#include "transfer/copy/FileCopy.h"
#include "transfer/copy/SmallFiles.h"

#include <algorithm>

namespace tessary {

namespace {

using Kind = SyncPlannedAction::Kind;

/// A folder is listed to look at what was sent to it when that is this part of it, or more.
constexpr std::size_t partToList = 8;

} // namespace

SyncWorker::SyncWorker(SyncTransfer& transfer, Trees trees, const SyncPair& pair,
                       const SyncComputer& computer, SyncRunProgress& progress, SyncReport& report,
                       SyncRemovals::ForgetFiles forget)
    : transfer_(transfer),
      trees_(trees),
      pair_(pair),
      progress_(progress),
      report_(report),
      removals_(transfer, computer, report, std::move(forget)) {}

ByteProgress SyncWorker::byteProgress() {
    return [this](qint64 done) { progress_.setBytes(done); };
}

void SyncWorker::addItem(SyncDeed deed, const QString& path, qint64 size, const QString& other) {
    report_.items.push_back({deed, path, other, size});
}

void SyncWorker::skip(const QString& path, Error reason) {
    report_.skipped.push_back({path, std::move(reason)});
}

/// What later tells an edit on a device that lists no dates; empty when it cannot be told.
QByteArray SyncWorker::hashHere(const QString& path, const SyncFile& local) {
    SyncSide& side = transfer_.side(false);
    try {
        return hashOf(side.files(), side.itemOf(path, local), transfer_.call());
    } catch (const Error&) {
        return {}; // the next run reads it again, or says why not
    }
}

/// `before`: what was known of the file.
void SyncWorker::enter(const QString& path, const SyncFile& local, const SyncFile& device,
                       bool isContentKnown, const SyncFileEntry* before) {
    SyncFileEntry entry{local.size, wholeSeconds(local.date), {}, {}, isContentKnown};
    if (wholeSeconds(device.date) != entry.modifiedDate)
        entry.deviceModifiedDate = wholeSeconds(device.date);
    if (!device.isDated && isContentKnown) {
        const bool isKnown = before != nullptr && !before->sha256.isEmpty() &&
                             before->size == entry.size &&
                             before->modifiedDate == entry.modifiedDate;
        entry.sha256 = isKnown ? before->sha256 : hashHere(path, local);
    }
    files_.insert_or_assign(path, std::move(entry));
}

void SyncWorker::keepRecord(const Action& action) {
    if (action.record != nullptr)
        files_.try_emplace(action.relativePath, *action.record);
}

void SyncWorker::carryOut(const Action& action) {
    throwIfStopped(transfer_.call().stop);
    if (action.kind == Kind::alreadyInSync) {
        ++report_.inSync;
        enter(action.relativePath, *action.local, *action.device, action.isContentKnown,
              action.record);
        return;
    }
    if (action.kind == Kind::skip || action.kind == Kind::leave) {
        if (action.reason)
            skip(action.relativePath, *action.reason);
        keepRecord(action);
        if (action.knownToDiffer && action.record != nullptr)
            files_.at(action.relativePath).differingDate = wholeSeconds(
                pair_.syncMode == SyncMode::toComputer ? action.local->date : action.device->date);
        return;
    }
    if ((action.kind == Kind::upload || action.kind == Kind::download) &&
        files_.contains(action.relativePath)) { // the copy of a conflict, and went with that
        progress_.endFile(action.bytes());
        return;
    }
    try {
        act(action);
    } catch (const Error& error) {
        keepRecord(action);
        if (endsCopy(error))
            throw;
        skip(action.relativePath, whySkipped(error, action.relativePath));
    } catch (...) {
        keepRecord(action);
        throw;
    }
    progress_.endFile(action.bytes());
}

void SyncWorker::act(const Action& action) {
    const QString& path = action.relativePath;
    switch (action.kind) {
    case Kind::upload:
    case Kind::download:
        transfer(action, action.kind == Kind::upload);
        break;
    case Kind::moveDeleteSourceOnly:
    case Kind::moveDeleteRemoteSourceOnly: {
        const bool toDevice = action.kind == Kind::moveDeleteSourceOnly;
        progress_.beginFile(SyncStage::clearing, path);
        removals_.add(
            {toDevice, path, toDevice ? *action.local : *action.device, action.record != nullptr});
        break;
    }
    case Kind::conflict:
        resolveConflict(action);
        break;
    case Kind::deleteLocal:
    case Kind::deleteRemote:
        deleteConfirmed(action);
        break;
    case Kind::alreadyInSync:
    case Kind::leave:
    case Kind::skip:
        break;
    }
}

FileItem SyncWorker::copy(const SyncTransfer::Copy& copy) {
    FileItem arrived = transfer_.copy(copy, byteProgress());
    report_.transferredBytes = addByteCounts(report_.transferredBytes, copy.seen.size);
    if (copy.toDevice)
        sent_.insert_or_assign(copy.newPath, syncFileOf(arrived));
    return arrived;
}

void SyncWorker::transfer(const Action& action, bool toDevice) {
    const QString& path = action.relativePath;
    progress_.beginFile(action.deletesSource ? SyncStage::moving
                        : toDevice           ? SyncStage::uploading
                                             : SyncStage::downloading,
                        path);
    const SyncFile& source = toDevice ? *action.local : *action.device;
    const FileItem arrived =
        copy({toDevice, path, source, path, toDevice ? action.device : action.local});
    if (action.deletesSource) {
        removals_.add({toDevice, path, source, action.record != nullptr});
        return;
    }
    noteTransfer(action, syncFileOf(arrived));
}

void SyncWorker::noteTransfer(const Action& action, const SyncFile& arrived) {
    const bool toDevice = action.kind == Kind::upload;
    const SyncFile& source = toDevice ? *action.local : *action.device;
    enter(action.relativePath, toDevice ? source : arrived, toDevice ? arrived : source, true);
    addItem(deedOf(action), action.relativePath, source.size);
}

std::size_t SyncWorker::carryOutFirst(std::span<const Action> actions) {
    const std::size_t count = countTogether(actions);
    if (count < 2) {
        carryOut(actions.front());
        return 1;
    }
    carryOutTogether(actions.first(count));
    return count;
}

/// How many of the actions are new small files of one folder that go the same way.
std::size_t SyncWorker::countTogether(std::span<const Action> actions) const {
    const auto sourceOf = [](const Action& action) -> const SyncFile* {
        const bool isNew = (action.kind == Kind::upload && action.device == nullptr) ||
                           (action.kind == Kind::download && action.local == nullptr);
        const SyncFile* source = action.kind == Kind::upload ? action.local : action.device;
        return isNew && !action.deletesSource && source != nullptr &&
                       source->size <= SmallFiles::largestFile
                   ? source
                   : nullptr;
    };
    const Action& first = actions.front();
    if (sourceOf(first) == nullptr)
        return 0;
    const auto can = transfer_.side(true).files().capabilities(transfer_.call());
    if (first.kind == Kind::upload ? !can.writesTogether : !can.readsTogether)
        return 0;
    std::size_t count = 0;
    qint64 bytes = 0;
    for (const Action& action : actions) {
        const SyncFile* source = sourceOf(action);
        if (source == nullptr || action.kind != first.kind ||
            folderOf(action.relativePath) != folderOf(first.relativePath) ||
            count == SmallFiles::mostFiles || bytes >= SmallFiles::mostBytes)
            break;
        bytes = addByteCounts(bytes, source->size);
        ++count;
    }
    return count;
}

void SyncWorker::carryOutTogether(std::span<const Action> actions) {
    throwIfStopped(transfer_.call().stop);
    const bool toDevice = actions.front().kind == Kind::upload;
    SyncSide& from = transfer_.side(!toDevice);
    SyncSide& to = transfer_.side(toDevice);
    progress_.beginFile(toDevice ? SyncStage::uploading : SyncStage::downloading,
                        actions.front().relativePath);
    std::vector<bool> isMade(actions.size());
    const auto note = [&](std::size_t n, const FileItem& made) {
        isMade[n] = true;
        const SyncFile arrived = syncFileOf(made);
        report_.transferredBytes = addByteCounts(report_.transferredBytes, arrived.size);
        if (toDevice)
            sent_.insert_or_assign(actions[n].relativePath, arrived);
        noteTransfer(actions[n], arrived);
        progress_.endFile(actions[n].bytes());
    };
    try {
        SmallFiles files;
        for (const Action& action : actions)
            files.add({from.itemOf(action.relativePath, toDevice ? *action.local : *action.device),
                       lastComponent(action.relativePath)});
        const QString folder = to.makeFoldersAbove(actions.front().relativePath, transfer_.call());
        files.copy(from.files(), to.files(), folder, true, note, byteProgress(), transfer_.call());
    } catch (const Error& error) {
        if (endsCopy(error)) {
            for (const Action& action : actions)
                keepRecord(action);
            throw;
        }
        // Each alone says why.
    } catch (...) {
        for (const Action& action : actions)
            keepRecord(action);
        throw;
    }
    for (std::size_t n = 0; n < actions.size(); ++n)
        if (!isMade[n])
            carryOut(actions[n]);
}

void SyncWorker::resolveConflict(const Action& action) {
    const QString& path = action.relativePath;
    const SyncedFile file{path, *action.local, path, *action.device};
    bool deviceWins = action.deviceWins;
    progress_.beginFile(SyncStage::downloading, path);
    if (action.prefixLoses &&
        isOneBeginningOfOther(transfer_.side(false), transfer_.side(true), file, transfer_.call()))
        deviceWins = file.device.size > file.local.size;
    const SyncFile& winner = deviceWins ? file.device : file.local;
    SyncTransfer::Copy last{!deviceWins, path, winner, path,
                            deviceWins ? action.local : action.device};
    QString loser;
    if (pair_.syncMode == SyncMode::biDirectional) {
        loser = keepLoserOnBoth(action, deviceWins);
    } else {
        loser = keepLoserAtTarget(action);
        if (transfer_.side(!deviceWins).files().capabilities(transfer_.call()).renames)
            last.replaced = nullptr; // it has got another name
    }
    progress_.beginFile(deviceWins ? SyncStage::downloading : SyncStage::uploading, path);
    const SyncFile there = syncFileOf(copy(last));
    addItem(SyncDeed::keepBoth, path, winner.size, loser);
    if (action.deletesSource)
        removals_.add({!deviceWins, path, winner, action.record != nullptr});
    else
        enter(path, deviceWins ? there : winner, deviceWins ? winner : there, true);
}

/// A run whose last step failed has kept the loser already: what is its content on each side that
/// has the name is not copied again. Else a free name.
SyncWorker::LoserCopy SyncWorker::loserCopy(const Action& action, bool deviceWins) {
    const bool isTwoWay = pair_.syncMode == SyncMode::biDirectional;
    SyncSide& side = transfer_.side(!deviceWins);
    const FileItem loser =
        side.itemOf(action.relativePath, deviceWins ? *action.local : *action.device);
    for (const QString& name :
         conflictCopiesOf(action.relativePath, {&trees_.local, &trees_.device})) {
        LoserCopy kept{name, {}, {}};
        bool isSame = true;
        const SyncSide* lastSide = &side;
        FileItem last = loser;
        for (const bool onDevice : {false, true}) {
            SyncSide& here = transfer_.side(onDevice);
            auto found = isSame ? here.findFile(name, transfer_.call()) : std::nullopt;
            if (!found)
                continue;
            try {
                isSame = found->size == last.size &&
                         haveSameContent(lastSide->files(), last, here.files(), *found,
                                         transfer_.call());
            } catch (const Error& error) {
                if (endsCopy(error))
                    throw;
                isSame = false; // nobody knows: another name is free
            }
            (onDevice ? kept.device : kept.local) = syncFileOf(*found);
            lastSide = &here;
            last = *std::move(found);
        }
        const bool isKept = isTwoWay ? kept.local || kept.device
                                     : (deviceWins ? kept.local : kept.device).has_value();
        if (isSame && isKept)
            return kept;
    }
    return {action.conflictName, {}, {}};
}

/// In two-way mode both versions end up on both sides, the loser first. Returns its name.
QString SyncWorker::keepLoserOnBoth(const Action& action, bool deviceWins) {
    const QString& path = action.relativePath;
    auto [name, here, there] = loserCopy(action, deviceWins);
    if (!here && there)
        here = syncFileOf(copy({false, name, *there, name, nullptr}));
    else if (!here && deviceWins)
        here = syncFileOf(transfer_.copyBeside(false, path, *action.local, name, byteProgress()));
    else if (!here)
        here = syncFileOf(copy({false, path, *action.device, name, nullptr}));
    progress_.beginFile(SyncStage::uploading, name);
    if (!there)
        there = syncFileOf(copy({true, name, *here, name, nullptr}));
    enter(name, *here, *there, true);
    return name;
}

/// In a one-way mode the target's own version stays there. Returns its name.
QString SyncWorker::keepLoserAtTarget(const Action& action) {
    const bool onDevice = pair_.syncMode == SyncMode::toPhone;
    const bool renames = transfer_.side(onDevice).files().capabilities(transfer_.call()).renames;
    if (!renames) {
        const LoserCopy kept = loserCopy(action, !onDevice);
        if (onDevice ? kept.device : kept.local)
            return kept.name;
    }
    (void)transfer_.setAside(onDevice, action.relativePath,
                             onDevice ? *action.device : *action.local, action.conflictName,
                             byteProgress());
    return action.conflictName;
}

void SyncWorker::deleteConfirmed(const Action& action) {
    const QString& path = action.relativePath;
    const bool fromDevice = action.kind == Kind::deleteRemote;
    progress_.beginFile(SyncStage::deleting, path);
    // It is to go because the other side had deleted it: it may be back by now.
    if (transfer_.side(!fromDevice).findFile(path, transfer_.call())) {
        keepRecord(action);
        skip(path, Error(SyncError::changedMeanwhile, {path}));
        return;
    }
    const SyncFile& seen = fromDevice ? *action.device : *action.local;
    SyncSide& side = transfer_.side(fromDevice);
    if (!seen.isDated && hashOf(side.files(), side.itemOf(path, seen), transfer_.call()) !=
                             action.record->sha256) { // edited: it is wanted
        Action back = action;
        back.kind = fromDevice ? Kind::download : Kind::upload;
        transfer(back, !fromDevice);
        return;
    }
    if (transfer_.remove(fromDevice, path, seen, true))
        addItem(deedOf(action), path, seen.size);
    removals_.noteEmptied(fromDevice, folderOf(path));
}

void SyncWorker::finish() {
    removals_.finish();
    std::map<QString, QStringList> byFolder;
    for (const auto& [path, file] : sent_)
        if (files_.contains(path))
            byFolder[folderOf(path)].append(path);
    for (const auto& [folder, paths] : byFolder)
        confirmSent(folder, paths);
}

/// Looks at files that were sent to a folder: at each, or at the whole folder where that is less.
void SyncWorker::confirmSent(const QString& folder, const QStringList& paths) {
    const QString prefix = folder.isEmpty() ? QString() : folder + QLatin1Char('/');
    std::size_t others = 0;
    const std::size_t enough = static_cast<std::size_t>(paths.size()) * partToList;
    const auto& listed = trees_.device.files;
    for (auto it = listed.lower_bound(prefix);
         it != listed.end() && it->first.startsWith(prefix) && others <= enough; ++it)
        ++others;
    std::map<QString, SyncFile> all;
    if (others <= enough && paths.size() > 1)
        all = transfer_.side(true).filesIn(folder, transfer_.call());
    for (const QString& path : paths) {
        throwIfStopped(transfer_.call().stop);
        if (const auto seen = all.find(lastComponent(path)); seen != all.end()) {
            confirmOne(path, seen->second);
            continue;
        }
        // What a listing could not read is asked for alone.
        try {
            const auto found = transfer_.side(true).findFile(path, transfer_.call());
            confirmOne(path, found ? std::optional(syncFileOf(*found)) : std::nullopt);
        } catch (const Error& error) {
            if (endsCopy(error))
                throw;
            files_.erase(path);
            skip(path, error);
        }
    }
}

/// Only what is the same on both sides is recorded, with the date that the device lists.
void SyncWorker::confirmOne(const QString& path, const std::optional<SyncFile>& now) {
    SyncFileEntry& entry = files_.at(path);
    const SyncFile local{entry.size, entry.modifiedDate};
    bool isSame = now && now->size == entry.size;
    if (isSame && now->date != sent_.at(path).date) {
        // Some phones date a file once more after it has arrived, and somebody may have edited it.
        try {
            const auto here = transfer_.side(false).findFile(path, transfer_.call());
            isSame =
                here && haveSameContent(transfer_.side(false), transfer_.side(true),
                                        {path, syncFileOf(*here), path, *now}, transfer_.call());
        } catch (const Error& error) {
            if (endsCopy(error))
                throw;
            isSame = false;
        }
    }
    if (isSame) {
        enter(path, local, *now, true, &entry);
        return;
    }
    files_.erase(path);
    skip(path, Error(SyncError::changedMeanwhile, {path}));
}

} // namespace tessary
