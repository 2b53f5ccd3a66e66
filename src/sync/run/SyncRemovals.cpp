#include "sync/run/SyncRemovals.h"

#include "base/text/ByteCount.h"
#include "base/threads/CancellationError.h"
#include "sync/plan/SyncError.h"
#include "transfer/copy/CopyErrors.h"
#include "transfer/copy/FileCopy.h"

#include <algorithm>
#include <utility>

namespace tessary {

namespace {

/// So many files, or bytes, are moved before the disk is waited for and their sources go.
constexpr std::size_t movedAtOnce = 200;
constexpr qint64 movedBytesAtOnce = 512LL * 1024 * 1024;

} // namespace

SyncRemovals::SyncRemovals(SyncTransfer& transfer, const SyncComputer& computer, SyncReport& report,
                           ForgetFiles forget)
    : transfer_(transfer), computer_(computer), report_(report), forget_(std::move(forget)) {}

void SyncRemovals::add(Moved moved) {
    movedBytes_ = addByteCounts(movedBytes_, moved.source.size);
    moved_.push_back(std::move(moved));
    if (moved_.size() >= movedAtOnce || movedBytes_ >= movedBytesAtOnce)
        removeSources();
}

void SyncRemovals::noteEmptied(bool onDevice, const QString& folder) {
    (onDevice ? deviceEmptied_ : localEmptied_).insert(folder);
}

/// A phone's folder that another program shows as one of this computer's would have each of its
/// files taken for that file's copy.
void SyncRemovals::requireTwoFolders() {
    if (areTwoFolders_)
        return;
    SyncSide& here = transfer_.side(false);
    SyncSide& there = transfer_.side(true);
    areTwoFolders_ = !isOneFolder(here.files(), here.pathOf({}), there.files(), there.pathOf({}),
                                  transfer_.call());
    if (!areTwoFolders_)
        throw Error(PhoneError::insideItself, {here.pathOf({})});
}

/// Copies are there for good, and no record speaks of them any more. Leaves in `moved` those whose
/// sources may go.
void SyncRemovals::prepare(std::vector<Moved>& moved) {
    if (!moved.empty())
        requireTwoFolders();
    if (std::any_of(moved.begin(), moved.end(), [](const Moved& one) { return !one.toDevice; }))
        computer_.flush();
    QStringList recorded;
    for (const Moved& one : moved)
        if (one.isRecorded)
            recorded.append(one.path);
    if (recorded.isEmpty() || forget_(recorded))
        return;
    for (const QString& path : recorded)
        report_.skipped.push_back({path, Error(SyncError::recordNotStored, {path})});
    std::erase_if(moved, [](const Moved& one) { return one.isRecorded; });
}

/// The sources go when both they and the copies are as they were.
void SyncRemovals::removeSources() {
    std::vector<Moved> moved = std::exchange(moved_, {});
    movedBytes_ = 0;
    try {
        prepare(moved);
    } catch (const Error& error) {
        for (const Moved& one : moved)
            report_.skipped.push_back({one.path, whySkipped(error, one.path)});
        if (endsCopy(error))
            throw;
        return;
    }
    for (const Moved& one : moved) {
        throwIfStopped(transfer_.call().stop);
        try {
            const auto there = transfer_.side(one.toDevice).findFile(one.path, transfer_.call());
            if (!there || there->size != one.source.size)
                throw Error(SyncError::changedMeanwhile, {one.path});
            // Nothing but its content tells whether a file without a date was edited since.
            SyncSide& from = transfer_.side(!one.toDevice);
            if (!one.source.isDated &&
                !haveSameContent(transfer_.side(one.toDevice).files(), *there, from.files(),
                                 from.itemOf(one.path, one.source), transfer_.call()))
                throw Error(SyncError::changedMeanwhile, {one.path});
            (void)transfer_.remove(!one.toDevice, one.path, one.source, false);
            noteEmptied(!one.toDevice, folderOf(one.path));
            report_.items.push_back({one.toDevice ? SyncDeed::moveToDevice : SyncDeed::moveHere,
                                     one.path,
                                     {},
                                     one.source.size});
        } catch (const Error& error) {
            if (endsCopy(error))
                throw;
            report_.skipped.push_back({one.path, whySkipped(error, one.path)});
        }
    }
}

void SyncRemovals::finish() {
    removeSources();
    for (const bool onDevice : {false, true}) {
        // Folders before those above them, which may become empty by it.
        const auto& emptied = onDevice ? deviceEmptied_ : localEmptied_;
        for (auto folder = emptied.rbegin(); folder != emptied.rend(); ++folder)
            transfer_.side(onDevice).removeEmptyFolders(*folder, transfer_.call());
    }
}

} // namespace tessary
