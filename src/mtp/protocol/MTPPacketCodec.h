#pragma once

#include "mtp/protocol/MTPTypes.h"

#include <span>
#include <utility>
#include <vector>

namespace tessary {

/// Encodes and decodes MTP containers and datasets. Pure: no state, no I/O. Decoders take hostile
/// bytes: short or malformed input gives no value or an empty list, and nothing is allocated that
/// the input does not hold. All integers are little-endian.
class MTPPacketCodec {
public:
    [[nodiscard]] static Bytes encodeHeader(const MTPContainerHeader& header);

    /// No value below 12 bytes. An unknown type becomes `undefined`.
    [[nodiscard]] static std::optional<MTPContainerHeader> decodeHeader(ByteView from);

    /// A command container: the header, then each parameter as u32. Fatal when the length does
    /// not fit 32 bits.
    [[nodiscard]] static Bytes buildCommandPacket(MTPOperationCode operation,
                                                  std::uint32_t transactionID,
                                                  std::span<const std::uint32_t> parameters);

    /// A data container: the header, then the payload. Fatal for a payload above
    /// 0xFFFFFFFF - 12 bytes.
    [[nodiscard]] static Bytes buildDataPacket(MTPOperationCode operation,
                                               std::uint32_t transactionID, ByteView payload);

    /// An event container: the header, then up to three parameters of u32. No value for any other.
    [[nodiscard]] static std::optional<MTPEvent> decodeEvent(ByteView from);

    /// Storage ids or object handles, an array of u32: a count, then as many values. A truncated
    /// array is empty, never partial.
    [[nodiscard]] static std::vector<std::uint32_t> decodeArray(ByteView from);

    /// DeviceInfo dataset, at least 8 bytes:
    ///
    ///      0 u16 version   2 u32 vendor extension   6 u16 its version
    ///      8 string extensions, u16 mode, then an array of u16 (a u32 count, then the values) of
    ///        operations; what follows is of no use here
    ///
    /// Operations that cannot be read are none.
    [[nodiscard]] static std::optional<MTPDeviceInfo> decodeDeviceInfo(ByteView from);

    /// StorageInfo dataset, at least 26 bytes:
    ///
    ///      0 u16 storageType    2 u16 fileSystemType     4 u16 accessCapability
    ///      6 u64 maxCapacity   14 u64 freeSpaceInBytes  22 u32 freeSpaceInObjects
    ///     26 string storageDescription, then string volumeIdentifier
    ///
    /// A description that is empty or cannot be read becomes "Internal Storage".
    [[nodiscard]] static std::optional<MTPStorageInfo> decodeStorageInfo(ByteView from,
                                                                         std::uint32_t storageID);

    /// ObjectInfo dataset, at least 52 bytes:
    ///
    ///      0 u32 storageID         4 u16 objectFormat       6 u16 protectionStatus
    ///      8 u32 compressedSize   12 u16 thumbFormat       14 u32 thumbCompressedSize
    ///     18 u32 thumbPixWidth    22 u32 thumbPixHeight    26 u32 imagePixWidth
    ///     30 u32 imagePixHeight   34 u32 imageBitDepth     38 u32 parentObject
    ///     42 u16 associationType  44 u32 associationDesc   48 u32 sequenceNumber
    ///     52 string filename, then strings date created, date modified, keywords
    ///
    /// A string that cannot be read is empty and one byte long.
    [[nodiscard]] static std::optional<MTPObjectInfo> decodeObjectInfo(ByteView from,
                                                                       std::uint32_t handle);

    /// The same dataset for SendObjectInfo, with nothing in what MTPObjectInfo has not. The date of
    /// the last change is what devices give the file that they make.
    [[nodiscard]] static Bytes encodeObjectInfo(const MTPObjectInfo& info);

    /// MTP string: one byte with the number of UTF-16 units including the terminator (0 for the
    /// empty string, which has none), then the units. At most 254 units are written; a longer text
    /// is cut there, even inside a surrogate pair.
    [[nodiscard]] static Bytes encodeString(const QString& text);

    /// The string at an offset and the number of bytes that it takes. The terminator is not
    /// checked. No value at or beyond the end, or when the length byte promises more than there is.
    [[nodiscard]] static std::optional<std::pair<QString, std::size_t>>
    decodeString(ByteView from, std::size_t at);

    /// The same for the name of an object: without NULs at its end, which some devices pad names
    /// with; empty when there is no string.
    [[nodiscard]] static QString decodeName(ByteView from, std::size_t at);

    /// Dates are texts: "20240131T235959" or "2024-01-31T23:59:59", also with a blank for the "T"
    /// or without seconds, with a fraction of a second, and with a time zone as in ISO 8601; else
    /// they are in local time. No value for anything else. White space around them does not count.
    [[nodiscard]] static std::optional<QDateTime> parseMTPDate(const QString& text);
    /// "yyyyMMddTHHmmss" in local time.
    [[nodiscard]] static QString formatMTPDate(const QDateTime& date);
};

} // namespace tessary
