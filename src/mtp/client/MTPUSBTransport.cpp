#include "mtp/client/MTPUSBTransport.h"

#include "base/threads/CancellationError.h"
#include "mtp/client/MTPRecovery.h"
#include "mtp/protocol/MTPPacketCodec.h"

#include <algorithm>

namespace tessary {

namespace {

/// Data and response; and for how many broken-off transactions they are looked out for.
constexpr int containersPerTransaction = 2;
constexpr std::size_t abandonedLimit = 8 * containersPerTransaction;

} // namespace

MTPUSBTransport::MTPUSBTransport(USBBus& bus, MTPDeviceAddress address)
    : bus_(bus), address_(std::move(address)) {}

MTPUSBTransport::MTPUSBTransport(USBBus& bus, std::uint32_t vendorID, std::uint32_t productID)
    : MTPUSBTransport(bus, MTPDeviceAddress{vendorID, productID, {}, {}}) {}

MTPUSBTransport::~MTPUSBTransport() = default;

void MTPUSBTransport::open() {
    const std::scoped_lock lock(mutex_);
    if (connection_)
        return;
    connection_ = openMTPInterface(bus_, address_);
    forget();
    if (eventReceiver_ && connection_->eventPipe != 0)
        events_ = std::make_unique<MTPEventReader>(*connection_->interface, connection_->eventPipe,
                                                   eventReceiver_);
}

void MTPUSBTransport::close() {
    const std::scoped_lock lock(mutex_);
    events_.reset();
    connection_.reset();
    forget();
}

/// Drops what is known of a connection.
void MTPUSBTransport::forget() {
    incomingStream_.clear();
    abandoned_.clear();
    resetFraming();
}

void MTPUSBTransport::resetFraming() {
    afterData_ = false;
    lastReadWasFull_ = false;
    isGone_ = false;
    outgoing_ = {};
    outgoingWritten_ = 0;
    outgoingFailed_ = false;
}

void MTPUSBTransport::setEventReceiver(std::function<void(const MTPEvent&)> receiver) {
    const std::scoped_lock lock(mutex_);
    eventReceiver_ = std::move(receiver);
}

void MTPUSBTransport::setWaits(MTPWaits waits) {
    const std::scoped_lock lock(mutex_);
    waits_ = std::move(waits);
}

USBTimeouts MTPUSBTransport::timeouts() const {
    return {waits_.patience, waits_.patience, waits_.stop.stop_possible() ? &waits_.stop : nullptr};
}

/// A call that was ended early by a stop leaves the pipes as they are.
void MTPUSBTransport::throwIfAborted(USBCode code) const {
    if (code == usb::aborted)
        throwIfStopped(waits_.stop);
}

void MTPUSBTransport::requireOpen() const {
    if (!connection_)
        throw MTPTransportError(MTPTransportError::Case::notConnected);
}

void MTPUSBTransport::send(ByteView data, const MTPByteProgress& progress) {
    const std::scoped_lock lock(mutex_);
    requireOpen();
    outgoing_ = MTPPacketCodec::decodeHeader(data).value_or(MTPContainerHeader{});
    outgoingWritten_ = 0;
    outgoingFailed_ = false;
    for (std::size_t sent = 0; sent < data.size();) {
        const ByteView chunk = data.subspan(sent, std::min(writeChunkSize, data.size() - sent));
        write(chunk);
        sent += chunk.size();
        if (progress)
            progress(static_cast<qint64>(sent), static_cast<qint64>(data.size()));
    }
    if (outgoing_.type == MTPContainerType::data)
        endFullPacket();
}

/// Many devices read on after a data phase whose last packet is full, until an empty one comes.
/// Those that do not expect one halt the pipe, or let the packet lie: they have the data all the
/// same.
void MTPUSBTransport::endFullPacket() {
    if (outgoingWritten_ % connection_->maxPacketSize != 0)
        return;
    USBInterface& interface = *connection_->interface;
    std::size_t transferred = 0;
    const USBCode code = interface.writePipeTO(connection_->outPipe, {}, transferred, timeouts());
    if (code == usb::success)
        return;
    throwIfAborted(code);
    if (code != usb::noDevice)
        interface.clearPipeStallBothEnds(connection_->outPipe);
    if (code != usb::pipeStalled && code != usb::timeout)
        throw MTPTransportError::pipe(QStringLiteral("USB Write failed"), code);
}

void MTPUSBTransport::sendContainer(const MTPContainerHeader& header, std::uint64_t payloadSize,
                                    const MTPDataSource& source, const MTPStreamOptions& options) {
    const std::scoped_lock lock(mutex_);
    requireOpen();
    outgoing_ = header;
    outgoingWritten_ = 0;
    outgoingFailed_ = false;
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
    endFullPacket();
}

void MTPUSBTransport::write(ByteView chunk) {
    USBInterface& interface = *connection_->interface;
    std::size_t transferred = 0;
    const USBCode code =
        interface.writePipeTO(connection_->outPipe, chunk, transferred, timeouts());
    outgoingWritten_ += code == usb::success ? chunk.size() : transferred;
    if (code == usb::success)
        return;
    throwIfAborted(code);
    outgoingFailed_ = true;
    if (code != usb::noDevice)
        interface.clearPipeStallBothEnds(connection_->outPipe);
    throw MTPTransportError::pipe(QStringLiteral("USB Write failed"), code);
}

MTPPipeState MTPUSBTransport::recover(std::uint32_t transactionID, MTPDataPhase phase,
                                      std::chrono::milliseconds limit) noexcept {
    const std::scoped_lock lock(mutex_);
    if (!connection_)
        return MTPPipeState::quiet;
    const MTPWaits waits = std::exchange(waits_, MTPWaits{limit, {}});
    // Phones acknowledge a cancel request in the middle of their data phase, and read on.
    const bool hasData = phase == MTPDataPhase::toDevice && hasSentData();
    if (hasData && isSending())
        endDataPhase();
    const bool isHeard = hasData && hearsAnswer(limit);
    const bool isCancelled = !isHeard && cancelMTPTransaction(*connection_, transactionID, limit);
    // A device that knows no cancelling gets the end of its data, or is read to the end of it.
    if (!isHeard && !isCancelled && !hasData && phase == MTPDataPhase::toDevice)
        endDataPhase();
    const bool held = isHeard || !incomingStream_.empty();
    MTPPipeState state = drainMTPPipe(*connection_, limit);
    if (state == MTPPipeState::quiet && held)
        state = MTPPipeState::drained;
    // It has the data, and is still at work with them; unless it halted the pipe at their end.
    if (state == MTPPipeState::quiet && hasData && !outgoingFailed_ && !isGone_)
        state = MTPPipeState::busy;
    incomingStream_.clear();
    resetFraming();
    abandon(transactionID);
    waits_ = waits;
    return state;
}

/// The device has a part of a container, or all of it.
bool MTPUSBTransport::hasSentData() const {
    return outgoing_.type == MTPContainerType::data && outgoingWritten_ > 0 && !outgoingFailed_;
}

/// The container that the device has a part of is not complete.
bool MTPUSBTransport::isSending() const {
    return outgoing_.length == MTPContainerHeader::unknownLength ||
           outgoingWritten_ < outgoing_.length;
}

/// Whether anything comes from the device, which is dropped.
bool MTPUSBTransport::hearsAnswer(std::chrono::milliseconds limit) noexcept {
    const USBCode code = readOnce({limit, limit});
    isGone_ = code == usb::noDevice;
    if (code != usb::success && code != usb::noDevice)
        connection_->interface->clearPipeStallBothEnds(connection_->inPipe);
    return !std::exchange(incomingStream_, {}).empty();
}

/// Ends a data phase before its announced size: by a short packet, or by an empty one.
void MTPUSBTransport::endDataPhase() noexcept {
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
void MTPUSBTransport::abandon(std::uint32_t transactionID) {
    if (std::find(abandoned_.begin(), abandoned_.end(), transactionID) != abandoned_.end())
        return;
    abandoned_.insert(abandoned_.end(), containersPerTransaction, transactionID);
    if (abandoned_.size() > abandonedLimit)
        abandoned_.erase(abandoned_.begin(), abandoned_.begin() + containersPerTransaction);
}

} // namespace tessary
