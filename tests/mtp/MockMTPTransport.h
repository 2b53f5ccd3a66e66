#pragma once

#include "mtp/client/MTPTransport.h"

#include <deque>
#include <mutex>

namespace tessary {

/// A transport in memory, for tests and previews: it hands out what was queued and keeps what was
/// sent. Reading when nothing is queued fails with `timeout`, as on a silent device. Thread-safe.
class MockMTPTransport final : public MTPTransportProtocol {
public:
    void open() override;
    void close() override;
    using MTPTransportProtocol::send;
    /// Keeps the whole buffer and reports it sent in one step.
    void send(ByteView data, const MTPByteProgress& progress) override;
    [[nodiscard]] Bytes receive(std::size_t maxBytes) override;
    using MTPTransportProtocol::receivePacket;
    [[nodiscard]] MTPPacket receivePacket(std::chrono::milliseconds patience) override;
    /// Keeps header and payload as one buffer.
    void sendContainer(const MTPContainerHeader& header, std::uint64_t payloadSize,
                       const MTPDataSource& source, const MTPStreamOptions& options) override;
    [[nodiscard]] MTPPacket receiveContainer(const MTPDataSink& sink,
                                             const MTPStreamOptions& options) override;
    void setWaits(MTPWaits waits) override;
    void setEventReceiver(std::function<void(const MTPEvent&)> receiver) override;
    using MTPTransportProtocol::recover;
    MTPPipeState recover(std::uint32_t transactionID, MTPDataPhase phase,
                         std::chrono::milliseconds limit) noexcept override;

    void enqueueIncoming(const MTPPacket& packet);
    void enqueueIncoming(ByteView raw);
    /// The oldest buffer that was sent and not taken yet.
    [[nodiscard]] std::optional<Bytes> popOutgoing();

    [[nodiscard]] bool isOpen() const;

private:
    [[nodiscard]] MTPPacket takePacket();

    mutable std::mutex mutex_; ///< guards everything below
    bool isOpen_ = false;
    std::deque<Bytes> outgoingPackets_;
    std::deque<Bytes> incomingPackets_;
};

} // namespace tessary
