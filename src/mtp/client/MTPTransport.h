#pragma once

#include "mtp/protocol/MTPTransportError.h"
#include "mtp/protocol/MTPTypes.h"

#include <chrono>
#include <cstdint>
#include <functional>
#include <optional>
#include <stop_token>

namespace tessary {

/// Bytes moved so far and in all.
using MTPByteProgress = std::function<void(qint64 done, qint64 total)>;

/// Takes the next bytes of a payload as they arrive; they are valid during the call only. An
/// exception breaks the transfer off and reaches the caller.
using MTPDataSink = std::function<void(ByteView)>;

/// Fills the front of a buffer with the next bytes of a payload and tells how many; 0 at the end.
/// An exception breaks the transfer off and reaches the caller.
using MTPDataSource = std::function<std::size_t(std::span<std::byte>)>;

/// What goes with one streamed payload.
struct MTPStreamOptions {
    /// The payload's true size in bytes, for containers whose 32-bit length cannot tell it.
    std::optional<std::uint64_t> expectedSize;
    MTPByteProgress progress;
    /// Told, before the bytes of an upload, that the device has accepted the object, with the
    /// handle that it announced, or 0.
    std::function<void(std::uint32_t handle)> accepted;
    /// Ends the transfer between two pieces with CancellationError.
    std::stop_token stop;
};

/// Which way the payload of a broken-off transaction was going.
enum class MTPDataPhase { toHost, toDevice };

/// What recover() found, and how it left the pipes.
enum class MTPPipeState {
    quiet,   ///< nothing was left in them
    drained, ///< what was left in them has been dropped
    busy,    ///< the device is still at work: nothing else can be asked of it yet
};

/// What bounds the waits of a transport.
struct MTPWaits {
    std::chrono::milliseconds patience{5000}; ///< for a silent device, in each pipe call
    std::stop_token stop;                     ///< ends any wait early, with CancellationError
};

/// A byte pipe to one MTP device. Every call blocks, may come from any thread and is carried out
/// alone. Failures are MTPTransportError; `notConnected` while closed.
class MTPTransport {
public:
    /// How long a silent device is waited for in each pipe call unless setWaits() says otherwise.
    static constexpr std::chrono::milliseconds pipeTimeout{5000};
    /// How long a device may be busy with a cancellation, and how long the rest of a broken-off
    /// data phase is read at the most.
    static constexpr std::chrono::seconds recoveryLimit{10};

    virtual ~MTPTransport() = default;

    virtual void open() = 0;
    virtual void close() = 0;

    /// What the device tells on its own from the next open() on, on a thread of the transport.
    /// Without a receiver nobody listens.
    virtual void setEventReceiver(std::function<void(const MTPEvent&)> receiver) = 0;

    /// Bounds the calls from now on; those of recover() are bounded as it says.
    virtual void setWaits(MTPWaits waits) = 0;

    /// Sends bytes as they are; `progress` follows after each chunk.
    virtual void send(ByteView data, const MTPByteProgress& progress) = 0;
    void send(ByteView data) {
        send(data, {});
    }

    /// Says, after a command was sent, that a short data container and a response will be asked
    /// for: the device need not wait in between.
    virtual void readAhead() = 0;

    /// One whole container, whose payload may have 64 MiB, else `bufferOverflow`. A device that
    /// stays silent before the first byte is waited for as long as `patience`, and at least as
    /// setWaits() says.
    [[nodiscard]] virtual MTPPacket receivePacket(std::chrono::milliseconds patience) = 0;
    [[nodiscard]] MTPPacket receivePacket() {
        return receivePacket(std::chrono::milliseconds(0));
    }

    /// Sends a data container whose payload of `payloadSize` bytes is read from `source` piece by
    /// piece. A length of 0xFFFFFFFF in the header announces a payload of any size. Every payload
    /// ends with a short or a zero-length packet. A source that ends early is `underlying`.
    /// After any failure the device waits for the rest: call recover().
    virtual void sendContainer(const MTPContainerHeader& header, std::uint64_t payloadSize,
                               const MTPDataSource& source, const MTPStreamOptions& options) = 0;

    /// Receives one container. The payload of a response is in the result, that of any other goes
    /// to `sink`. A data container of length 0xFFFFFFFF carries `options.expectedSize` bytes or,
    /// when that is not known, ends with the first short packet.
    /// After any failure the device may still be sending: call recover().
    [[nodiscard]] virtual MTPPacket receiveContainer(const MTPDataSink& sink,
                                                     const MTPStreamOptions& options) = 0;

    /// Brings the pipes to rest after a transaction that was broken off, so that the next one may
    /// start: ends data on its way to the device by a short packet and reads the answer, asks the
    /// device to cancel else, and drains what it still sends; `waits` bounds each step. What it
    /// sends of that transaction later is dropped when it comes. Never throws; when stopped, it
    /// leaves the device busy.
    virtual MTPPipeState recover(std::uint32_t transactionID, MTPDataPhase phase,
                                 const MTPWaits& waits) noexcept = 0;
};

} // namespace tessary
