#pragma once

#include "mtp/protocol/MTPTypes.h"

#include <functional>

namespace tessary {

/// Reads the dataset of GetObjectPropList as it arrives, piece by piece, and makes an object of the
/// properties that stand together. Takes hostile bytes: what it keeps is bounded, whatever counts
/// and lengths claim.
///
///      0 u32 number of properties, then each:
///        u32 handle, u16 property, u16 type, value (a number of the type's width, a string, or for
///        an array a u32 count and as many numbers)
class MTPPropertyList {
public:
    /// Called for each object whose name, kind and size were told. Without a property of their own,
    /// storage and parent are 0.
    using Receiver = std::function<void(MTPObjectInfo&&)>;

    explicit MTPPropertyList(Receiver receiver) : receiver_(std::move(receiver)) {}

    /// The next bytes. What comes behind the last property, or behind nonsense, is dropped; false
    /// once there is so much of it that the phone may go on for ever.
    [[nodiscard]] bool add(ByteView bytes);
    /// All bytes were added. False when they end too early or late, or made no sense.
    [[nodiscard]] bool finish();

private:
    [[nodiscard]] std::size_t readElement(ByteView from);
    void take(std::uint32_t handle, std::uint16_t property, std::uint16_t type, ByteView value);
    void handOver();

    const Receiver receiver_;
    Bytes pending_; ///< the beginning of what is not whole yet
    std::optional<std::uint32_t> left_;
    std::size_t beyond_ = 0; ///< bytes that were dropped
    bool isBroken_ = false;

    std::optional<MTPObjectInfo> current_;
    bool hasName_ = false;
    bool hasFormat_ = false;
    bool hasSize_ = false;
};

} // namespace tessary
