#pragma once

#include "mtp/client/MTPContainerReader.h"
#include "mtp/client/MTPContainerWriter.h"
#include "mtp/client/MTPEventReader.h"
#include "mtp/client/MTPTransfers.h"
#include "platform/usb/USBBus.h"

#include <memory>

namespace tessary {

/// MTP containers over the bulk pipes of one USB device. Every call blocks. Used by one thread at a
/// time. Failures are MTPFailure; MTPError::notThere while closed.
class MTPTransport {
public:
    /// `bus` must outlive the transport.
    MTPTransport(USBBus& bus, MTPDeviceAddress address) : bus_(bus), address_(std::move(address)) {}
    MTPTransport(const MTPTransport&) = delete;
    MTPTransport& operator=(const MTPTransport&) = delete;

    /// Fails as openMTPInterface() does.
    void open();
    void close();

    /// What the device tells on its own from the next open() on, on a thread of the transport.
    /// Without a receiver nobody listens.
    void setEventReceiver(std::function<void(const MTPEvent&)> receiver);

    /// Bounds the calls from now on; those of recover() are bounded as it says.
    void setWaits(MTPWaits waits);

    /// Sends a whole container.
    void send(ByteView data);

    /// Says, after a command was sent, that a short data container and a response will be asked
    /// for: the device need not wait in between.
    void readAhead();

    /// One whole container, whose payload may have 64 MiB, else MTPError::tooLong. A device that
    /// stays silent before the first byte is waited for as long as `patience`, and at least as
    /// setWaits() says.
    [[nodiscard]] MTPPacket receivePacket(std::chrono::milliseconds patience = {});

    /// Sends a data container whose payload of `payloadSize` bytes is read from `source` piece by
    /// piece. A length of 0xFFFFFFFF in the header announces a payload of any size. Every payload
    /// ends with a short or a zero-length packet. A source that ends early is MTPError::malformed.
    /// After any failure the device waits for the rest: call recover().
    void sendContainer(const MTPContainerHeader& header, std::uint64_t payloadSize,
                       const MTPDataSource& source, const MTPStreamOptions& options);

    /// Receives one container. The payload of a response is in the result, that of any other goes
    /// to `sink`. A data container of length 0xFFFFFFFF carries `options.expectedSize` bytes or,
    /// when that is not known, ends with the first short packet.
    /// After any failure the device may still be sending: call recover().
    [[nodiscard]] MTPPacket receiveContainer(const MTPDataSink& sink,
                                             const MTPStreamOptions& options);

    /// Brings the pipes to rest after a transaction that was broken off, so that the next one may
    /// start: ends data on its way to the device by a short packet and reads the answer, asks the
    /// device to cancel else, and drains what it still sends; `bounds` are those of each step. What
    /// it sends of that transaction later is dropped when it comes. Never throws; when stopped, it
    /// leaves the device busy.
    MTPPipeState recover(std::uint32_t transactionID, MTPDataPhase phase,
                         const MTPWaits& bounds) noexcept;

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
    std::function<void(const MTPEvent&)> eventReceiver_;
    MTPWaits waits_; ///< used by link_
    std::unique_ptr<Link> link_;
};

} // namespace tessary
