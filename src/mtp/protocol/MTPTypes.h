#pragma once

#include "base/values/Bytes.h"
#include "mtp/protocol/MTPCodes.h"

#include <QDateTime>
#include <QString>

#include <algorithm>
#include <cstdint>
#include <optional>
#include <vector>

namespace tessary {

/// The 12 bytes in front of every container, little-endian:
///
///     offset  width  field
///          0  u32    length         of the whole container, header included
///          4  u16    type           MTPContainerType
///          6  u16    code           operation, response or event code, kept raw
///          8  u32    transactionID
struct MTPContainerHeader {
    static constexpr std::size_t size = 12;
    /// The length of a data container that is too long for the field.
    static constexpr std::uint32_t unknownLength = 0xFFFFFFFF;

    std::uint32_t length = 0;
    MTPContainerType type = MTPContainerType::undefined;
    std::uint16_t code = 0;
    std::uint32_t transactionID = 0;

    bool operator==(const MTPContainerHeader&) const = default;
};

/// One container: the header and everything after its 12 bytes.
struct MTPPacket {
    MTPContainerHeader header;
    Bytes payload;

    bool operator==(const MTPPacket&) const = default;
};

/// What a device tells on its own, on the interrupt pipe.
struct MTPEvent {
    std::uint16_t code = 0;      ///< MTPEventCode, kept raw
    std::uint32_t parameter = 0; ///< an object's handle, or a storage; 0 when there is none

    bool operator==(const MTPEvent&) const = default;
};

/// What a device says that it can do.
struct MTPDeviceInfo {
    std::vector<std::uint16_t> operations; ///< raw codes, as announced

    [[nodiscard]] bool announces(MTPOperationCode operation) const {
        return std::find(operations.begin(), operations.end(),
                         static_cast<std::uint16_t>(operation)) != operations.end();
    }

    bool operator==(const MTPDeviceInfo&) const = default;
};

/// One storage of a device, as the device describes it. Sizes are the device's word: free space
/// may exceed the capacity or any sane number.
struct MTPStorageInfo {
    std::uint32_t id = 0; ///< not on the wire
    std::uint16_t storageType = 0;
    std::uint64_t maxCapacity = 0;      ///< bytes
    std::uint64_t freeSpaceInBytes = 0; ///< bytes
    QString storageDescription;

    [[nodiscard]] bool isRemovable() const {
        return storageType == 4;
    }

    bool operator==(const MTPStorageInfo&) const = default;
};

/// One object (file or folder) as the device describes it; of the dataset what this program uses.
struct MTPObjectInfo {
    std::uint32_t id = 0; ///< the object handle; not on the wire
    std::uint32_t storageID = 0;
    MTPObjectFormat objectFormat = MTPObjectFormat::undefined;
    std::uint32_t compressedSize = 0;           ///< bytes; 0xFFFFFFFF when the size does not fit
    std::optional<std::uint64_t> true64BitSize; ///< bytes; not on the wire
    std::uint32_t parentObject = 0;
    QString filename; ///< hostile: may be empty, hold "/" or lone surrogates
    std::optional<QDateTime> dateModified;

    [[nodiscard]] bool isDirectory() const {
        return objectFormat == MTPObjectFormat::associationFolder;
    }
    [[nodiscard]] std::uint64_t effectiveSize() const {
        return true64BitSize.value_or(compressedSize);
    }

    bool operator==(const MTPObjectInfo&) const = default;
};

} // namespace tessary
