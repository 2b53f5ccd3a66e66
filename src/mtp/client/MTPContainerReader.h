#pragma once

#include "mtp/client/MTPPipes.h"

#include <memory>
#include <vector>

namespace tessary {

/// Takes containers from the IN pipe of one connection, however the device cuts them into
/// transfers. Used by one thread at a time. Failures as MTPTransport has them.
class MTPContainerReader {
public:
    explicit MTPContainerReader(MTPPipes pipes) : pipes_(pipes) {}

    /// MTPTransport::receivePacket() and ::receiveContainer().
    [[nodiscard]] MTPPacket receivePacket(std::chrono::milliseconds patience);
    [[nodiscard]] MTPPacket receiveContainer(const MTPDataSink& sink,
                                             const MTPStreamOptions& options);

    /// Lets reads for a data container and a response wait at the device, which can send both
    /// without this computer coming between. What no container came for ends with the response:
    /// some devices do not notice a command while a read waits.
    void readAhead();
    /// Ends those that still wait; what they have got is held.
    void callBackReads() noexcept;

    /// Something has arrived that was not handed out.
    [[nodiscard]] bool holdsAnything() const {
        return !incomingStream_.empty();
    }
    /// Whether anything comes. It is dropped.
    [[nodiscard]] bool hearsAnything() noexcept;
    /// The last hearsAnything() found that the device is gone.
    [[nodiscard]] bool isGone() const {
        return isGone_;
    }
    /// Drops what is held, and what a late device still answers to a broken-off transaction.
    void abandon(std::uint32_t transactionID);

private:
    [[nodiscard]] std::size_t readSize() const;
    [[nodiscard]] std::size_t readsInFlight() const {
        return reads_ ? reads_->inFlight() : 0;
    }
    [[nodiscard]] USBCode startRead();
    [[nodiscard]] USBCode readOnce(USBTimeouts timeouts);
    [[nodiscard]] Bytes takeFromReads(std::uint64_t most);
    void check(USBCode code) const;
    void fill(std::size_t count);
    [[nodiscard]] Bytes take(std::size_t count);
    [[nodiscard]] MTPContainerHeader receiveHeader(std::chrono::milliseconds patience);
    [[nodiscard]] MTPContainerHeader receiveAnyHeader(std::chrono::milliseconds patience);
    void awaitFirstByte(std::chrono::milliseconds patience);
    void skipStrayByte();
    [[nodiscard]] Bytes receiveDataset(const MTPContainerHeader& header);
    void receiveData(const MTPContainerHeader& header, const MTPDataSink& sink,
                     const MTPStreamOptions& options);
    [[nodiscard]] bool goesOn();
    void receivePayload(std::uint64_t size, const MTPDataSink& sink,
                        const MTPStreamOptions& options);
    [[nodiscard]] bool endsEarly(ByteView arrived, std::uint64_t rest);
    void receiveUntilShortPacket(const MTPDataSink& sink, const MTPStreamOptions& options);
    [[nodiscard]] bool isAbandoned(const MTPContainerHeader& header);

    const MTPPipes pipes_;
    std::unique_ptr<USBStream> reads_; ///< of readSize() each, made by the first one
    Bytes incomingStream_;             ///< read from the device, not handed out yet
    /// The last container carried data.
    bool afterData_ = false;
    std::uint32_t dataID_ = 0; ///< transaction of the last container that did
    /// The last read was filled to its end: the transfer may go on, or end by a zero-length packet.
    bool lastReadWasFull_ = false;
    bool isGone_ = false;
    /// Transaction IDs of abandon(), once for each container that may still come.
    std::vector<std::uint32_t> abandoned_;
};

} // namespace tessary
