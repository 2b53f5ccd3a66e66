#pragma once

#include "simulator/mtp/MTPResponderHooks.h"
#include "simulator/mtp/MTPTransactionState.h"
#include "simulator/usb/VirtualUSBPort.h"

#include <functional>

namespace tessary {

/// Thrown by the link: the transaction under way is over, without an answer.
struct MTPLinkBroken {
    enum class Why {
        unplugged,
        cancelled,
        halted, ///< the pipe that the host uses was halted
    };
    Why why;
};

/// Containers over the pipes of one attachment, from the device's side, packed
/// and cut as the hooks say. For the phone's thread. Every call may throw MTPLinkBroken.
class MTPResponderLink {
public:
    /// Fills a part of the buffer and returns how much; 0 when there is no more.
    using Source = std::function<std::size_t(std::span<std::byte>)>;
    using Sink = std::function<void(ByteView)>;

    MTPResponderLink(std::shared_ptr<VirtualUSBPort> port, MTPTransactionState& state,
                     MTPResponderHooks& hooks);

    /// The next command. Anything else that arrives halts the pipe that the host is using.
    [[nodiscard]] MTPCommand receiveCommand();

    /// The data phase of a command, in pieces. What `sink` throws ends it for the sink; the rest is
    /// read and dropped before it is thrown again. MTPRefusal for a container of another operation
    /// or transaction, and when the transfer ends before the container is complete.
    void receiveData(const MTPCommand& command, const Sink& sink);

    /// A dataset as data phase.
    void sendDataset(const MTPCommand& command, const Bytes& dataset);
    /// A data phase of `size` bytes from `source`; ends early, by a short packet, when that does.
    /// False when it did.
    bool sendStream(const MTPCommand& command, std::uint64_t size, const Source& source);

    void sendResponse(const MTPCommand& command, std::uint16_t code,
                      std::span<const std::uint32_t> parameters);

    void pause(std::chrono::nanoseconds duration);

    /// The operation is over; true when it was cancelled without having noticed.
    bool closeTransaction();

private:
    class Phase;
    class Writer;

    [[nodiscard]] VirtualUSBChunk take(Phase* phase);
    /// Throws for any code but usb::success.
    void check(USBCode code);
    [[noreturn]] void breakOff(MTPLinkBroken::Why why);
    [[noreturn]] void halt(bool hostIsWriting);
    bool sendData(const Bytes& head, std::uint64_t size, const Source& source);
    [[nodiscard]] Bytes rewritten(const MTPCommand& command, MTPContainerType type,
                                  Bytes container);

    std::shared_ptr<VirtualUSBPort> port_;
    MTPTransactionState& state_;
    MTPResponderHooks& hooks_;
    VirtualUSBChunk joined_; ///< the end of a data phase that waits for its response
};

} // namespace tessary
