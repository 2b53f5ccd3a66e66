#pragma once

#include "mtp/client/MTPPipes.h"

namespace tessary {

/// Puts containers into the OUT pipe of one connection, and knows how much of the last one the
/// device has. Used by one thread at a time. Failures as MTPTransport has them.
class MTPContainerWriter {
public:
    /// What one write of a container takes at the most; several of them are in flight at once.
    static constexpr std::size_t chunkSize = 0x40000;

    explicit MTPContainerWriter(MTPPipes pipes) : pipes_(pipes) {}

    /// MTPTransport::send().
    void send(ByteView data);
    /// MTPTransport::sendContainer().
    void sendContainer(const MTPContainerHeader& header, std::uint64_t payloadSize,
                       const MTPDataSource& source, const MTPStreamOptions& options);

    /// The device has a part of a data container, or all of it, and has not given it up.
    [[nodiscard]] bool hasSentData() const;
    /// It has given up what it was sent.
    [[nodiscard]] bool hasFailed() const {
        return hasFailed_;
    }
    /// Ends a data phase that is not complete, by a short packet or by an empty one.
    void endDataPhase() noexcept;
    /// The last container is of no interest any more.
    void forget();

private:
    void begin(const MTPContainerHeader& header);
    void write(ByteView chunk);
    [[noreturn]] void fail(USBCode code);
    void endFullPacket();
    [[nodiscard]] bool isSending() const;

    const MTPPipes pipes_;
    MTPContainerHeader outgoing_;
    std::uint64_t written_ = 0; ///< bytes of it that the device has
    bool hasFailed_ = false;
};

} // namespace tessary
