#include "mtp/files/MTPPieceWriter.h"

#include "base/text/ByteCount.h"
#include "base/text/PathNames.h"
#include "base/threads/Deadline.h"
#include "mtp/files/MTPFileItems.h"
#include "mtp/files/MTPFileWriter.h"
#include "mtp/objects/MTPFailures.h"

#include <algorithm>
#include <limits>

namespace tessary {

QString MTPPieceWriter::path() const {
    return joinPath(file_.folder, file_.name);
}

std::size_t MTPPieceWriter::fetch(std::span<std::byte> buffer) {
    const std::size_t count = content_(buffer);
    if (count == 0)
        throw Error(PhoneError::wrongSize, {path(), offset_, file_.size});
    if (!isProven_)
        head_.insert(head_.end(), buffer.begin(),
                     buffer.begin() + static_cast<std::ptrdiff_t>(count));
    return count;
}

bool MTPPieceWriter::step(MTPTree& tree) {
    try {
        if (serial_ != tree.serial())
            open(tree);
        sendPiece(tree);
    } catch (const MTPFailure& failure) {
        if (!failure.response())
            throw;
        breakOff(tree);
        const Error error = phoneErrorOf(failure, path());
        const bool isRefused = error.is(PhoneError::refused);
        const bool isBeyond32Bits = offset_ + pieceSize > std::numeric_limits<std::uint32_t>::max();
        if (isRefused && isBeyond32Bits)
            throw Error(PhoneError::tooLarge, {path()}, *error.cause()); // a card's file system
        const bool isFirst = begun_ && !isProven_ && offset_ == 0;
        if (!isFirst || !(isRefused || error.is(PhoneError::notSupported)))
            throw;
        sendWhole(tree);
        return false;
    } catch (...) {
        breakOff(tree);
        throw;
    }
    if (offset_ < file_.size) {
        if (offset_ - noted_ >= checkpoint) {
            tree.endEdit(handle_);
            tree.beginEdit(handle_);
            noted_ = offset_;
        }
        return true;
    }
    finish(tree);
    return false;
}

/// Makes the file or finds it, and begins an edit.
void MTPPieceWriter::open(MTPTree& tree) {
    const MTPFound folder = tree.requireFolder(file_.folder, stop_);
    if (begun_) {
        locate(tree, folder);
    } else {
        const NewFile empty{file_.folder, file_.name, 0, file_.modified};
        const auto nothing = [](std::span<std::byte>) { return std::size_t{0}; };
        keep(MTPFileWriter(tree, folder, stop_).writeFile(empty, nothing, {}), folder);
    }
    tree.beginEdit(handle_);
    serial_ = tree.serial();
}

void MTPPieceWriter::locate(MTPTree& tree, const MTPFound& folder) {
    // In another session of one writer the file is larger than it was when it was looked at.
    const auto found =
        serial_ == 0 ? std::optional(tree.findItem(*begun_, stop_)) : tree.find(path(), stop_);
    if (!found || found->object.isDirectory())
        throw Error(PhoneError::notFound, {path()});
    if (clampedByteCount(found->object.info->effectiveSize()) < offset_)
        throw Error(PhoneError::changed, {path()});
    keep(*found->object.info, folder);
}

void MTPPieceWriter::keep(const MTPObjectInfo& info, const MTPFound& folder) {
    begun_ = fileItemOf(info, folder.location, isBelowStorage(file_.folder));
    handle_ = info.id;
}

void MTPPieceWriter::sendPiece(MTPTree& tree) {
    const qint64 size = std::min(pieceSize, file_.size - offset_);
    MTPStreamOptions options;
    options.stop = stop_;
    options.progress = [this](qint64 done) {
        if (progress_)
            progress_(offset_ + done);
    };
    tree.client().sendPartialObject(
        handle_, static_cast<std::uint64_t>(offset_), static_cast<std::uint32_t>(size),
        [this](std::span<std::byte> buffer) { return fetch(buffer); }, options);
    offset_ += size;
    isProven_ = true;
    head_ = {};
}

/// For a phone that edits nothing, although it says so.
void MTPPieceWriter::sendWhole(MTPTree& tree) {
    tree.client().setStop(stop_); // breaking off has taken it away
    tree.memory().editsObjects = false;
    const MTPFound empty = tree.findItem(*begun_, stop_);
    tree.client().deleteObject(handle_);
    tree.removed(empty);
    const MTPFound folder = tree.requireFolder(file_.folder, stop_);
    std::size_t taken = 0;
    const ByteSource whole = [&](std::span<std::byte> buffer) {
        if (taken == head_.size())
            return content_(buffer);
        const std::size_t count = std::min(buffer.size(), head_.size() - taken);
        std::copy_n(head_.begin() + static_cast<std::ptrdiff_t>(taken), count, buffer.begin());
        taken += count;
        return count;
    };
    keep(MTPFileWriter(tree, folder, stop_).writeFile(file_, whole, progress_), folder);
}

void MTPPieceWriter::finish(MTPTree& tree) {
    tree.endEdit(handle_);
    const MTPFound folder = tree.requireFolder(file_.folder, stop_);
    const auto look = [&] {
        auto info =
            tree.confirm(handle_, file_.name, folder.location.storageID, folder.object.handle);
        if (!info)
            throw Error(PhoneError::notDone, {path()});
        return *std::move(info);
    };
    MTPObjectInfo info = look();
    // The edits have made it a file of today.
    if (file_.modified && info.dateModified != file_.modified && tree.memory().setsDates)
        try {
            tree.client().setDateModified(handle_, *file_.modified);
            info = look();
        } catch (const MTPFailure& failure) {
            if (endsSession(failure))
                throw;
            tree.memory().setsDates = false;
        }
    if (clampedByteCount(info.effectiveSize()) != file_.size)
        info.true64BitSize = tree.client().getObjectSize(handle_);
    if (const qint64 size = clampedByteCount(info.effectiveSize()); size != file_.size)
        throw Error(PhoneError::wrongSize, {path(), size, file_.size});
    keep(info, folder);
    tree.added(folder, info);
}

/// Ends the edit after a failure, where the phone still listens.
void MTPPieceWriter::breakOff(MTPTree& tree) noexcept {
    if (serial_ != tree.serial() || !tree.client().settleSoon())
        return;
    serial_ = 0;
    try {
        const Deadline deadline(mtpCleanUpLimit);
        tree.client().setStop(deadline.token());
        tree.endEdit(handle_);
        tree.doubt();
    } catch (...) {
        // The failure that led here is the one to report.
    }
}

} // namespace tessary
