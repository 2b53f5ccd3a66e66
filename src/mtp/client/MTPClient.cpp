#include "mtp/client/MTPClient.h"

#include "base/threads/CancellationError.h"
#include "base/values/LittleEndian.h"
#include "mtp/protocol/MTPPacketCodec.h"

#include <QScopeGuard>

#include <algorithm>
#include <array>
#include <limits>

namespace tessary {

namespace {

constexpr std::uint16_t rawOk = static_cast<std::uint16_t>(MTPResponseCode::ok);
constexpr std::uint32_t full32Bits = 0xFFFFFFFF;

bool isData(const MTPPacket& packet) {
    return packet.header.type == MTPContainerType::data;
}

/// The device has no such property, whatever the object.
bool isUnsupportedProperty(std::uint16_t response) {
    constexpr std::array codes{
        static_cast<std::uint16_t>(MTPResponseCode::operationNotSupported),
        static_cast<std::uint16_t>(MTPResponseCode::parameterNotSupported),
        static_cast<std::uint16_t>(MTPResponseCode::devicePropNotSupported),
        static_cast<std::uint16_t>(MTPResponseCode::invalidParameter),
        mtpInvalidObjectPropCode,
        mtpObjectPropNotSupported,
    };
    return std::find(codes.begin(), codes.end(), response) != codes.end();
}

bool isResponse(const MTPPacket& packet) {
    return packet.header.type == MTPContainerType::response;
}

/// The object handle among the parameters of a SendObjectInfo response: storage, parent, object.
std::uint32_t announcedHandle(const MTPPacket& response) {
    return response.payload.size() < 12 ? 0 : readLittleEndian<std::uint32_t>(response.payload, 8);
}

/// What fills the first write of a data container.
constexpr std::size_t firstPieceSize = 0x40000 - MTPContainerHeader::size;

/// As much of a payload as goes out with its header.
Bytes firstPiece(const MTPDataSource& source, std::uint64_t size) {
    Bytes piece(static_cast<std::size_t>(std::min<std::uint64_t>(size, firstPieceSize)));
    for (std::size_t filled = 0; filled < piece.size();) {
        const std::size_t count = source(std::span(piece).subspan(filled));
        if (count == 0)
            throw MTPFailure(
                MTPError::malformed,
                {QStringLiteral("the data ended after %1 of %2 bytes").arg(filled).arg(size)});
        filled += count;
    }
    return piece;
}

/// Moves as many bytes as fit.
std::size_t takeFront(Bytes& from, std::span<std::byte> to) {
    const std::size_t count = std::min(from.size(), to.size());
    std::copy_n(from.begin(), count, to.begin());
    from.erase(from.begin(), from.begin() + static_cast<std::ptrdiff_t>(count));
    return count;
}

} // namespace

/// A dataset and what `decode` makes of it.
template <typename Decode>
auto MTPClient::receiveRecord(const QString& failure, Decode decode) {
    auto record = decode(datasetOf(receive(), failure));
    if (!record) {
        skipResponse();
        throw MTPFailure(MTPError::malformed, {failure});
    }
    expectOk();
    return *std::move(record);
}

/// A list; no value when the device has answered without one.
std::optional<Bytes> MTPClient::receiveList(const QString& failure) {
    MTPPacket first = receive();
    if (isResponse(first) && first.header.code == rawOk)
        return std::nullopt;
    Bytes list = datasetOf(std::move(first), failure);
    expectOk();
    return list;
}

MTPDeviceInfo MTPClient::getDeviceInfo() {
    sendCommand(MTPOperationCode::getDeviceInfo, {});
    return receiveRecord(QStringLiteral("Failed to parse DeviceInfo"),
                         MTPPacketCodec::decodeDeviceInfo);
}

std::vector<std::uint32_t> MTPClient::getStorageIDs() {
    sendCommand(MTPOperationCode::getStorageIDs, {});
    const auto list = receiveList(QStringLiteral("Failed to parse StorageIDs"));
    return MTPPacketCodec::decodeArray(list.value_or(Bytes()));
}

MTPStorageInfo MTPClient::getStorageInfo(std::uint32_t storageID) {
    sendCommand(MTPOperationCode::getStorageInfo, {storageID});
    return receiveRecord(QStringLiteral("Failed to parse StorageInfo"), [=](ByteView from) {
        return MTPPacketCodec::decodeStorageInfo(from, storageID);
    });
}

std::optional<int> MTPClient::getBatteryLevel() {
    setPatience(patience().opening); // nothing depends on it
    const auto restored = qScopeGuard([this] { setPatience(patience().answer); });
    sendCommand(MTPOperationCode::getDevicePropValue, {mtpBatteryLevelProperty});
    const MTPPacket first = receive();
    if (!isData(first))
        return std::nullopt;
    if (first.payload.empty()) {
        skipResponse();
        return std::nullopt;
    }
    if (receive().header.code != rawOk)
        return std::nullopt;
    return static_cast<int>(first.payload.front());
}

std::vector<std::uint32_t> MTPClient::getObjectHandles(std::uint32_t storageID,
                                                       std::uint32_t parentHandle) {
    sendCommand(MTPOperationCode::getObjectHandles, {storageID, 0, parentHandle});
    const QString failure = QStringLiteral("Failed to parse ObjectHandles");
    const auto list = receiveList(failure);
    if (!list)
        return {};
    std::vector<std::uint32_t> handles = MTPPacketCodec::decodeArray(*list);
    // A list that is cut, or longer than its count, is no empty folder.
    if (list->size() != sizeof(std::uint32_t) * (1 + handles.size()))
        throw MTPFailure(MTPError::malformed, {failure});
    return handles;
}

MTPObjectInfo MTPClient::getObjectInfo(std::uint32_t handle) {
    sendCommand(MTPOperationCode::getObjectInfo, {handle});
    MTPObjectInfo info = receiveRecord(
        QStringLiteral("Failed to parse ObjectInfo for handle %1").arg(handle),
        [=](ByteView from) { return MTPPacketCodec::decodeObjectInfo(from, handle); });
    if (info.compressedSize == full32Bits)
        info.true64BitSize = getObjectSize(handle);
    return info;
}

std::optional<std::uint64_t> MTPClient::getObjectSize(std::uint32_t handle) {
    if (!objectSizeSupported_)
        return std::nullopt;
    sendCommand(MTPOperationCode::getObjectPropValue,
                {handle, static_cast<std::uint32_t>(MTPObjectProperty::objectSize)});
    const MTPPacket first = receive();
    if (!isData(first)) {
        objectSizeSupported_ = !isUnsupportedProperty(first.header.code);
        return std::nullopt;
    }
    const MTPPacket response = receive();
    if (response.header.code != rawOk || first.payload.size() < sizeof(std::uint64_t))
        return std::nullopt;
    const auto size = readLittleEndian<std::uint64_t>(first.payload, 0);
    // No object is that large: then its end is where the device says so.
    constexpr auto most = static_cast<std::uint64_t>(std::numeric_limits<qint64>::max());
    return size <= most ? std::optional(size) : std::nullopt;
}

std::uint64_t MTPClient::getObject(std::uint32_t handle, const MTPDataSink& sink,
                                   const MTPStreamOptions& options) {
    return receiveContent(MTPOperationCode::getObject, {handle}, sink, options);
}

std::uint64_t MTPClient::getPartialObject(std::uint32_t handle, std::uint64_t offset,
                                          std::uint32_t length, bool isWide,
                                          const MTPDataSink& sink,
                                          const MTPStreamOptions& options) {
    const auto low = static_cast<std::uint32_t>(offset);
    const auto high = static_cast<std::uint32_t>(offset >> 32);
    return isWide ? receiveContent(MTPOperationCode::androidGetPartialObject64,
                                   {handle, low, high, length}, sink, options)
                  : receiveContent(MTPOperationCode::getPartialObject, {handle, low, length}, sink,
                                   options);
}

void MTPClient::getObjectPropList(std::uint32_t folder, const MTPDataSink& sink,
                                  const MTPStreamOptions& options) {
    constexpr std::uint32_t anyFormat = 0;
    constexpr std::uint32_t allProperties = 0xFFFFFFFF;
    constexpr std::uint32_t noGroup = 0;
    constexpr std::uint32_t childrenOnly = 1;
    receiveContent(MTPOperationCode::getObjectPropList,
                   {folder, anyFormat, allProperties, noGroup, childrenOnly}, sink, options);
}

void MTPClient::getThumb(std::uint32_t handle, const MTPDataSink& sink,
                         const MTPStreamOptions& options) {
    receiveContent(MTPOperationCode::getThumb, {handle}, sink, options);
}

/// What is to be sent, with its first bytes at hand. A transfer that fails before them has not
/// begun: a device may miss a cancellation that comes before data does.
MTPDataSource MTPClient::draw(const MTPDataSource& source, std::uint64_t size,
                              const std::stop_token& stop) {
    drawn_ += size > 0 ? 1 : 0;
    Bytes first = firstPiece(source, size);
    throwIfStopped(stop);
    return [&source, first = std::move(first)](std::span<std::byte> buffer) mutable {
        return first.empty() ? source(buffer) : takeFront(first, buffer);
    };
}

std::uint32_t MTPClient::sendObject(MTPObjectInfo object, const MTPDataSource& source,
                                    std::uint64_t size, const MTPStreamOptions& options) {
    const MTPDataSource whole = draw(source, size, options.stop);
    object.compressedSize = static_cast<std::uint32_t>(std::min<std::uint64_t>(size, full32Bits));
    const std::uint32_t handle = sendObjectInfo(object);
    if (options.accepted)
        options.accepted(handle);
    sendContent(MTPOperationCode::sendObject, {}, whole, size, options);
    return handle;
}

void MTPClient::sendPartialObject(std::uint32_t handle, std::uint64_t offset, std::uint32_t size,
                                  const MTPDataSource& source, const MTPStreamOptions& options) {
    const MTPDataSource whole = draw(source, size, options.stop);
    sendContent(MTPOperationCode::androidSendPartialObject,
                {handle, static_cast<std::uint32_t>(offset),
                 static_cast<std::uint32_t>(offset >> 32), size},
                whole, size, options);
}

/// Phase one of an upload, and the whole of making a folder.
std::uint32_t MTPClient::sendObjectInfo(const MTPObjectInfo& info) {
    const std::uint32_t transactionID =
        sendCommand(MTPOperationCode::sendObjectInfo, {info.storageID, info.parentObject});
    sendData(MTPOperationCode::sendObjectInfo, transactionID,
             MTPPacketCodec::encodeObjectInfo(info));
    const MTPPacket response = receive();
    requireOk(response);
    return announcedHandle(response);
}

std::uint32_t MTPClient::createFolder(const QString& name, std::uint32_t parentHandle,
                                      std::uint32_t storageID) {
    MTPObjectInfo info;
    info.storageID = storageID;
    info.objectFormat = MTPObjectFormat::associationFolder;
    info.parentObject = parentHandle;
    info.filename = name;
    return sendObjectInfo(info);
}

void MTPClient::setProperty(std::uint32_t handle, MTPObjectProperty property,
                            const QString& value) {
    const std::uint32_t transactionID = sendCommand(MTPOperationCode::setObjectPropValue,
                                                    {handle, static_cast<std::uint32_t>(property)});
    sendData(MTPOperationCode::setObjectPropValue, transactionID,
             MTPPacketCodec::encodeString(value));
    expectOk();
}

void MTPClient::renameObject(std::uint32_t handle, const QString& newName) {
    setProperty(handle, MTPObjectProperty::objectFileName, newName);
}

void MTPClient::setDateModified(std::uint32_t handle, const QDateTime& date) {
    setProperty(handle, MTPObjectProperty::dateModified, MTPPacketCodec::formatMTPDate(date));
}

void MTPClient::moveObject(std::uint32_t handle, std::uint32_t storageID,
                           std::uint32_t parentHandle) {
    sendCommand(MTPOperationCode::moveObject, {handle, storageID, parentHandle});
    expectOk(workPatience);
}

void MTPClient::beginEdit(std::uint32_t handle) {
    sendCommand(MTPOperationCode::androidBeginEditObject, {handle});
    expectOk();
}

void MTPClient::endEdit(std::uint32_t handle) {
    sendCommand(MTPOperationCode::androidEndEditObject, {handle});
    expectOk(workPatience);
}

void MTPClient::deleteObject(std::uint32_t handle) {
    sendCommand(MTPOperationCode::deleteObject, {handle, 0});
    expectOk(workPatience);
}

} // namespace tessary
