#include "mtp/client/MTPContainerWriter.h"

#include "base/threads/CancellationError.h"
#include "mtp/protocol/MTPPacketCodec.h"

#include <algorithm>

namespace tessary {

namespace {

const QString writeFailed = QStringLiteral("USB Write failed");

} // namespace

void MTPContainerWriter::begin(const MTPContainerHeader& header) {
    outgoing_ = header;
    written_ = 0;
    hasFailed_ = false;
}

void MTPContainerWriter::forget() {
    begin({});
}

void MTPContainerWriter::send(ByteView data, const MTPByteProgress& progress) {
    begin(MTPPacketCodec::decodeHeader(data).value_or(MTPContainerHeader{}));
    for (std::size_t sent = 0; sent < data.size();) {
        const ByteView chunk = data.subspan(sent, std::min(chunkSize, data.size() - sent));
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
void MTPContainerWriter::endFullPacket() {
    const MTPInterfaceConnection& link = pipes_.connection;
    if (written_ % link.maxPacketSize != 0)
        return;
    std::size_t transferred = 0;
    const USBCode code =
        link.interface->writePipeTO(link.outPipe, {}, transferred, pipes_.timeouts());
    if (code == usb::pipeStalled || code == usb::timeout)
        link.interface->clearPipeStallBothEnds(link.outPipe);
    else if (code != usb::success)
        pipes_.fail(writeFailed, link.outPipe, code);
}

void MTPContainerWriter::sendContainer(const MTPContainerHeader& header, std::uint64_t payloadSize,
                                       const MTPDataSource& source,
                                       const MTPStreamOptions& options) {
    begin(header);
    Bytes chunk = MTPPacketCodec::encodeHeader(header);
    std::size_t filled = chunk.size();
    chunk.resize(static_cast<std::size_t>(std::min<std::uint64_t>(
        chunkSize, std::min<std::uint64_t>(payloadSize, chunkSize) + filled)));
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

void MTPContainerWriter::write(ByteView chunk) {
    const std::uint8_t pipe = pipes_.connection.outPipe;
    std::size_t transferred = 0;
    const USBCode code =
        pipes_.connection.interface->writePipeTO(pipe, chunk, transferred, pipes_.timeouts());
    written_ += code == usb::success ? chunk.size() : transferred;
    if (code == usb::success)
        return;
    hasFailed_ = code != usb::aborted || !pipes_.waits.stop.stop_requested();
    pipes_.fail(writeFailed, pipe, code);
}

bool MTPContainerWriter::hasSentData() const {
    return outgoing_.type == MTPContainerType::data && written_ > 0 && !hasFailed_;
}

/// The container that the device has a part of is not complete.
bool MTPContainerWriter::isSending() const {
    return outgoing_.length == MTPContainerHeader::unknownLength || written_ < outgoing_.length;
}

void MTPContainerWriter::endDataPhase() noexcept {
    try {
        if (written_ == 0) {
            outgoing_.length = MTPContainerHeader::size;
            write(MTPPacketCodec::encodeHeader(outgoing_));
        } else if ((hasFailed_ || isSending()) && written_ % pipes_.connection.maxPacketSize == 0) {
            write({});
        }
    } catch (const MTPTransportError&) {
        // Whatever is still wrong with the pipe, the next transaction reports.
    }
}

} // namespace tessary
