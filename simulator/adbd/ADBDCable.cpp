#include "simulator/adbd/ADBDCable.h"

#include "adb/protocol/ADBMessage.h"
#include "base/threads/ThreadName.h"

#include <sys/socket.h>

#include <algorithm>
#include <array>
#include <optional>

namespace tessary {

namespace {

/// One whole transfer of the host; no value when the cable is pulled.
std::optional<Bytes> takeTransfer(VirtualUSBPort& port) {
    Bytes bytes;
    for (;;) {
        VirtualUSBChunk chunk;
        if (port.out().deviceTake(chunk) != usb::success)
            return std::nullopt;
        const ByteView piece = chunk.bytes();
        bytes.insert(bytes.end(), piece.begin(), piece.end());
        const bool isOver = chunk.endsTransfer;
        port.out().recycle(std::move(chunk));
        if (isOver)
            return bytes;
    }
}

bool putTransfer(VirtualUSBPort& port, ByteView bytes) {
    while (!bytes.empty()) {
        VirtualUSBChunk chunk = port.in().deviceChunk();
        const std::size_t count = std::min(bytes.size(), chunk.space().size());
        std::copy_n(bytes.begin(), count, chunk.space().begin());
        chunk.end += count;
        bytes = bytes.subspan(count);
        // As adbd does: nothing marks the end of what fills its last packet.
        chunk.endsTransfer = bytes.empty() && count % port.in().packetSize() != 0;
        if (port.in().devicePut(std::move(chunk)) != usb::success)
            return false;
    }
    return true;
}

bool sendAll(int socket, ByteView bytes) {
    while (!bytes.empty()) {
        const ssize_t sent = ::send(socket, bytes.data(), bytes.size(), MSG_NOSIGNAL);
        if (sent <= 0)
            return false;
        bytes = bytes.subspan(static_cast<std::size_t>(sent));
    }
    return true;
}

bool readAll(int socket, std::span<std::byte> to) {
    return ::recv(socket, to.data(), to.size(), MSG_WAITALL) == static_cast<ssize_t>(to.size());
}

} // namespace

ADBDCable::ADBDCable(VirtualADBD& adbd, QString serialNumber)
    : adbd_(adbd), serialNumber_(std::move(serialNumber)) {}

ADBDCable::~ADBDCable() {
    unplug();
}

void ADBDCable::plugInto(VirtualUSBBus& bus, const QString& location) {
    bus.attach(*this, location);
    const std::scoped_lock lock(mutex_);
    bus_ = &bus;
    location_ = location;
}

void ADBDCable::unplug() {
    VirtualUSBBus* bus = nullptr;
    std::jthread fromHost;
    std::jthread toHost;
    {
        const std::scoped_lock lock(mutex_);
        bus = std::exchange(bus_, nullptr);
    }
    if (bus != nullptr)
        bus->detach(location_);
    const std::scoped_lock lock(mutex_);
    fromHost = std::move(fromHost_);
    toHost = std::move(toHost_);
}

VirtualUSBDescription ADBDCable::description() const {
    VirtualUSBDescription description;
    description.vendorID = 0x18D1;
    description.productID = 0x4EE7;
    description.vendorName = QStringLiteral("Google");
    description.productName = QStringLiteral("Pixel 7");
    description.serialNumber = serialNumber_;
    description.interfaces = {{255, 66, 1, 2}};
    return description;
}

void ADBDCable::plugged(std::shared_ptr<VirtualUSBPort> port) {
    std::array<int, 2> ends{};
    if (::socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends.data()) != 0)
        return;
    const auto socket = std::make_shared<FileHandle>(ends[0]);
    adbd_.serve(FileHandle(ends[1]));
    const std::scoped_lock lock(mutex_);
    socket_ = socket;
    fromHost_ = std::jthread([this, port, socket] {
        nameCurrentThread("adbd-usb-out");
        carryFromHost(*port, socket->get());
        ::shutdown(socket->get(), SHUT_RDWR);
    });
    toHost_ = std::jthread([port, socket] {
        nameCurrentThread("adbd-usb-in");
        carryToHost(*port, socket->get());
        port->unplug(); // a gadget goes with its adbd
    });
}

void ADBDCable::unplugged() {
    const std::scoped_lock lock(mutex_);
    if (socket_)
        ::shutdown(socket_->get(), SHUT_RDWR);
    socket_.reset();
}

USBCode ADBDCable::control(const USBControlRequest&, std::span<std::byte>, std::size_t&) {
    return usb::pipeStalled;
}

/// A transfer that is no header where one is due ends the connection, as a protocol fault does.
void ADBDCable::carryFromHost(VirtualUSBPort& port, int socket) {
    for (;;) {
        const auto header = takeTransfer(port);
        const auto message = header && header->size() == ADBConstants::headerSize
                                 ? ADBMessage::decodeHeader(*header)
                                 : std::nullopt;
        if (!message || !sendAll(socket, *header))
            return;
        if (message->dataLength == 0)
            continue;
        const auto payload = takeTransfer(port);
        if (!payload || payload->size() != message->dataLength || !sendAll(socket, *payload))
            return;
    }
}

void ADBDCable::carryToHost(VirtualUSBPort& port, int socket) {
    Bytes payload;
    for (;;) {
        std::array<std::byte, ADBConstants::headerSize> header{};
        if (!readAll(socket, header))
            return;
        const auto message = ADBMessage::decodeHeader(header);
        if (!message || !putTransfer(port, header))
            return;
        payload.resize(message->dataLength);
        if (!readAll(socket, payload) || !putTransfer(port, payload))
            return;
    }
}

} // namespace tessary
