#include "mtp/files/MTPFileReader.h"

#include "base/text/ByteCount.h"
#include "mtp/objects/MTPFailures.h"

#include <algorithm>
#include <limits>

namespace tessary {

namespace {

/// Thrown out of a transfer that has brought all that was asked for.
struct Enough {};

bool isUnsupported(const MTPFailure& failure) {
    return failure.response() && phoneErrorOf(failure, {}).is(PhoneError::notSupported);
}

} // namespace

MTPFileReader::MTPFileReader(const FileItem& file, ByteRange range, const ByteSink& sink,
                             std::stop_token stop)
    : file_(file), range_(range), sink_(sink), stop_(std::move(stop)) {}

bool MTPFileReader::step(MTPTree& tree, MTPPartialReads& parts) {
    if (!info_ || serial_ != tree.serial())
        confirm(tree);
    const qint64 size = clampedByteCount(info_->effectiveSize());
    const bool isPart = range_.offset > 0 || range_.length >= 0;
    constexpr auto most32Bits = std::numeric_limits<std::uint32_t>::max();
    const bool inParts = parts != MTPPartialReads::none && !isSizeWrong_ &&
                         (isPart || size > largestWhole) &&
                         (parts == MTPPartialReads::wide || end() <= most32Bits);
    if (inParts)
        try {
            return readPiece(tree, parts);
        } catch (const MTPFailure& failure) {
            if (received_ > 0 || !isUnsupported(failure))
                throw;
            parts = MTPPartialReads::none;
        }
    readWhole(tree);
    return false;
}

/// Finds the file in a session. It is the one of the first step when it has the same facts.
void MTPFileReader::confirm(MTPTree& tree) {
    const MTPFound found = tree.findListed(file_, stop_);
    if (found.object.isDirectory())
        throw Error(PhoneError::notAFile, {file_.path});
    MTPObjectInfo info = *found.object.info;
    if (info_ && (info_->effectiveSize() != info.effectiveSize() ||
                  info_->dateModified != info.dateModified))
        throw Error(PhoneError::changed, {file_.path});
    info_ = std::move(info);
    handle_ = info_->id;
    serial_ = tree.serial();
}

/// Where reading ends in the file.
qint64 MTPFileReader::end() const {
    const qint64 size = clampedByteCount(info_->effectiveSize());
    return range_.length < 0 ? size : std::min(size, addByteCounts(range_.offset, range_.length));
}

void MTPFileReader::hand(ByteView bytes) {
    sink_(bytes);
    received_ += static_cast<qint64>(bytes.size());
}

bool MTPFileReader::readPiece(MTPTree& tree, MTPPartialReads parts) {
    const qint64 at = range_.offset + received_;
    if (at >= end())
        return false; // devices may hang when they are asked for what lies beyond the end
    const qint64 wanted = std::min(pieceSize, end() - at);
    // The size may be out of date: one byte more than there should be tells. Phones with 64-bit
    // offsets give what there is.
    const bool isLast = range_.length < 0 && at + wanted == end();
    const qint64 asked = wanted + (isLast && parts == MTPPartialReads::wide ? 1 : 0);
    qint64 got = 0;
    const auto take = [&](ByteView bytes) {
        got += static_cast<qint64>(bytes.size());
        if (got > asked)
            throw Error(PhoneError::wrongSize, {file_.path, at + got, at + asked});
        hand(bytes);
    };
    MTPStreamOptions options;
    options.stop = stop_;
    (void)tree.client().getPartialObject(handle_, static_cast<std::uint64_t>(at),
                                         static_cast<std::uint32_t>(asked),
                                         parts == MTPPartialReads::wide, take, options);
    isSizeWrong_ = got != wanted;
    return isSizeWrong_ || at + got < end();
}

/// The whole object, of which the sink gets what it does not have yet.
void MTPFileReader::readWhole(MTPTree& tree) {
    qint64 toSkip = range_.offset + received_;
    MTPStreamOptions options;
    options.stop = stop_;
    options.expectedSize = info_->true64BitSize;
    const auto take = [&](ByteView bytes) {
        const auto skipped = std::min(static_cast<std::size_t>(toSkip), bytes.size());
        toSkip -= static_cast<qint64>(skipped);
        bytes = bytes.subspan(skipped);
        if (range_.length >= 0)
            bytes = bytes.first(
                std::min(static_cast<std::size_t>(range_.length - received_), bytes.size()));
        if (!bytes.empty())
            hand(bytes);
        if (range_.length >= 0 && received_ >= range_.length)
            throw Enough();
    };
    try {
        tree.client().getObject(handle_, take, options);
    } catch (const Enough&) {
        // The transfer was broken off; the session stays usable.
    }
}

} // namespace tessary
