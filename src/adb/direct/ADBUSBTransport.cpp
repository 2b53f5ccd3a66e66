#include "adb/direct/ADBUSBTransport.h"

#include "adb/protocol/ADBError.h"

#include <algorithm>

namespace tessary {

namespace {

using namespace std::chrono_literals;

/// How long a read waits before it looks whether the transport was closed.
constexpr auto readStep = 500ms;
/// The size of full-speed bulk packets; stands in for a descriptor that says less than any device
/// may use.
constexpr std::size_t fallbackPacketSize = 64;
constexpr std::size_t leastPacketSize = 8;

[[noreturn]] void throwOpenError(USBBus& bus, const USBDeviceEntry& entry, USBCode code) {
    if (code == usb::exclusiveAccess)
        throw Error(ADBError::held, {bus.programsHolding(entry.id).join(QStringLiteral(", "))});
    if (code == usb::notPermitted)
        throw Error(ADBError::notPermitted, {entry.serialNumber});
    throw Error(ADBError::notFound, {entry.serialNumber, code});
}

} // namespace

std::optional<USBDeviceEntry> ADBUSBTransport::find(USBBus& bus, const QString& location,
                                                    const QString& serialNumber) {
    std::optional<USBDeviceEntry> found;
    for (const USBDeviceEntry& entry : bus.devices()) {
        const bool mayBe = serialNumber.isEmpty() || entry.serialNumber.isEmpty() ||
                           entry.serialNumber == serialNumber; // another may be in the port by now
        if (!location.isEmpty() && entry.location == location && mayBe)
            return entry;
        if (serialNumber.isEmpty() || entry.serialNumber != serialNumber)
            continue;
        if (found)
            return std::nullopt;
        found = entry;
    }
    return found;
}

ADBUSBTransport::ADBUSBTransport(USBBus& bus, const QString& location,
                                 const QString& serialNumber) {
    const auto entry = find(bus, location, serialNumber);
    if (entry)
        device_ = bus.device(entry->id);
    if (!device_)
        throw Error(ADBError::notFound, {serialNumber});
    if (const USBCode code = device_->open(); code != usb::success)
        throwOpenError(bus, *entry, code);
    auto interfaces =
        device_->interfaces(ADBUSBInterfaceKind::interfaceClass, ADBUSBInterfaceKind::subclass);
    if (interfaces.empty())
        throw Error(ADBError::notFound, {serialNumber});
    interface_ = std::move(interfaces.front());
    if (const USBCode code = interface_->open(); code != usb::success)
        throwOpenError(bus, *entry, code);
    for (int number = 1; number <= interface_->endpointCount(); ++number) {
        const auto pipe = static_cast<std::uint8_t>(number);
        const auto properties = interface_->pipeProperties(pipe);
        if (!properties || properties->transferType != USBTransferType::bulk)
            continue;
        (properties->direction == USBDirection::in ? inPipe_ : outPipe_) = pipe;
        packetSize_ = properties->maxPacketSize < leastPacketSize ? fallbackPacketSize
                                                                  : properties->maxPacketSize;
    }
    if (inPipe_ == 0 || outPipe_ == 0)
        throw Error(ADBError::notFound, {serialNumber});
}

ADBUSBTransport::~ADBUSBTransport() = default;

/// One transfer into `to`, whose size is a multiple of the packet size.
std::size_t ADBUSBTransport::readTransfer(std::span<std::byte> to) {
    std::size_t filled = 0;
    for (;;) {
        if (isClosed_.stop_requested())
            throw Error(ADBError::brokenOff);
        std::size_t got = 0;
        const USBCode code =
            interface_->readPipeTO(inPipe_, to.subspan(filled), got, {readStep, &isClosed_});
        filled += got;
        if (code == usb::timeout && filled % packetSize_ == 0 && filled < to.size())
            continue;
        if (code != usb::success)
            throw Error(ADBError::brokenOff, {QStringLiteral("USB read: %1").arg(code)});
        return filled;
    }
}

ADBMessage ADBUSBTransport::read() {
    std::optional<ADBMessage> message;
    while (!message) {
        buffer_.resize(packetSize_);
        const std::size_t got = readTransfer(buffer_);
        if (got == 0)
            continue; // the empty packet behind a payload that filled its last one
        message = ADBMessage::decodeHeader(ByteView(buffer_).first(got));
        if (!message || got != ADBConstants::headerSize ||
            message->dataLength > ADBConstants::maxPayloadV2)
            throw Error(ADBError::nonsense, {QStringLiteral("a message's header")});
    }
    const std::size_t length = message->dataLength;
    while (message->payload.size() < length) {
        const std::size_t left = length - message->payload.size();
        // No packet may find less room than it needs.
        buffer_.resize((left + packetSize_ - 1) / packetSize_ * packetSize_);
        const std::size_t got = readTransfer(buffer_);
        if (got == 0 || got > left)
            throw Error(ADBError::nonsense, {QStringLiteral("a message's payload")});
        message->payload.insert(message->payload.end(), buffer_.begin(),
                                buffer_.begin() + static_cast<std::ptrdiff_t>(got));
    }
    return *std::move(message);
}

void ADBUSBTransport::writeTransfer(ByteView bytes) {
    std::size_t sent = 0;
    if (isClosed_.stop_requested())
        throw Error(ADBError::brokenOff);
    const USBCode code =
        interface_->writePipeTO(outPipe_, bytes, sent, {writePatience, &isClosed_});
    if (code != usb::success || sent != bytes.size())
        throw Error(ADBError::brokenOff, {QStringLiteral("USB write: %1").arg(code)});
}

void ADBUSBTransport::write(const ADBMessage& message) {
    const Bytes bytes = message.encode();
    const ByteView payload = ByteView(bytes).subspan(ADBConstants::headerSize);
    writeTransfer(ByteView(bytes).first(ADBConstants::headerSize));
    if (payload.empty())
        return;
    writeTransfer(payload);
    if (payload.size() % packetSize_ == 0)
        writeTransfer({});
}

void ADBUSBTransport::close() {
    closing_.request_stop();
}

} // namespace tessary
