#pragma once

#include "mtp/client/MTPEventReader.h"
#include "mtp/client/MTPInterfaceConnection.h"
#include "mtp/client/MTPTransport.h"
#include "platform/usb/USBBus.h"

#include <memory>
#include <mutex>

namespace tessary {

/// MTP containers over the bulk pipes of one USB device.
///
/// open() fails with `notConnected` when no such device or no usable interface is there, with
/// `exclusiveAccessDenied` when another program holds it, and with `underlying` otherwise.
class MTPUSBTransport final : public MTPTransportProtocol {
public:
    static constexpr std::size_t writeChunkSize = 0x40000;

    /// `bus` must outlive the transport.
    MTPUSBTransport(USBBus& bus, MTPDeviceAddress address);
    /// Any device with these IDs.
    MTPUSBTransport(USBBus& bus, std::uint32_t vendorID, std::uint32_t productID);
    ~MTPUSBTransport() override;

    void open() override;
    void close() override;
    using MTPTransportProtocol::send;
    void send(ByteView data, const MTPByteProgress& progress) override;
    [[nodiscard]] Bytes receive(std::size_t maxBytes) override;
    using MTPTransportProtocol::receivePacket;
    [[nodiscard]] MTPPacket receivePacket(std::chrono::milliseconds patience) override;
    void sendContainer(const MTPContainerHeader& header, std::uint64_t payloadSize,
                       const MTPDataSource& source, const MTPStreamOptions& options) override;
    [[nodiscard]] MTPPacket receiveContainer(const MTPDataSink& sink,
                                             const MTPStreamOptions& options) override;
    void setWaits(MTPWaits waits) override;
    void setEventReceiver(std::function<void(const MTPEvent&)> receiver) override;
    using MTPTransportProtocol::recover;
    MTPPipeState recover(std::uint32_t transactionID, MTPDataPhase phase,
                         std::chrono::milliseconds limit) noexcept override;

private:
    void requireOpen() const;
    [[nodiscard]] USBTimeouts timeouts() const;
    void throwIfAborted(USBCode code) const;
    [[nodiscard]] bool hasSentData() const;
    [[nodiscard]] bool isSending() const;
    [[nodiscard]] bool hearsAnswer(std::chrono::milliseconds limit) noexcept;
    void write(ByteView chunk);
    void endFullPacket();
    [[nodiscard]] USBCode readOnce(USBTimeouts timeouts);
    [[noreturn]] void failRead(USBCode code);
    void fill(std::size_t count);
    [[nodiscard]] Bytes take(std::size_t count);
    [[nodiscard]] MTPContainerHeader receiveHeader(std::chrono::milliseconds patience);
    [[nodiscard]] MTPContainerHeader receiveAnyHeader(std::chrono::milliseconds patience);
    void awaitFirstByte(std::chrono::milliseconds patience);
    void skipStrayByte();
    [[nodiscard]] Bytes receiveDataset(const MTPContainerHeader& header);
    void receiveData(const MTPContainerHeader& header, const MTPDataSink& sink,
                     const MTPStreamOptions& options);
    [[nodiscard]] bool goesOn() const;
    void receivePayload(std::uint64_t size, const MTPDataSink& sink,
                        const MTPStreamOptions& options);
    void receiveUntilShortPacket(std::uint64_t before, const MTPDataSink& sink,
                                 const MTPStreamOptions& options);
    void endDataPhase() noexcept;
    void abandon(std::uint32_t transactionID);
    [[nodiscard]] bool isAbandoned(const MTPContainerHeader& header);
    void forget();
    void resetFraming();

    USBBus& bus_;
    const MTPDeviceAddress address_;

    std::mutex mutex_; ///< held during each public call; guards everything below
    std::optional<MTPInterfaceConnection> connection_; ///< while open
    std::function<void(const MTPEvent&)> eventReceiver_;
    std::unique_ptr<MTPEventReader> events_; ///< while open; uses connection_
    MTPWaits waits_;
    Bytes incomingStream_; ///< read from the device, not handed out yet
    /// The last container carried data.
    bool afterData_ = false;
    /// The last read was filled to its end: the transfer may go on, or end by a zero-length packet.
    bool lastReadWasFull_ = false;
    /// Transaction IDs that recover() was called for, once for each container that may still come.
    std::vector<std::uint32_t> abandoned_;
    /// The container that is being sent, and how many bytes of it the device has.
    MTPContainerHeader outgoing_;
    std::uint64_t outgoingWritten_ = 0;
    bool isGone_ = false;         ///< there is nobody to recover
    bool outgoingFailed_ = false; ///< the device has given it up
};

} // namespace tessary
