#include "mtp/client/MTPClient.h"

#include "base/values/LittleEndian.h"
#include "mtp/protocol/MTPPacketCodec.h"

#include <QScopeGuard>

#include <algorithm>
#include <array>
#include <limits>

namespace tessary {

namespace {

constexpr std::uint16_t rawOk = static_cast<std::uint16_t>(MTPResponseCode::ok);
constexpr std::uint16_t rawAlreadyOpen =
    static_cast<std::uint16_t>(MTPResponseCode::sessionAlreadyOpen);
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
        throw MTPTransportError::refused(failure, packet.header.code);
    throw MTPTransportError::underlying(failure);
}

/// The object handle among the parameters of a SendObjectInfo response: storage, parent, object.
std::uint32_t announcedHandle(const MTPPacket& response) {
    return response.payload.size() < 12 ? 0 : readLittleEndian<std::uint32_t>(response.payload, 8);
}

} // namespace

MTPClient::MTPClient(std::unique_ptr<MTPTransportProtocol> transport, MTPPatience patience)
    : transport_(std::move(transport)), patience_(patience) {}

MTPClient::~MTPClient() {
    transport_->close();
}

void MTPClient::setEventReceiver(std::function<void(const MTPEvent&)> receiver) {
    transport_->setEventReceiver(std::move(receiver));
}

void MTPClient::setStop(std::stop_token stop) {
    const std::scoped_lock lock(mutex_);
    stop_ = std::move(stop);
    setWaits(patience_.answer);
}

bool MTPClient::isSettled() const {
    const std::scoped_lock lock(mutex_);
    return isSettled_;
}

void MTPClient::setWaits(std::chrono::milliseconds patience) {
    transport_->setWaits({patience, stop_});
}

std::uint32_t MTPClient::sendCommand(MTPOperationCode operation, Parameters parameters) {
    // What a failed transaction left in the pipe must not be taken for the answer to this one.
    if (!isSettled_ && recover() == MTPPipeState::busy)
        throw MTPTransportError(MTPTransportError::Case::timeout);
    const std::uint32_t transactionID = transactionIDCounter_++;
    ++asked_;
    isSettled_ = false;
    phase_ = MTPDataPhase::toHost;
    transport_->send(MTPPacketCodec::buildCommandPacket(operation, transactionID, parameters));
    return transactionID;
}

void MTPClient::sendData(MTPOperationCode operation, std::uint32_t transactionID,
                         ByteView payload) {
    phase_ = MTPDataPhase::toDevice;
    transport_->send(MTPPacketCodec::buildDataPacket(operation, transactionID, payload));
}

/// Ends the last transaction, which was broken off, on the device's side.
MTPPipeState MTPClient::recover() {
    const MTPPipeState state = transport_->recover(transactionIDCounter_ - 1, phase_);
    isSettled_ = state != MTPPipeState::busy;
    return state;
}

/// The same for a transaction that was stopped: whoever stopped it does not wait much longer. For a
/// device that is still at work then, the next transaction waits.
void MTPClient::recoverSoon() noexcept {
    constexpr std::chrono::milliseconds limit{700};
    const MTPPipeState state = transport_->recover(transactionIDCounter_ - 1, phase_, limit);
    isSettled_ = state != MTPPipeState::busy;
}

/// The last container of a transaction.
MTPPacket MTPClient::receiveResponse(std::chrono::milliseconds patience) {
    MTPPacket response = transport_->receivePacket(patience);
    isSettled_ = isResponse(response);
    ++answered_;
    return response;
}

/// The first container of a transaction with a data phase, which a refusal takes the place of.
MTPPacket MTPClient::receiveFirst() {
    MTPPacket first = transport_->receivePacket();
    isSettled_ = isResponse(first);
    ++answered_;
    return first;
}

/// Reads a response whose content no longer matters.
void MTPClient::skipResponse() {
    try {
        (void)receiveResponse();
    } catch (const MTPTransportError&) {
        // The failure that led here is the one to report.
    }
}

void MTPClient::expectOk(const QString& failure, std::chrono::milliseconds patience) {
    const MTPPacket response = receiveResponse(patience);
    if (response.header.code != rawOk)
        throw MTPTransportError::refusal(failure, response.header.code);
}

void MTPClient::openSession(std::uint32_t sessionID) {
    const std::scoped_lock lock(mutex_);
    transport_->open();
    setWaits(patience_.opening);
    try {
        startSession(sessionID);
        setWaits(patience_.answer);
    } catch (...) {
        // The next try finds the device anew, and others find it free.
        closeTransport();
        throw;
    }
    isOpen_ = true;
}

void MTPClient::startSession(std::uint32_t sessionID) {
    sessionID_ = sessionID;
    MTPPacket response = openSessionAnswer();
    if (response.header.code == rawAlreadyOpen) {
        sendCommand(MTPOperationCode::closeSession, {});
        (void)receiveResponse();
        sendCommand(MTPOperationCode::openSession, {sessionID_});
        response = receiveResponse();
        if (response.header.code == rawAlreadyOpen)
            return;
    }
    if (response.header.code != rawOk)
        throw MTPTransportError::refusal(QStringLiteral("OpenSession failed with code 0x"),
                                         response.header.code);
}

/// A response; no value when something else came, of which no more than the beginning is read.
std::optional<MTPPacket> MTPClient::receiveAnswerOrStaleData() {
    struct StaleData {};
    try {
        MTPPacket answer = transport_->receiveContainer([](ByteView) { throw StaleData(); }, {});
        isSettled_ = isResponse(answer);
        return isSettled_ ? std::optional(std::move(answer)) : std::nullopt;
    } catch (const StaleData&) {
        return std::nullopt;
    }
}

/// The device's answer to OpenSession. A client that died in mid-transfer leaves its data or its
/// response in the pipe, or a device that takes OpenSession for the rest of an upload: whatever
/// is no answer to this transaction makes room for one more try.
MTPPacket MTPClient::openSessionAnswer() {
    std::optional<MTPPacket> answer;
    try {
        const std::uint32_t transactionID =
            sendCommand(MTPOperationCode::openSession, {sessionID_});
        answer = receiveAnswerOrStaleData();
        if (answer && answer->header.transactionID == transactionID)
            return *std::move(answer);
    } catch (const MTPTransportError& error) {
        if (error.isDeviceGone())
            throw;
    }
    const bool pipeWasEmpty = recover() == MTPPipeState::quiet;
    const bool sessionIsOpen =
        answer && (answer->header.code == rawOk || answer->header.code == rawAlreadyOpen);
    if (pipeWasEmpty && sessionIsOpen)
        return *std::move(answer); // a device whose responses carry any transaction ID
    try {
        sendCommand(MTPOperationCode::openSession, {sessionID_});
        return receiveResponse();
    } catch (const MTPTransportError&) {
        if (!answer)
            throw;
        return *std::move(answer);
    }
}

void MTPClient::closeTransport() {
    transport_->close();
    isSettled_ = true;
    isOpen_ = false;
}

void MTPClient::closeSession() {
    const std::scoped_lock lock(mutex_);
    if (!isOpen_)
        return;
    transport_->setWaits({patience_.opening, {}});
    try {
        // A device that has just failed is not asked for more: the next client finds the session
        // open and closes it.
        if (isSettled_) {
            sendCommand(MTPOperationCode::closeSession, {});
            (void)receiveResponse();
        } else {
            recoverSoon();
        }
    } catch (const MTPTransportError&) {
        // The device may be gone; its session ends with it.
    }
    closeTransport();
}

MTPDeviceInfo MTPClient::getDeviceInfo() {
    const std::scoped_lock lock(mutex_);
    sendCommand(MTPOperationCode::getDeviceInfo, {});
    const QString failure = QStringLiteral("Failed to parse DeviceInfo");
    const Bytes dataset = receiveDataset(failure);
    expectOk(QStringLiteral("GetDeviceInfo failed: 0x"));
    if (auto info = MTPPacketCodec::decodeDeviceInfo(dataset))
        return *std::move(info);
    throw MTPTransportError::underlying(failure);
}

std::vector<std::uint32_t> MTPClient::getStorageIDs() {
    const std::scoped_lock lock(mutex_);
    sendCommand(MTPOperationCode::getStorageIDs, {});
    const MTPPacket first = receiveFirst();
    if (isResponse(first) && first.header.code == rawOk)
        return {};
    if (!isData(first))
        failWithoutData(first, QStringLiteral("Expected data packet for GetStorageIDs (got type "
                                              "%1, code 0x%2)")
                                   .arg(mtpContainerTypeName(first.header.type),
                                        hexadecimal(first.header.code)));
    expectOk(QStringLiteral("GetStorageIDs failed: 0x"));
    return MTPPacketCodec::decodeStorageIDs(first.payload);
}

/// The payload of the data container that a command asks for. A refusal, or whatever else comes in
/// its place, is an error with this text.
Bytes MTPClient::receiveDataset(const QString& failure) {
    MTPPacket first = receiveFirst();
    if (!isData(first))
        failWithoutData(first, failure);
    return std::move(first.payload);
}

MTPStorageInfo MTPClient::getStorageInfo(std::uint32_t storageID) {
    const std::scoped_lock lock(mutex_);
    sendCommand(MTPOperationCode::getStorageInfo, {storageID});
    const QString failure = QStringLiteral("Failed to parse StorageInfo");
    const auto info = MTPPacketCodec::decodeStorageInfo(receiveDataset(failure), storageID);
    if (!info) {
        skipResponse();
        throw MTPTransportError::underlying(failure);
    }
    expectOk(QStringLiteral("GetStorageInfo response error: 0x"));
    return *info;
}

std::optional<int> MTPClient::getBatteryLevel() {
    const std::scoped_lock lock(mutex_);
    setWaits(patience_.opening); // nothing depends on it
    const auto restored = qScopeGuard([this] { setWaits(patience_.answer); });
    sendCommand(MTPOperationCode::getDevicePropValue, {mtpBatteryLevelProperty});
    const MTPPacket first = receiveFirst();
    if (!isData(first))
        return std::nullopt;
    if (first.payload.empty()) {
        skipResponse();
        return std::nullopt;
    }
    if (receiveResponse().header.code != rawOk)
        return std::nullopt;
    return static_cast<int>(first.payload.front());
}

std::vector<std::uint32_t> MTPClient::getObjectHandles(std::uint32_t storageID,
                                                       std::uint32_t parentHandle) {
    const std::scoped_lock lock(mutex_);
    sendCommand(MTPOperationCode::getObjectHandles, {storageID, 0, parentHandle});
    const MTPPacket first = receiveFirst();
    const QString failure = QStringLiteral("GetObjectHandles failed: 0x");
    if (isResponse(first) && first.header.code != rawOk)
        throw MTPTransportError::refusal(failure, first.header.code);
    if (isResponse(first))
        return {};
    expectOk(failure);
    std::vector<std::uint32_t> handles = MTPPacketCodec::decodeObjectHandles(first.payload);
    // A list that is cut, or longer than its count, is no empty folder.
    if (first.payload.size() != sizeof(std::uint32_t) * (1 + handles.size()))
        throw MTPTransportError::underlying(QStringLiteral("Failed to parse ObjectHandles"));
    return handles;
}

MTPObjectInfo MTPClient::getObjectInfo(std::uint32_t handle) {
    const std::scoped_lock lock(mutex_);
    sendCommand(MTPOperationCode::getObjectInfo, {handle});
    const QString failure = QStringLiteral("Failed to parse ObjectInfo for handle %1").arg(handle);
    auto info = MTPPacketCodec::decodeObjectInfo(receiveDataset(failure), handle);
    if (!info) {
        skipResponse();
        throw MTPTransportError::underlying(failure);
    }
    expectOk(QStringLiteral("GetObjectInfo failed: 0x"));
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
    sendCommand(MTPOperationCode::getObjectPropValue,
                {handle, static_cast<std::uint32_t>(MTPObjectProperty::objectSize)});
    const MTPPacket first = receiveFirst();
    if (!isData(first)) {
        objectSizeSupported_ = !isUnsupportedProperty(first.header.code);
        return std::nullopt;
    }
    const MTPPacket response = receiveResponse();
    if (response.header.code != rawOk || first.payload.size() < sizeof(std::uint64_t))
        return std::nullopt;
    const auto size = readLittleEndian<std::uint64_t>(first.payload, 0);
    // No object is that large: then its end is where the device says so.
    constexpr auto most = static_cast<std::uint64_t>(std::numeric_limits<qint64>::max());
    return size <= most ? std::optional(size) : std::nullopt;
}

/// Phase one of an upload, and the whole of making a folder.
std::uint32_t MTPClient::sendObjectInfo(const MTPObjectInfo& info, const QString& failure) {
    const std::uint32_t transactionID =
        sendCommand(MTPOperationCode::sendObjectInfo, {info.storageID, info.parentObject});
    sendData(MTPOperationCode::sendObjectInfo, transactionID,
             MTPPacketCodec::encodeObjectInfo(info));
    const MTPPacket response = receiveResponse();
    if (response.header.code != rawOk)
        throw MTPTransportError::refusal(failure, response.header.code);
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
    return sendObjectInfo(info, QStringLiteral("CreateFolder failed: 0x"));
}

void MTPClient::setProperty(std::uint32_t handle, MTPObjectProperty property, const QString& value,
                            const QString& failure) {
    const std::scoped_lock lock(mutex_);
    const std::uint32_t transactionID = sendCommand(MTPOperationCode::setObjectPropValue,
                                                    {handle, static_cast<std::uint32_t>(property)});
    sendData(MTPOperationCode::setObjectPropValue, transactionID,
             MTPPacketCodec::encodeString(value));
    expectOk(failure);
}

void MTPClient::renameObject(std::uint32_t handle, const QString& newName) {
    setProperty(handle, MTPObjectProperty::objectFileName, newName,
                QStringLiteral("RenameObject failed: 0x"));
}

void MTPClient::setDateModified(std::uint32_t handle, const QDateTime& date) {
    setProperty(handle, MTPObjectProperty::dateModified, MTPPacketCodec::formatMTPDate(date),
                QStringLiteral("SetDateModified failed: 0x"));
}

void MTPClient::moveObject(std::uint32_t handle, std::uint32_t storageID,
                           std::uint32_t parentHandle) {
    const std::scoped_lock lock(mutex_);
    sendCommand(MTPOperationCode::moveObject, {handle, storageID, parentHandle});
    expectOk(QStringLiteral("MoveObject failed: 0x"), workPatience);
}

void MTPClient::beginEdit(std::uint32_t handle) {
    const std::scoped_lock lock(mutex_);
    sendCommand(MTPOperationCode::androidBeginEditObject, {handle});
    expectOk(QStringLiteral("BeginEditObject failed: 0x"));
}

void MTPClient::endEdit(std::uint32_t handle) {
    const std::scoped_lock lock(mutex_);
    sendCommand(MTPOperationCode::androidEndEditObject, {handle});
    expectOk(QStringLiteral("EndEditObject failed: 0x"), workPatience);
}

void MTPClient::deleteObject(std::uint32_t handle) {
    const std::scoped_lock lock(mutex_);
    sendCommand(MTPOperationCode::deleteObject, {handle, 0});
    expectOk(QStringLiteral("DeleteObject failed: 0x"), workPatience);
}

} // namespace tessary
