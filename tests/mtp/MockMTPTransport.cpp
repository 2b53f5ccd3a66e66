#include "mtp/MockMTPTransport.h"

#include "base/threads/CancellationError.h"
#include "mtp/protocol/MTPPacketCodec.h"

#include <algorithm>

namespace tessary {

void MockMTPTransport::open() {
    const std::scoped_lock lock(mutex_);
    isOpen_ = true;
}

void MockMTPTransport::close() {
    const std::scoped_lock lock(mutex_);
    isOpen_ = false;
}

bool MockMTPTransport::isOpen() const {
    const std::scoped_lock lock(mutex_);
    return isOpen_;
}

void MockMTPTransport::send(ByteView data, const MTPByteProgress& progress) {
    {
        const std::scoped_lock lock(mutex_);
        outgoingPackets_.emplace_back(data.begin(), data.end());
    }
    if (progress)
        progress(static_cast<qint64>(data.size()), static_cast<qint64>(data.size()));
}

Bytes MockMTPTransport::receive(std::size_t maxBytes) {
    const std::scoped_lock lock(mutex_);
    if (incomingPackets_.empty())
        throw MTPTransportError(MTPTransportError::Case::timeout);
    Bytes& front = incomingPackets_.front();
    const auto end = front.begin() + static_cast<std::ptrdiff_t>(std::min(maxBytes, front.size()));
    Bytes taken(front.begin(), end);
    front.erase(front.begin(), end);
    if (front.empty())
        incomingPackets_.pop_front();
    return taken;
}

MTPPacket MockMTPTransport::receivePacket(std::chrono::milliseconds) {
    const std::scoped_lock lock(mutex_);
    return takePacket();
}

MTPPacket MockMTPTransport::takePacket() {
    if (incomingPackets_.empty())
        throw MTPTransportError(MTPTransportError::Case::timeout);
    const Bytes raw = std::move(incomingPackets_.front());
    incomingPackets_.pop_front();
    const auto header = MTPPacketCodec::decodeHeader(raw);
    if (!header)
        throw MTPTransportError(MTPTransportError::Case::invalidPacketHeader);
    return {*header, Bytes(raw.begin() + MTPContainerHeader::size, raw.end())};
}

void MockMTPTransport::sendContainer(const MTPContainerHeader& header, std::uint64_t payloadSize,
                                     const MTPDataSource& source, const MTPStreamOptions& options) {
    Bytes container = MTPPacketCodec::encodeHeader(header);
    Bytes piece(4096);
    for (std::uint64_t read = 0; read < payloadSize;) {
        throwIfStopped(options.stop);
        const auto wanted =
            static_cast<std::size_t>(std::min<std::uint64_t>(piece.size(), payloadSize - read));
        const std::size_t count = source(std::span(piece).first(wanted));
        if (count == 0)
            throw MTPTransportError::underlying(
                QStringLiteral("the data ended after %1 of %2 bytes").arg(read).arg(payloadSize));
        container.insert(container.end(), piece.begin(),
                         piece.begin() + static_cast<std::ptrdiff_t>(count));
        read += count;
        if (options.progress)
            options.progress(static_cast<qint64>(read), static_cast<qint64>(payloadSize));
    }
    send(container);
}

MTPPacket MockMTPTransport::receiveContainer(const MTPDataSink& sink,
                                             const MTPStreamOptions& options) {
    MTPPacket packet = receivePacket();
    if (packet.header.type == MTPContainerType::response)
        return packet;
    throwIfStopped(options.stop);
    if (!packet.payload.empty())
        sink(packet.payload);
    const auto size = static_cast<qint64>(packet.payload.size());
    if (options.progress)
        options.progress(size, size);
    packet.payload.clear();
    return packet;
}

void MockMTPTransport::setWaits(MTPWaits) {
    // It never waits.
}

void MockMTPTransport::setEventReceiver(std::function<void(const MTPEvent&)>) {
    // It has no events.
}

MTPPipeState MockMTPTransport::recover(std::uint32_t, MTPDataPhase,
                                       std::chrono::milliseconds) noexcept {
    return MTPPipeState::quiet;
}

void MockMTPTransport::enqueueIncoming(const MTPPacket& packet) {
    Bytes raw = MTPPacketCodec::encodeHeader(packet.header);
    raw.insert(raw.end(), packet.payload.begin(), packet.payload.end());
    enqueueIncoming(ByteView(raw));
}

void MockMTPTransport::enqueueIncoming(ByteView raw) {
    const std::scoped_lock lock(mutex_);
    incomingPackets_.emplace_back(raw.begin(), raw.end());
}

std::optional<Bytes> MockMTPTransport::popOutgoing() {
    const std::scoped_lock lock(mutex_);
    if (outgoingPackets_.empty())
        return std::nullopt;
    Bytes oldest = std::move(outgoingPackets_.front());
    outgoingPackets_.pop_front();
    return oldest;
}

} // namespace tessary
