#pragma once

#include "mtp/client/MTPContainerReader.h"
#include "mtp/client/MTPContainerWriter.h"
#include "mtp/client/MTPEventReader.h"
#include "mtp/client/MTPTransport.h"
#include "platform/usb/USBBus.h"

#include <memory>
#include <mutex>

namespace tessary {

/// MTP containers over the bulk pipes of one USB device.
///
/// open() fails with `notConnected` when no such device or no usable interface is there, with
/// `exclusiveAccessDenied` when another program holds it, and with `underlying` otherwise.
class MTPUSBTransport final : public MTPTransport {
public:
    /// `bus` must outlive the transport.
    MTPUSBTransport(USBBus& bus, MTPDeviceAddress address);
    ~MTPUSBTransport() override;

    void open() override;
    void close() override;
    using MTPTransport::send;
    void send(ByteView data, const MTPByteProgress& progress) override;
    void readAhead() override;
    using MTPTransport::receivePacket;
    [[nodiscard]] MTPPacket receivePacket(std::chrono::milliseconds patience) override;
    void sendContainer(const MTPContainerHeader& header, std::uint64_t payloadSize,
                       const MTPDataSource& source, const MTPStreamOptions& options) override;
    [[nodiscard]] MTPPacket receiveContainer(const MTPDataSink& sink,
                                             const MTPStreamOptions& options) override;
    void setWaits(MTPWaits waits) override;
    void setEventReceiver(std::function<void(const MTPEvent&)> receiver) override;
    MTPPipeState recover(std::uint32_t transactionID, MTPDataPhase phase,
                         const MTPWaits& bounds) noexcept override;

private:
    /// What there is while the transport is open.
    struct Link {
        Link(MTPInterfaceConnection opened, const MTPWaits& waits)
            : connection(std::move(opened)),
              reader({connection, waits}),
              writer({connection, waits}) {}

        const MTPInterfaceConnection connection;
        MTPContainerReader reader;
        MTPContainerWriter writer;
        std::unique_ptr<MTPEventReader> events;
    };

    [[nodiscard]] Link& link();

    USBBus& bus_;
    const MTPDeviceAddress address_;

    std::mutex mutex_; ///< held during each public call; guards everything below
    std::function<void(const MTPEvent&)> eventReceiver_;
    MTPWaits waits_; ///< used by link_
    std::unique_ptr<Link> link_;
};

} // namespace tessary
