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

/// What a device says that it is and can do.
struct MTPDeviceInfo {
    QString vendorExtensions;
    std::vector<std::uint16_t> operations;       ///< raw codes, as announced
    std::vector<std::uint16_t> events;           ///< raw codes
    std::vector<std::uint16_t> deviceProperties; ///< raw codes
    QString manufacturer;
    QString model;
    QString version;
    QString serialNumber;

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
    std::uint16_t fileSystemType = 0;
    std::uint16_t accessCapability = 0;
    std::uint64_t maxCapacity = 0;      ///< bytes
    std::uint64_t freeSpaceInBytes = 0; ///< bytes
    std::uint32_t freeSpaceInObjects = 0;
    QString storageDescription;
    QString volumeIdentifier;

    [[nodiscard]] bool isRemovable() const {
        return storageType == 4;
    }
    [[nodiscard]] bool isReadOnly() const {
        return accessCapability != 0;
    }

    bool operator==(const MTPStorageInfo&) const = default;
};

/// One object (file or folder) as the device describes it.
struct MTPObjectInfo {
    std::uint32_t id = 0; ///< the object handle; not on the wire
    std::uint32_t storageID = 0;
    MTPObjectFormat objectFormat = MTPObjectFormat::undefined;
    std::uint16_t protectionStatus = 0;
    std::uint32_t compressedSize = 0;           ///< bytes; 0xFFFFFFFF when the size does not fit
    std::optional<std::uint64_t> true64BitSize; ///< bytes; not on the wire
    std::uint16_t thumbFormat = 0;
    std::uint32_t thumbCompressedSize = 0;
    std::uint32_t thumbPixWidth = 0;
    std::uint32_t thumbPixHeight = 0;
    std::uint32_t imagePixWidth = 0;
    std::uint32_t imagePixHeight = 0;
    std::uint32_t imageBitDepth = 0;
    std::uint32_t parentObject = 0;
    std::uint16_t associationType = 0;
    std::uint32_t associationDesc = 0;
    std::uint32_t sequenceNumber = 0;
    QString filename; ///< hostile: may be empty, hold "/" or lone surrogates
    std::optional<QDateTime> dateCreated;
    std::optional<QDateTime> dateModified;
    QString keywords;

    [[nodiscard]] bool isDirectory() const {
        return objectFormat == MTPObjectFormat::associationFolder;
    }
    [[nodiscard]] std::uint64_t effectiveSize() const {
        return true64BitSize.value_or(compressedSize);
    }

    bool operator==(const MTPObjectInfo&) const = default;
};

} // namespace tessary
