#include "mtp/client/MTPContainerReader.h"

#include "base/threads/CancellationError.h"
#include "mtp/protocol/MTPCodes.h"
#include "mtp/protocol/MTPPacketCodec.h"

#include <algorithm>
#include <deque>

namespace tessary {

namespace {

constexpr std::size_t minimumReadSize = 4096;
constexpr std::size_t streamRequestSize = 0x40000;
constexpr std::size_t streamDepth = 4;
/// Data and response; and for how many broken-off transactions they are looked out for.
constexpr std::size_t containersPerTransaction = 2;
constexpr std::size_t abandonedLimit = 8 * containersPerTransaction;
/// A response container has at most five parameters.
constexpr std::uint32_t longestResponse = MTPContainerHeader::size + 5 * 4;

std::size_t roundUp(std::size_t size, std::size_t packetSize) {
    return (size + packetSize - 1) / packetSize * packetSize;
}

bool isResponse(const MTPContainerHeader& header) {
    return header.type == MTPContainerType::response && header.length >= MTPContainerHeader::size &&
           header.length <= longestResponse;
}

/// The payload that a header announces.
std::uint64_t announcedSize(const MTPContainerHeader& header) {
    return header.length <= MTPContainerHeader::size ? 0 : header.length - MTPContainerHeader::size;
}

/// The payload of a data container: its length field, unless that cannot hold the true size.
/// No value: whatever comes until a short packet.
std::optional<std::uint64_t> payloadSize(const MTPContainerHeader& header,
                                         std::optional<std::uint64_t> expected) {
    if (header.length == MTPContainerHeader::unknownLength)
        return expected;
    // Some devices cut the length of a large object to its low 32 bits.
    const bool cut =
        expected && *expected > MTPContainerHeader::unknownLength &&
        static_cast<std::uint32_t>(*expected + MTPContainerHeader::size) == header.length;
    if (cut)
        return expected;
    return announcedSize(header);
}

} // namespace

std::size_t MTPContainerReader::readSize() const {
    return roundUp(minimumReadSize, pipes_.connection.maxPacketSize);
}

USBCode MTPContainerReader::startRead() {
    if (!reads_)
        reads_ = pipes_.connection.interface->stream(pipes_.connection.inPipe, readSize(),
                                                     containersPerTransaction);
    return reads_ ? reads_->submit(readSize()) : usb::noMemory;
}

void MTPContainerReader::readAhead() {
    while (readsInFlight() < containersPerTransaction)
        if (startRead() != usb::success)
            return; // the next read tells
}

void MTPContainerReader::callBackReads() noexcept {
    constexpr std::chrono::milliseconds atOnce{1};
    while (readsInFlight() > 0 && readOnce({atOnce}) == usb::success)
        continue;
}

/// One read of the pipe into the incoming stream; an empty read leaves it as it is.
USBCode MTPContainerReader::readOnce(USBTimeouts timeouts) {
    USBCode code = readsInFlight() > 0 ? usb::success : startRead();
    if (code != usb::success)
        return code;
    USBTransferred read;
    code = reads_->next(read, timeouts);
    const ByteView arrived = read.bytes;
    incomingStream_.insert(incomingStream_.end(), arrived.begin(), arrived.end());
    lastReadWasFull_ = arrived.size() == readSize();
    return code;
}

/// For a payload that is read by other means: the bytes of the reads that wait already come first.
Bytes MTPContainerReader::takeFromReads(std::uint64_t most) {
    check(readOnce(pipes_.timeouts()));
    return take(static_cast<std::size_t>(std::min<std::uint64_t>(most, incomingStream_.size())));
}

void MTPContainerReader::check(USBCode code) const {
    if (code != usb::success)
        pipes_.fail(pipes_.connection.inPipe, code);
}

/// Reads until the incoming stream holds `count` bytes.
void MTPContainerReader::fill(std::size_t count) {
    while (incomingStream_.size() < count) {
        const std::size_t held = incomingStream_.size();
        check(readOnce(pipes_.timeouts()));
        if (incomingStream_.size() == held)
            throw MTPFailure(MTPError::brokenOff);
    }
}

Bytes MTPContainerReader::take(std::size_t count) {
    const auto end = incomingStream_.begin() +
                     static_cast<std::ptrdiff_t>(std::min(count, incomingStream_.size()));
    Bytes taken(incomingStream_.begin(), end);
    incomingStream_.erase(incomingStream_.begin(), end);
    return taken;
}

MTPPacket MTPContainerReader::receivePacket(std::chrono::milliseconds patience) {
    MTPPacket packet;
    packet.header = receiveHeader(patience);
    packet.payload = receiveDataset(packet.header);
    return packet;
}

MTPPacket MTPContainerReader::receiveContainer(const MTPDataSink& sink,
                                               const MTPStreamOptions& options) {
    MTPPacket packet;
    packet.header = receiveHeader({});
    if (packet.header.type == MTPContainerType::response)
        packet.payload = receiveDataset(packet.header);
    else
        receiveData(packet.header, sink, options);
    return packet;
}

/// A payload that is kept whole. No list or record of a device is that long.
Bytes MTPContainerReader::receiveDataset(const MTPContainerHeader& header) {
    constexpr std::uint64_t longestDataset = std::uint64_t{64} << 20;
    if (announcedSize(header) > longestDataset)
        throw MTPFailure(MTPError::tooLong);
    Bytes payload;
    receivePayload(
        announcedSize(header),
        [&payload](ByteView more) { payload.insert(payload.end(), more.begin(), more.end()); }, {});
    return payload;
}

/// The payload of a container, however its size is told.
void MTPContainerReader::receiveData(const MTPContainerHeader& header, const MTPDataSink& sink,
                                     const MTPStreamOptions& options) {
    const auto size = payloadSize(header, options.expectedSize);
    if (size)
        receivePayload(*size, sink, options);
    if (!size || goesOn())
        receiveUntilShortPacket(sink, options);
}

/// Whether there is more in the transfer than its header announced: some devices cut the length of
/// a large object to its low 32 bits. What follows data is a response else, or one stray byte.
bool MTPContainerReader::goesOn() {
    constexpr std::size_t enoughToTell = 1 + MTPContainerHeader::size;
    if (!lastReadWasFull_ || incomingStream_.size() < 2)
        return false;
    // A response in the same transfer may lie on both sides of the read's end.
    if (incomingStream_.size() < enoughToTell)
        check(readOnce(pipes_.timeouts()));
    const auto header = MTPPacketCodec::decodeHeader(incomingStream_);
    const auto shifted = MTPPacketCodec::decodeHeader(ByteView(incomingStream_).subspan(1));
    return !(header && isResponse(*header)) && !(shifted && isResponse(*shifted));
}

/// The header of the next container that belongs to a transaction under way.
MTPContainerHeader MTPContainerReader::receiveHeader(std::chrono::milliseconds patience) {
    const auto deadline = std::chrono::steady_clock::now() + MTPWaits::recoveryLimit;
    const MTPDataSink drop = [deadline](ByteView) {
        if (std::chrono::steady_clock::now() > deadline)
            throw MTPFailure(MTPError::brokenOff);
    };
    for (;;) {
        const MTPContainerHeader header = receiveAnyHeader(patience);
        if (!isAbandoned(header))
            return header;
        receiveData(header, drop, {});
    }
}

MTPContainerHeader MTPContainerReader::receiveAnyHeader(std::chrono::milliseconds patience) {
    awaitFirstByte(patience);
    fill(MTPContainerHeader::size);
    if (afterData_)
        skipStrayByte();
    const MTPContainerHeader header = *MTPPacketCodec::decodeHeader(incomingStream_);
    (void)take(MTPContainerHeader::size);
    afterData_ = header.type == MTPContainerType::data;
    if (afterData_)
        dataID_ = header.transactionID;
    if (header.type == MTPContainerType::response)
        callBackReads();
    return header;
}

/// Waits until there is anything of a container to read, as long as the caller has patience.
void MTPContainerReader::awaitFirstByte(std::chrono::milliseconds patience) {
    patience = std::max(patience, pipes_.waits.patience);
    auto waits = std::max<std::int64_t>(patience / MTPWaits::pipeTimeout, 1);
    USBTimeouts slice = pipes_.timeouts();
    slice.limit = std::min(patience, MTPWaits::pipeTimeout);
    // Such a packet ends a transfer of whole packets; some devices send one after any data.
    bool zeroPacketMayFollow = afterData_ || lastReadWasFull_;
    // A single byte behind data is a stray one, see below.
    const std::size_t enough = afterData_ ? 2 : 1;
    while (incomingStream_.size() < enough) {
        const std::size_t held = incomingStream_.size();
        const USBCode code = readOnce(slice);
        if (code == usb::timeout && --waits > 0)
            continue;
        check(code);
        if (incomingStream_.size() == held && !std::exchange(zeroPacketMayFollow, false))
            throw MTPFailure(MTPError::brokenOff);
    }
}

/// Some devices send one byte more than their data container announced. It stands in front of the
/// response, and is recognised by what comes after it.
void MTPContainerReader::skipStrayByte() {
    const auto header = MTPPacketCodec::decodeHeader(incomingStream_);
    if (header && isResponse(*header))
        return;
    const auto shifted = MTPPacketCodec::decodeHeader(ByteView(incomingStream_).subspan(1));
    if (shifted && isResponse(*shifted))
        (void)take(1);
}

void MTPContainerReader::receivePayload(std::uint64_t size, const MTPDataSink& sink,
                                        const MTPStreamOptions& options) {
    std::uint64_t received = 0;
    const auto deliver = [&](ByteView bytes) {
        sink(bytes);
        received += bytes.size();
    };
    if (!incomingStream_.empty() && size > 0)
        deliver(
            take(static_cast<std::size_t>(std::min<std::uint64_t>(size, incomingStream_.size()))));
    while (received < size && readsInFlight() > 0) {
        const bool mayHaveEnded = !lastReadWasFull_;
        const Bytes bytes = takeFromReads(size - received);
        if (mayHaveEnded && !bytes.empty() && endsEarly(bytes, size - received))
            return;
        deliver(bytes);
    }
    if (received == size)
        return;

    // Reads are only asked for bytes that are still to come, so that none of them waits for, or
    // takes, what follows the payload; the last one is rounded up to whole packets.
    const auto readLength = [&](std::uint64_t rest) {
        return roundUp(static_cast<std::size_t>(std::min<std::uint64_t>(streamRequestSize, rest)),
                       pipes_.connection.maxPacketSize);
    };
    const std::size_t requestSize = readLength(size - received);
    const auto depth = static_cast<std::size_t>(
        std::min<std::uint64_t>(streamDepth, (size - received - 1) / requestSize + 1));
    const auto stream =
        pipes_.connection.interface->stream(pipes_.connection.inPipe, requestSize, depth);
    check(stream ? usb::success : usb::noMemory);
    std::deque<std::size_t> inFlight; // lengths of the reads, oldest first
    std::uint64_t requested = 0;      // their sum
    while (received < size) {
        throwIfStopped(options.stop);
        const bool mayHaveEnded = !lastReadWasFull_;
        while (inFlight.size() < depth && received + requested < size) {
            const std::size_t length = readLength(size - received - requested);
            check(stream->submit(length));
            inFlight.push_back(length);
            requested += length;
        }
        USBTransferred read;
        check(stream->next(read, pipes_.timeouts()));
        const ByteView arrived = read.bytes;
        lastReadWasFull_ = arrived.size() == inFlight.front();
        requested -= inFlight.front();
        inFlight.pop_front();
        if (mayHaveEnded && endsEarly(arrived, size - received))
            return;
        if (arrived.empty())
            continue; // after whole packets only
        const auto wanted =
            static_cast<std::size_t>(std::min<std::uint64_t>(arrived.size(), size - received));
        const ByteView beyond = arrived.subspan(wanted);
        incomingStream_.insert(incomingStream_.end(), beyond.begin(), beyond.end());
        deliver(arrived.first(wanted));
    }
}

/// Whether a device that fails in the middle of its data has ended them with a short packet: then
/// this is its answer, which is left to be received. `rest` is what was still to come.
bool MTPContainerReader::endsEarly(ByteView arrived, std::uint64_t rest) {
    const auto header = MTPPacketCodec::decodeHeader(arrived);
    const bool isAnswer = header && isResponse(*header) && header->transactionID == dataID_ &&
                          header->length == arrived.size() && arrived.size() < rest;
    const bool isOk = isAnswer && header->code == static_cast<std::uint16_t>(MTPResponseCode::ok);
    if (arrived.empty() || isOk)
        throw MTPFailure(MTPError::brokenOff);
    if (isAnswer)
        incomingStream_.assign(arrived.begin(), arrived.end());
    return isAnswer;
}

void MTPContainerReader::receiveUntilShortPacket(const MTPDataSink& sink,
                                                 const MTPStreamOptions& options) {
    // The header's own transfer is the end of the data unless it was alone in it.
    const bool more = incomingStream_.empty() || lastReadWasFull_;
    if (!incomingStream_.empty())
        sink(take(incomingStream_.size()));
    if (!more)
        return;
    while (readsInFlight() > 0) {
        if (const Bytes bytes = takeFromReads(readSize()); !bytes.empty())
            sink(bytes);
        if (!lastReadWasFull_)
            return;
    }
    Bytes buffer(roundUp(streamRequestSize, pipes_.connection.maxPacketSize));
    do {
        throwIfStopped(options.stop);
        std::size_t transferred = 0;
        check(pipes_.connection.interface->readPipeTO(pipes_.connection.inPipe, buffer, transferred,
                                                      pipes_.timeouts()));
        lastReadWasFull_ = transferred == buffer.size();
        if (transferred > 0)
            sink(ByteView(buffer).first(transferred));
    } while (lastReadWasFull_);
}

/// True, at most once for each container of the transaction, when a container is such a late one.
bool MTPContainerReader::isAbandoned(const MTPContainerHeader& header) {
    const auto found = std::find(abandoned_.begin(), abandoned_.end(), header.transactionID);
    if (found == abandoned_.end()) {
        abandoned_.clear(); // containers come in order: nothing older follows
        return false;
    }
    abandoned_.erase(found);
    return true;
}

bool MTPContainerReader::hearsAnything() noexcept {
    const USBCode code = readOnce(pipes_.timeouts());
    if (code != usb::success && code != usb::noDevice)
        pipes_.connection.interface->clearPipeStallBothEnds(pipes_.connection.inPipe);
    isGone_ = code == usb::noDevice;
    return !std::exchange(incomingStream_, {}).empty();
}

void MTPContainerReader::abandon(std::uint32_t transactionID) {
    incomingStream_.clear();
    afterData_ = false;
    lastReadWasFull_ = false;
    if (std::find(abandoned_.begin(), abandoned_.end(), transactionID) != abandoned_.end())
        return;
    abandoned_.insert(abandoned_.end(), containersPerTransaction, transactionID);
    if (abandoned_.size() > abandonedLimit)
        abandoned_.erase(abandoned_.begin(), abandoned_.begin() + containersPerTransaction);
}

} // namespace tessary
