#pragma once

#include "mtp/client/MTPTransport.h"
#include "mtp/protocol/MTPPacketCodec.h"

#include <deque>

namespace tessary {

/// A transport in memory: it hands out what was queued, container by container, and keeps what was
/// sent. Reading when nothing is queued fails with `timeout`, as on a silent device. For one
/// thread.
class MockMTPTransport final : public MTPTransportProtocol {
public:
    void open() override {}
    void close() override {}
    void setWaits(MTPWaits) override {}
    void setEventReceiver(std::function<void(const MTPEvent&)>) override {}

    void send(ByteView data, const MTPByteProgress&) override {
        outgoing_.emplace_back(data.begin(), data.end());
    }
    [[nodiscard]] MTPPacket receivePacket(std::chrono::milliseconds) override {
        if (incoming_.empty())
            throw MTPTransportError(MTPTransportError::Case::timeout);
        const Bytes raw = std::move(incoming_.front());
        incoming_.pop_front();
        return {MTPPacketCodec::decodeHeader(raw).value(),
                Bytes(raw.begin() + MTPContainerHeader::size, raw.end())};
    }
    /// Keeps header and payload as one buffer.
    void sendContainer(const MTPContainerHeader& header, std::uint64_t payloadSize,
                       const MTPDataSource& source, const MTPStreamOptions&) override {
        Bytes container = MTPPacketCodec::encodeHeader(header);
        container.resize(container.size() + static_cast<std::size_t>(payloadSize));
        for (std::span rest = std::span(container).subspan(MTPContainerHeader::size);
             !rest.empty();)
            rest = rest.subspan(source(rest));
        outgoing_.push_back(std::move(container));
    }
    [[nodiscard]] MTPPacket receiveContainer(const MTPDataSink& sink,
                                             const MTPStreamOptions&) override {
        MTPPacket packet = receivePacket({});
        if (packet.header.type != MTPContainerType::response)
            sink(std::exchange(packet.payload, {}));
        return packet;
    }
    MTPPipeState recover(std::uint32_t, MTPDataPhase, std::chrono::milliseconds) noexcept override {
        return MTPPipeState::quiet;
    }

    void enqueueIncoming(Bytes raw) {
        incoming_.push_back(std::move(raw));
    }
    /// What was sent and not taken yet.
    [[nodiscard]] std::deque<Bytes> takeOutgoing() {
        return std::exchange(outgoing_, {});
    }

private:
    std::deque<Bytes> outgoing_;
    std::deque<Bytes> incoming_;
};

} // namespace tessary
