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

QString hexadecimal(std::uint16_t code) {
    return QString::number(code, 16).toUpper();
}

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

/// Something else came where data was due.
[[noreturn]] void failWithoutData(const MTPPacket& packet, const QString& failure) {
    if (isResponse(packet) && packet.header.code != rawOk)
        throw MTPTransportError::refusal(packet.header.code);
    throw MTPTransportError::underlying(failure);
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
            throw MTPTransportError::underlying(
                QStringLiteral("the data ended after %1 of %2 bytes").arg(filled).arg(size));
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

MTPClient::MTPClient(std::unique_ptr<MTPTransport> transport, MTPPatience patience)
    : session_(std::move(transport), patience) {}

void MTPClient::setEventReceiver(std::function<void(const MTPEvent&)> receiver) {
    session_.setEventReceiver(std::move(receiver));
}

void MTPClient::setStop(std::stop_token stop) {
    const std::scoped_lock lock(mutex_);
    session_.setStop(std::move(stop));
}

bool MTPClient::settleSoon() {
    const std::scoped_lock lock(mutex_);
    return session_.settleSoon();
}

void MTPClient::openSession(std::uint32_t sessionID) {
    const std::scoped_lock lock(mutex_);
    session_.open(sessionID);
}

void MTPClient::closeSession() {
    const std::scoped_lock lock(mutex_);
    session_.close();
}

MTPDeviceInfo MTPClient::getDeviceInfo() {
    const std::scoped_lock lock(mutex_);
    session_.sendCommand(MTPOperationCode::getDeviceInfo, {});
    const QString failure = QStringLiteral("Failed to parse DeviceInfo");
    const Bytes dataset = session_.receiveDataset(failure);
    session_.expectOk();
    if (auto info = MTPPacketCodec::decodeDeviceInfo(dataset))
        return *std::move(info);
    throw MTPTransportError::underlying(failure);
}

std::vector<std::uint32_t> MTPClient::getStorageIDs() {
    const std::scoped_lock lock(mutex_);
    session_.sendCommand(MTPOperationCode::getStorageIDs, {});
    const MTPPacket first = session_.receiveFirst();
    if (isResponse(first) && first.header.code == rawOk)
        return {};
    if (!isData(first))
        failWithoutData(first, QStringLiteral("Expected data packet for GetStorageIDs (got type "
                                              "%1, code 0x%2)")
                                   .arg(mtpContainerTypeName(first.header.type),
                                        hexadecimal(first.header.code)));
    session_.expectOk();
    return MTPPacketCodec::decodeStorageIDs(first.payload);
}

MTPStorageInfo MTPClient::getStorageInfo(std::uint32_t storageID) {
    const std::scoped_lock lock(mutex_);
    session_.sendCommand(MTPOperationCode::getStorageInfo, {storageID});
    const QString failure = QStringLiteral("Failed to parse StorageInfo");
    const auto info =
        MTPPacketCodec::decodeStorageInfo(session_.receiveDataset(failure), storageID);
    if (!info) {
        session_.skipResponse();
        throw MTPTransportError::underlying(failure);
    }
    session_.expectOk();
    return *info;
}

std::optional<int> MTPClient::getBatteryLevel() {
    const std::scoped_lock lock(mutex_);
    session_.setPatience(session_.patience().opening); // nothing depends on it
    const auto restored = qScopeGuard([this] { session_.setPatience(session_.patience().answer); });
    session_.sendCommand(MTPOperationCode::getDevicePropValue, {mtpBatteryLevelProperty});
    const MTPPacket first = session_.receiveFirst();
    if (!isData(first))
        return std::nullopt;
    if (first.payload.empty()) {
        session_.skipResponse();
        return std::nullopt;
    }
    if (session_.receiveResponse().header.code != rawOk)
        return std::nullopt;
    return static_cast<int>(first.payload.front());
}

std::vector<std::uint32_t> MTPClient::getObjectHandles(std::uint32_t storageID,
                                                       std::uint32_t parentHandle) {
    const std::scoped_lock lock(mutex_);
    session_.sendCommand(MTPOperationCode::getObjectHandles, {storageID, 0, parentHandle});
    const MTPPacket first = session_.receiveFirst();
    if (isResponse(first) && first.header.code != rawOk)
        throw MTPTransportError::refusal(first.header.code);
    if (isResponse(first))
        return {};
    session_.expectOk();
    std::vector<std::uint32_t> handles = MTPPacketCodec::decodeObjectHandles(first.payload);
    // A list that is cut, or longer than its count, is no empty folder.
    if (first.payload.size() != sizeof(std::uint32_t) * (1 + handles.size()))
        throw MTPTransportError::underlying(QStringLiteral("Failed to parse ObjectHandles"));
    return handles;
}

MTPObjectInfo MTPClient::getObjectInfo(std::uint32_t handle) {
    const std::scoped_lock lock(mutex_);
    session_.sendCommand(MTPOperationCode::getObjectInfo, {handle});
    const QString failure = QStringLiteral("Failed to parse ObjectInfo for handle %1").arg(handle);
    auto info = MTPPacketCodec::decodeObjectInfo(session_.receiveDataset(failure), handle);
    if (!info) {
        session_.skipResponse();
        throw MTPTransportError::underlying(failure);
    }
    session_.expectOk();
    if (info->compressedSize == full32Bits)
        info->true64BitSize = objectSizeLocked(handle);
    return *info;
}

std::optional<std::uint64_t> MTPClient::getObjectSize(std::uint32_t handle) {
    const std::scoped_lock lock(mutex_);
    return objectSizeLocked(handle);
}

std::optional<std::uint64_t> MTPClient::objectSizeLocked(std::uint32_t handle) {
    if (!objectSizeSupported_)
        return std::nullopt;
    session_.sendCommand(MTPOperationCode::getObjectPropValue,
                         {handle, static_cast<std::uint32_t>(MTPObjectProperty::objectSize)});
    const MTPPacket first = session_.receiveFirst();
    if (!isData(first)) {
        objectSizeSupported_ = !isUnsupportedProperty(first.header.code);
        return std::nullopt;
    }
    const MTPPacket response = session_.receiveResponse();
    if (response.header.code != rawOk || first.payload.size() < sizeof(std::uint64_t))
        return std::nullopt;
    const auto size = readLittleEndian<std::uint64_t>(first.payload, 0);
    // No object is that large: then its end is where the device says so.
    constexpr auto most = static_cast<std::uint64_t>(std::numeric_limits<qint64>::max());
    return size <= most ? std::optional(size) : std::nullopt;
}

Bytes MTPClient::getObject(std::uint32_t handle) {
    Bytes bytes;
    getObject(handle,
              [&bytes](ByteView more) { bytes.insert(bytes.end(), more.begin(), more.end()); });
    return bytes;
}

std::uint64_t MTPClient::getObject(std::uint32_t handle, const MTPDataSink& sink,
                                   const MTPStreamOptions& options) {
    const std::scoped_lock lock(mutex_);
    return session_.receiveContent(MTPOperationCode::getObject, {handle}, sink, options);
}

std::uint64_t MTPClient::getPartialObject(std::uint32_t handle, std::uint64_t offset,
                                          std::uint32_t length, bool isWide,
                                          const MTPDataSink& sink,
                                          const MTPStreamOptions& options) {
    const std::scoped_lock lock(mutex_);
    const auto low = static_cast<std::uint32_t>(offset);
    const auto high = static_cast<std::uint32_t>(offset >> 32);
    return isWide ? session_.receiveContent(MTPOperationCode::androidGetPartialObject64,
                                            {handle, low, high, length}, sink, options)
                  : session_.receiveContent(MTPOperationCode::getPartialObject,
                                            {handle, low, length}, sink, options);
}

void MTPClient::getObjectPropList(std::uint32_t folder, const MTPDataSink& sink,
                                  const MTPStreamOptions& options) {
    const std::scoped_lock lock(mutex_);
    constexpr std::uint32_t anyFormat = 0;
    constexpr std::uint32_t allProperties = 0xFFFFFFFF;
    constexpr std::uint32_t noGroup = 0;
    constexpr std::uint32_t childrenOnly = 1;
    session_.receiveContent(MTPOperationCode::getObjectPropList,
                            {folder, anyFormat, allProperties, noGroup, childrenOnly}, sink,
                            options);
}

void MTPClient::getThumb(std::uint32_t handle, const MTPDataSink& sink,
                         const MTPStreamOptions& options) {
    const std::scoped_lock lock(mutex_);
    session_.receiveContent(MTPOperationCode::getThumb, {handle}, sink, options);
}

std::uint32_t MTPClient::sendObject(ByteView data, const QString& filename,
                                    std::uint32_t parentHandle, std::uint32_t storageID,
                                    const MTPByteProgress& progress) {
    const MTPDataSource source = [rest = data](std::span<std::byte> buffer) mutable {
        const std::size_t count = std::min(buffer.size(), rest.size());
        std::copy_n(rest.begin(), count, buffer.begin());
        rest = rest.subspan(count);
        return count;
    };
    MTPStreamOptions options;
    options.progress = progress;
    return sendObject(source, data.size(), filename, parentHandle, storageID, options);
}

std::uint32_t MTPClient::sendObject(const MTPDataSource& source, std::uint64_t size,
                                    const QString& filename, std::uint32_t parentHandle,
                                    std::uint32_t storageID, const MTPStreamOptions& options) {
    MTPObjectInfo object;
    object.storageID = storageID;
    object.parentObject = parentHandle;
    object.filename = filename;
    return sendObject(std::move(object), source, size, options);
}

std::uint32_t MTPClient::sendObject(MTPObjectInfo object, const MTPDataSource& source,
                                    std::uint64_t size, const MTPStreamOptions& options) {
    const std::scoped_lock lock(mutex_);
    // A transfer that fails before its first bytes has not begun: a device may miss a cancellation
    // that comes before data does.
    drawn_ += size > 0 ? 1 : 0;
    Bytes first = firstPiece(source, size);
    throwIfStopped(options.stop);
    const MTPDataSource whole = [&](std::span<std::byte> buffer) {
        return first.empty() ? source(buffer) : takeFront(first, buffer);
    };
    object.compressedSize = static_cast<std::uint32_t>(std::min<std::uint64_t>(size, full32Bits));
    const std::uint32_t handle = sendObjectInfo(object);
    if (options.accepted)
        options.accepted(handle);

    session_.sendContent(MTPOperationCode::sendObject, {}, whole, size, options);
    return handle;
}

void MTPClient::sendPartialObject(std::uint32_t handle, std::uint64_t offset, std::uint32_t size,
                                  const MTPDataSource& source, const MTPStreamOptions& options) {
    const std::scoped_lock lock(mutex_);
    drawn_ += size > 0 ? 1 : 0;
    Bytes first = firstPiece(source, size);
    throwIfStopped(options.stop);
    const MTPDataSource whole = [&](std::span<std::byte> buffer) {
        return first.empty() ? source(buffer) : takeFront(first, buffer);
    };
    session_.sendContent(MTPOperationCode::androidSendPartialObject,
                         {handle, static_cast<std::uint32_t>(offset),
                          static_cast<std::uint32_t>(offset >> 32), size},
                         whole, size, options);
}

/// Phase one of an upload, and the whole of making a folder.
std::uint32_t MTPClient::sendObjectInfo(const MTPObjectInfo& info) {
    const std::uint32_t transactionID =
        session_.sendCommand(MTPOperationCode::sendObjectInfo, {info.storageID, info.parentObject});
    session_.sendData(MTPOperationCode::sendObjectInfo, transactionID,
                      MTPPacketCodec::encodeObjectInfo(info));
    const MTPPacket response = session_.receiveResponse();
    if (response.header.code != rawOk)
        throw MTPTransportError::refusal(response.header.code);
    return announcedHandle(response);
}

std::uint32_t MTPClient::createFolder(const QString& name, std::uint32_t parentHandle,
                                      std::uint32_t storageID) {
    const std::scoped_lock lock(mutex_);
    MTPObjectInfo info;
    info.storageID = storageID;
    info.objectFormat = MTPObjectFormat::associationFolder;
    info.parentObject = parentHandle;
    info.associationType = 1; // generic folder
    info.filename = name;
    return sendObjectInfo(info);
}

void MTPClient::setProperty(std::uint32_t handle, MTPObjectProperty property,
                            const QString& value) {
    const std::scoped_lock lock(mutex_);
    const std::uint32_t transactionID = session_.sendCommand(
        MTPOperationCode::setObjectPropValue, {handle, static_cast<std::uint32_t>(property)});
    session_.sendData(MTPOperationCode::setObjectPropValue, transactionID,
                      MTPPacketCodec::encodeString(value));
    session_.expectOk();
}

void MTPClient::renameObject(std::uint32_t handle, const QString& newName) {
    setProperty(handle, MTPObjectProperty::objectFileName, newName);
}

void MTPClient::setDateModified(std::uint32_t handle, const QDateTime& date) {
    setProperty(handle, MTPObjectProperty::dateModified, MTPPacketCodec::formatMTPDate(date));
}

void MTPClient::moveObject(std::uint32_t handle, std::uint32_t storageID,
                           std::uint32_t parentHandle) {
    const std::scoped_lock lock(mutex_);
    session_.sendCommand(MTPOperationCode::moveObject, {handle, storageID, parentHandle});
    session_.expectOk(MTPSession::workPatience);
}

void MTPClient::beginEdit(std::uint32_t handle) {
    const std::scoped_lock lock(mutex_);
    session_.sendCommand(MTPOperationCode::androidBeginEditObject, {handle});
    session_.expectOk();
}

void MTPClient::endEdit(std::uint32_t handle) {
    const std::scoped_lock lock(mutex_);
    session_.sendCommand(MTPOperationCode::androidEndEditObject, {handle});
    session_.expectOk(MTPSession::workPatience);
}

void MTPClient::deleteObject(std::uint32_t handle) {
    const std::scoped_lock lock(mutex_);
    session_.sendCommand(MTPOperationCode::deleteObject, {handle, 0});
    session_.expectOk(MTPSession::workPatience);
}

} // namespace tessary
