#include "mtp/IOKitMTPTransport.h"

#include "core/CancellationError.h"
#include "mtp/MTPPacketCodec.h"
#include "mtp/MTPRecovery.h"

#include <algorithm>
#include <deque>

namespace tessary {

namespace {

constexpr std::size_t minimumReadSize = 4096;
constexpr std::size_t streamRequestSize = 0x40000;
constexpr std::size_t streamDepth = 4;
/// A response container has at most five parameters.
constexpr std::uint32_t longestResponse = MTPContainerHeader::size + 5 * 4;

/// Data and response; and for how many broken-off transactions they are looked out for.
constexpr int containersPerTransaction = 2;
constexpr std::size_t abandonedLimit = 8 * containersPerTransaction;

constexpr UsbTimeouts pipeTimeouts{MTPTransportProtocol::pipeTimeout,
                                   MTPTransportProtocol::pipeTimeout};

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

MTPDataSink keepIn(Bytes& bytes) {
    return [&bytes](ByteView more) { bytes.insert(bytes.end(), more.begin(), more.end()); };
}

} // namespace

IOKitMTPTransport::IOKitMTPTransport(UsbBus& bus, MTPDeviceAddress address)
    : bus_(bus), address_(std::move(address)) {}

IOKitMTPTransport::IOKitMTPTransport(UsbBus& bus, std::uint32_t vendorID, std::uint32_t productID)
    : IOKitMTPTransport(bus, MTPDeviceAddress{vendorID, productID, {}, {}}) {}

IOKitMTPTransport::~IOKitMTPTransport() = default;

void IOKitMTPTransport::open() {
    const std::scoped_lock lock(mutex_);
    if (connection_)
        return;
    connection_ = openMTPInterface(bus_, address_);
    forget();
}

void IOKitMTPTransport::close() {
    const std::scoped_lock lock(mutex_);
    connection_.reset();
    forget();
}

/// Drops what is known of a connection.
void IOKitMTPTransport::forget() {
    incomingStream_.clear();
    abandoned_.clear();
    resetFraming();
}

void IOKitMTPTransport::resetFraming() {
    afterData_ = false;
    lastReadWasFull_ = false;
    outgoing_ = {};
    outgoingWritten_ = 0;
}

void IOKitMTPTransport::requireOpen() const {
    if (!connection_)
        throw MTPTransportError(MTPTransportError::Case::notConnected);
}

void IOKitMTPTransport::send(ByteView data, const MTPByteProgress& progress) {
    const std::scoped_lock lock(mutex_);
    requireOpen();
    outgoing_ = MTPPacketCodec::decodeHeader(data).value_or(MTPContainerHeader{});
    outgoingWritten_ = 0;
    for (std::size_t sent = 0; sent < data.size();) {
        const ByteView chunk = data.subspan(sent, std::min(writeChunkSize, data.size() - sent));
        write(chunk);
        sent += chunk.size();
        if (progress)
            progress(static_cast<qint64>(sent), static_cast<qint64>(data.size()));
    }
}

void IOKitMTPTransport::sendContainer(const MTPContainerHeader& header, std::uint64_t payloadSize,
                                      const MTPDataSource& source,
                                      const MTPStreamOptions& options) {
    const std::scoped_lock lock(mutex_);
    requireOpen();
    outgoing_ = header;
    outgoingWritten_ = 0;
    Bytes chunk = MTPPacketCodec::encodeHeader(header);
    std::size_t filled = chunk.size();
    chunk.resize(static_cast<std::size_t>(std::min<std::uint64_t>(
        writeChunkSize, std::min<std::uint64_t>(payloadSize, writeChunkSize) + filled)));
    std::uint64_t read = 0;
    do {
        throwIfStopped(options.stop);
        while (filled < chunk.size() && read < payloadSize) {
            const std::uint64_t wanted =
                std::min<std::uint64_t>(chunk.size() - filled, payloadSize - read);
            const std::size_t count =
                source(std::span(chunk).subspan(filled, static_cast<std::size_t>(wanted)));
            if (count == 0)
                throw MTPTransportError::underlying(
                    QStringLiteral("the data ended after %1 of %2 bytes")
                        .arg(read)
                        .arg(payloadSize));
            filled += count;
            read += count;
        }
        write(ByteView(chunk).first(filled));
        filled = 0;
        if (options.progress)
            options.progress(static_cast<qint64>(read), static_cast<qint64>(payloadSize));
    } while (read < payloadSize);
    // A length that the header does not tell is told by the end of the transfer.
    if (header.length == MTPContainerHeader::unknownLength &&
        outgoingWritten_ % connection_->maxPacketSize == 0)
        write({});
}

void IOKitMTPTransport::write(ByteView chunk) {
    UsbInterface& interface = *connection_->interface;
    std::size_t transferred = 0;
    const UsbCode code =
        interface.writePipeTO(connection_->outPipe, chunk, transferred, pipeTimeouts);
    outgoingWritten_ += code == usb::success ? chunk.size() : transferred;
    if (code == usb::success)
        return;
    if (code != usb::noDevice)
        interface.clearPipeStallBothEnds(connection_->outPipe);
    throw MTPTransportError::pipe(QStringLiteral("USB Write failed"), code);
}

Bytes IOKitMTPTransport::receive(std::size_t maxBytes) {
    const std::scoped_lock lock(mutex_);
    requireOpen();
    if (incomingStream_.size() < maxBytes) {
        const UsbCode code = readOnce(pipeTimeouts);
        if (code != usb::success)
            failRead(code);
    }
    return take(maxBytes);
}

/// One read of the pipe into the incoming stream; an empty read leaves it as it is.
UsbCode IOKitMTPTransport::readOnce(UsbTimeouts timeouts) {
    const std::size_t packetSize = connection_->maxPacketSize;
    const std::size_t size = roundUp(std::max(packetSize, minimumReadSize), packetSize);
    const std::size_t held = incomingStream_.size();
    incomingStream_.resize(held + size);
    std::size_t transferred = 0;
    const UsbCode code = connection_->interface->readPipeTO(
        connection_->inPipe, std::span(incomingStream_).subspan(held), transferred, timeouts);
    incomingStream_.resize(held + std::min(transferred, size));
    lastReadWasFull_ = transferred == size;
    return code;
}

void IOKitMTPTransport::failRead(UsbCode code) {
    if (code != usb::noDevice)
        connection_->interface->clearPipeStallBothEnds(connection_->inPipe);
    throw MTPTransportError::pipe(QStringLiteral("USB Read failed"), code);
}

/// Reads until the incoming stream holds `count` bytes.
void IOKitMTPTransport::fill(std::size_t count) {
    while (incomingStream_.size() < count) {
        const std::size_t held = incomingStream_.size();
        const UsbCode code = readOnce(pipeTimeouts);
        if (code != usb::success)
            failRead(code);
        if (incomingStream_.size() == held)
            throw MTPTransportError(MTPTransportError::Case::timeout);
    }
}

Bytes IOKitMTPTransport::take(std::size_t count) {
    const auto end = incomingStream_.begin() +
                     static_cast<std::ptrdiff_t>(std::min(count, incomingStream_.size()));
    Bytes taken(incomingStream_.begin(), end);
    incomingStream_.erase(incomingStream_.begin(), end);
    return taken;
}

MTPPacket IOKitMTPTransport::receivePacket(std::chrono::milliseconds patience) {
    const std::scoped_lock lock(mutex_);
    requireOpen();
    MTPPacket packet;
    packet.header = receiveHeader(patience);
    receivePayload(announcedSize(packet.header), keepIn(packet.payload), {});
    return packet;
}

MTPPacket IOKitMTPTransport::receiveContainer(const MTPDataSink& sink,
                                              const MTPStreamOptions& options) {
    const std::scoped_lock lock(mutex_);
    requireOpen();
    MTPPacket packet;
    packet.header = receiveHeader(pipeTimeout);
    if (packet.header.type == MTPContainerType::response)
        receivePayload(announcedSize(packet.header), keepIn(packet.payload), {});
    else
        receiveData(packet.header, sink, options);
    return packet;
}

/// The payload of a container, however its size is told.
void IOKitMTPTransport::receiveData(const MTPContainerHeader& header, const MTPDataSink& sink,
                                    const MTPStreamOptions& options) {
    if (const auto size = payloadSize(header, options.expectedSize))
        receivePayload(*size, sink, options);
    else
        receiveUntilShortPacket(sink, options);
}

/// The header of the next container that belongs to a transaction under way.
MTPContainerHeader IOKitMTPTransport::receiveHeader(std::chrono::milliseconds patience) {
    for (;;) {
        const MTPContainerHeader header = receiveAnyHeader(patience);
        if (!isAbandoned(header))
            return header;
        receiveData(header, [](ByteView) {}, {});
    }
}

MTPContainerHeader IOKitMTPTransport::receiveAnyHeader(std::chrono::milliseconds patience) {
    awaitFirstByte(patience);
    fill(MTPContainerHeader::size);
    if (afterData_)
        skipStrayByte();
    const auto header = MTPPacketCodec::decodeHeader(incomingStream_);
    if (!header)
        throw MTPTransportError(MTPTransportError::Case::invalidPacketHeader);
    (void)take(MTPContainerHeader::size);
    afterData_ = header->type == MTPContainerType::data;
    return *header;
}

/// Waits until there is anything of a container to read, as long as the caller has patience.
void IOKitMTPTransport::awaitFirstByte(std::chrono::milliseconds patience) {
    auto waits = std::max<std::int64_t>(patience / pipeTimeout, 1);
    // Such a packet ends a transfer of whole packets; some devices send one after any data.
    bool zeroPacketMayFollow = afterData_ || lastReadWasFull_;
    // A single byte behind data is a stray one, see below.
    const std::size_t enough = afterData_ ? 2 : 1;
    while (incomingStream_.size() < enough) {
        const std::size_t held = incomingStream_.size();
        const UsbCode code = readOnce(pipeTimeouts);
        if (code == usb::timeout && --waits > 0)
            continue;
        if (code != usb::success)
            failRead(code);
        if (incomingStream_.size() == held && !std::exchange(zeroPacketMayFollow, false))
            throw MTPTransportError(MTPTransportError::Case::timeout);
    }
}

/// Some devices send one byte more than their data container announced. It stands in front of the
/// response, and is recognised by what comes after it.
void IOKitMTPTransport::skipStrayByte() {
    const auto header = MTPPacketCodec::decodeHeader(incomingStream_);
    if (header && isResponse(*header))
        return;
    const auto shifted = MTPPacketCodec::decodeHeader(ByteView(incomingStream_).subspan(1));
    if (shifted && isResponse(*shifted))
        (void)take(1);
}

void IOKitMTPTransport::receivePayload(std::uint64_t size, const MTPDataSink& sink,
                                       const MTPStreamOptions& options) {
    std::uint64_t received = 0;
    const auto deliver = [&](ByteView bytes) {
        sink(bytes);
        received += bytes.size();
        if (options.progress)
            options.progress(static_cast<qint64>(received), static_cast<qint64>(size));
    };
    if (!incomingStream_.empty() && size > 0)
        deliver(
            take(static_cast<std::size_t>(std::min<std::uint64_t>(size, incomingStream_.size()))));
    if (received == size)
        return;

    // Reads are only asked for bytes that are still to come, so that none of them waits for, or
    // takes, what follows the payload; the last one is rounded up to whole packets.
    const auto readLength = [&](std::uint64_t rest) {
        return roundUp(static_cast<std::size_t>(std::min<std::uint64_t>(streamRequestSize, rest)),
                       connection_->maxPacketSize);
    };
    const std::size_t requestSize = readLength(size - received);
    const auto depth = static_cast<std::size_t>(
        std::min<std::uint64_t>(streamDepth, (size - received + requestSize - 1) / requestSize));
    const auto stream = connection_->interface->readStream(connection_->inPipe, requestSize, depth);
    if (!stream)
        failRead(usb::noMemory);
    std::deque<std::size_t> inFlight; // lengths of the reads, oldest first
    std::uint64_t requested = 0;      // their sum
    while (received < size) {
        throwIfStopped(options.stop);
        while (inFlight.size() < depth && received + requested < size) {
            const std::size_t length = readLength(size - received - requested);
            const UsbCode code = stream->submit(length);
            if (code != usb::success)
                failRead(code);
            inFlight.push_back(length);
            requested += length;
        }
        ByteView arrived;
        const UsbCode code = stream->next(arrived, pipeTimeouts);
        if (code != usb::success)
            failRead(code);
        lastReadWasFull_ = arrived.size() == inFlight.front();
        requested -= inFlight.front();
        inFlight.pop_front();
        if (arrived.empty())
            throw MTPTransportError(MTPTransportError::Case::timeout);
        const auto wanted =
            static_cast<std::size_t>(std::min<std::uint64_t>(arrived.size(), size - received));
        const ByteView beyond = arrived.subspan(wanted);
        incomingStream_.insert(incomingStream_.end(), beyond.begin(), beyond.end());
        deliver(arrived.first(wanted));
    }
}

void IOKitMTPTransport::receiveUntilShortPacket(const MTPDataSink& sink,
                                                const MTPStreamOptions& options) {
    qint64 received = 0;
    const auto deliver = [&](ByteView bytes) {
        sink(bytes);
        received += static_cast<qint64>(bytes.size());
        if (options.progress)
            options.progress(received, received);
    };
    // The header's own transfer is the end of the data unless it was alone in it.
    const bool more = incomingStream_.empty() || lastReadWasFull_;
    if (!incomingStream_.empty())
        deliver(take(incomingStream_.size()));
    if (!more)
        return;
    Bytes buffer(roundUp(streamRequestSize, connection_->maxPacketSize));
    do {
        throwIfStopped(options.stop);
        std::size_t transferred = 0;
        const UsbCode code = connection_->interface->readPipeTO(connection_->inPipe, buffer,
                                                                transferred, pipeTimeouts);
        if (code != usb::success)
            failRead(code);
        lastReadWasFull_ = transferred == buffer.size();
        if (transferred > 0)
            deliver(ByteView(buffer).first(transferred));
    } while (lastReadWasFull_);
}

MTPPipeState IOKitMTPTransport::recover(std::uint32_t transactionID, MTPDataPhase phase) noexcept {
    const std::scoped_lock lock(mutex_);
    if (!connection_)
        return MTPPipeState::quiet;
    const bool cancelled = cancelMTPTransaction(*connection_, transactionID);
    // A device that knows no cancelling gets the end of its data, or is read to the end of it.
    if (!cancelled && phase == MTPDataPhase::toDevice)
        endDataPhase();
    const bool held = !incomingStream_.empty();
    const MTPPipeState state = drainMTPPipe(*connection_);
    incomingStream_.clear();
    resetFraming();
    abandon(transactionID);
    return state == MTPPipeState::quiet && held ? MTPPipeState::drained : state;
}

/// Ends a data phase before its announced size: by a short packet, or by an empty one.
void IOKitMTPTransport::endDataPhase() noexcept {
    try {
        if (outgoingWritten_ == 0) {
            outgoing_.length = MTPContainerHeader::size;
            write(MTPPacketCodec::encodeHeader(outgoing_));
        } else if (outgoingWritten_ % connection_->maxPacketSize == 0) {
            write({});
        }
    } catch (const MTPTransportError&) {
        // Whatever is still wrong with the pipe, the next transaction reports.
    }
}

/// What a late device still answers to a broken-off transaction is not the answer to the next one.
void IOKitMTPTransport::abandon(std::uint32_t transactionID) {
    if (std::find(abandoned_.begin(), abandoned_.end(), transactionID) != abandoned_.end())
        return;
    abandoned_.insert(abandoned_.end(), containersPerTransaction, transactionID);
    if (abandoned_.size() > abandonedLimit)
        abandoned_.erase(abandoned_.begin(), abandoned_.begin() + containersPerTransaction);
}

/// True, at most once for each container of the transaction, when a container is such a late one.
bool IOKitMTPTransport::isAbandoned(const MTPContainerHeader& header) {
    const auto found = std::find(abandoned_.begin(), abandoned_.end(), header.transactionID);
    if (found == abandoned_.end()) {
        abandoned_.clear(); // containers come in order: nothing older follows
        return false;
    }
    abandoned_.erase(found);
    return true;
}

} // namespace tessary
