#include "mtp/protocol/MTPPropertyList.h"

#include "base/values/LittleEndian.h"
#include "mtp/protocol/MTPPacketCodec.h"

#include <limits>
#include <utility>

namespace tessary {

namespace {

constexpr std::size_t elementHeaderSize = 8;
constexpr std::uint16_t stringType = 0xFFFF;
constexpr std::uint16_t arrayMark = 0x4000;
/// No array of a property that describes a file is that long.
constexpr std::size_t longestArray = std::size_t{64} << 10;
/// More than any folder's list has. The roots of all storages come in one.
constexpr std::uint32_t mostProperties = 20'000'000;
/// A phone that sends more beyond the end than this is not waited for.
constexpr std::size_t mostBeyond = std::size_t{64} << 10;
constexpr std::size_t unknownSize = std::numeric_limits<std::size_t>::max();

/// Bytes of one number; 0 for a type that does not exist.
std::size_t widthOf(std::uint16_t type) {
    // 1 and 2 are the signed and the unsigned 8 bits, up to 9 and 10 for 128 bits.
    return type < 1 || type > 10 ? 0 : std::size_t{1} << ((type - 1) / 2);
}

/// Bytes of a value; no value while it cannot be told yet, unknownSize when it is nonsense.
std::optional<std::size_t> sizeOf(std::uint16_t type, ByteView from) {
    if (type == stringType)
        return from.empty() ? std::nullopt
                            : std::optional(1 + 2 * static_cast<std::size_t>(from[0]));
    const auto element = static_cast<std::uint16_t>(type & ~arrayMark);
    const std::size_t width = widthOf(element);
    if (width == 0)
        return unknownSize;
    if (element == type)
        return width;
    if (from.size() < 4)
        return std::nullopt;
    const std::size_t count = readLittleEndian<std::uint32_t>(from, 0);
    return count > longestArray / width ? unknownSize : 4 + count * width;
}

std::uint64_t numberOf(ByteView value) {
    std::uint64_t number = 0;
    for (std::size_t i = 0; i < std::min<std::size_t>(value.size(), 8); ++i)
        number |= static_cast<std::uint64_t>(value[i]) << (8 * i);
    return number;
}

} // namespace

bool MTPPropertyList::add(ByteView bytes) {
    if (isBroken_ || left_ == 0U) {
        beyond_ += bytes.size();
        return beyond_ <= mostBeyond;
    }
    pending_.insert(pending_.end(), bytes.begin(), bytes.end());
    std::size_t at = 0;
    if (!left_ && pending_.size() >= 4) {
        left_ = readLittleEndian<std::uint32_t>(pending_, 0);
        isBroken_ = *left_ > mostProperties;
        at = 4;
    }
    while (left_.value_or(0) > 0 && !isBroken_) {
        const std::size_t size = readElement(ByteView(pending_).subspan(at));
        if (size == 0)
            break;
        at += size;
        --*left_;
    }
    pending_.erase(pending_.begin(), pending_.begin() + static_cast<std::ptrdiff_t>(at));
    if (isBroken_ || left_ == 0U)
        beyond_ = std::exchange(pending_, {}).size();
    return beyond_ <= mostBeyond;
}

/// Takes one property and tells how long it is; 0 while it is not whole.
std::size_t MTPPropertyList::readElement(ByteView from) {
    if (from.size() < elementHeaderSize)
        return 0;
    const auto type = readLittleEndian<std::uint16_t>(from, 6);
    const ByteView rest = from.subspan(elementHeaderSize);
    const auto size = sizeOf(type, rest);
    isBroken_ = size == unknownSize;
    if (!size || isBroken_ || rest.size() < *size)
        return 0;
    take(readLittleEndian<std::uint32_t>(from, 0), readLittleEndian<std::uint16_t>(from, 4), type,
         rest.first(*size));
    return elementHeaderSize + *size;
}

void MTPPropertyList::take(std::uint32_t handle, std::uint16_t property, std::uint16_t type,
                           ByteView value) {
    if (!current_ || current_->id != handle) {
        handOver();
        current_.emplace();
        current_->id = handle;
        hasName_ = hasFormat_ = hasSize_ = false;
    }
    const bool isText = type == stringType;
    const bool isNumber = widthOf(type) != 0;
    if (!isText && !isNumber)
        return;
    const QString text = isText ? MTPPacketCodec::decodeName(value, 0) : QString();
    const std::uint64_t number = isText ? 0 : numberOf(value);
    switch (static_cast<MTPObjectProperty>(property)) {
    case MTPObjectProperty::storageID:
        current_->storageID = static_cast<std::uint32_t>(number);
        break;
    case MTPObjectProperty::objectFormat:
        current_->objectFormat = static_cast<MTPObjectFormat>(number);
        hasFormat_ = isNumber;
        break;
    case MTPObjectProperty::objectSize:
        current_->compressedSize = static_cast<std::uint32_t>(
            std::min<std::uint64_t>(number, std::numeric_limits<std::uint32_t>::max()));
        // A narrower one may be cut.
        if (widthOf(type) >= sizeof(std::uint64_t))
            current_->true64BitSize = number;
        hasSize_ = isNumber;
        break;
    case MTPObjectProperty::objectFileName:
        current_->filename = text;
        hasName_ = isText;
        break;
    case MTPObjectProperty::dateModified:
        current_->dateModified = MTPPacketCodec::parseMTPDate(text);
        break;
    case MTPObjectProperty::parentObject:
        current_->parentObject = static_cast<std::uint32_t>(number);
        break;
    default:
        break;
    }
}

void MTPPropertyList::handOver() {
    if (current_ && hasName_ && hasFormat_ && (hasSize_ || current_->isDirectory()))
        receiver_(std::move(*current_));
    current_.reset();
}

bool MTPPropertyList::finish() {
    handOver();
    return !isBroken_ && left_ == 0U && beyond_ == 0;
}

} // namespace tessary
