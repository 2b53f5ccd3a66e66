#include "mtp/client/MTPContainerWriter.h"

#include "base/threads/CancellationError.h"
#include "mtp/protocol/MTPPacketCodec.h"

#include <algorithm>
#include <utility>

namespace tessary {

namespace {

/// Writes in flight at once, so that the pipe never idles while the source is read.
constexpr std::size_t streamDepth = 4;

/// The bytes of a container, as they are asked for.
class Content {
public:
    Content(const MTPContainerHeader& header, std::uint64_t payloadSize,
            const MTPDataSource& source)
        : head_(MTPPacketCodec::encodeHeader(header)), payloadSize_(payloadSize), source_(source) {}

    [[nodiscard]] std::uint64_t size() const {
        return MTPContainerHeader::size + payloadSize_;
    }
    [[nodiscard]] bool isOver() const {
        return head_.empty() && read_ == payloadSize_;
    }
    /// Fills `room`, unless the content ends before. Returns how much.
    std::size_t fill(std::span<std::byte> room) {
        std::size_t filled = head_.size();
        std::ranges::copy(std::exchange(head_, {}), room.begin());
        while (filled < room.size() && read_ < payloadSize_) {
            const auto wanted = static_cast<std::size_t>(
                std::min<std::uint64_t>(room.size() - filled, payloadSize_ - read_));
            const std::size_t count = source_(room.subspan(filled, wanted));
            if (count == 0)
                throw MTPFailure(MTPError::malformed,
                                 {QStringLiteral("the data ended after %1 of %2 bytes")
                                      .arg(read_)
                                      .arg(payloadSize_)});
            filled += count;
            read_ += count;
        }
        return filled;
    }

private:
    Bytes head_; ///< until it was handed out
    const std::uint64_t payloadSize_;
    const MTPDataSource& source_;
    std::uint64_t read_ = 0;
};

} // namespace

void MTPContainerWriter::begin(const MTPContainerHeader& header) {
    outgoing_ = header;
    written_ = 0;
    hasFailed_ = false;
}

void MTPContainerWriter::forget() {
    begin({});
}

void MTPContainerWriter::send(ByteView data) {
    begin(MTPPacketCodec::decodeHeader(data).value_or(MTPContainerHeader{}));
    for (std::size_t sent = 0; sent < data.size();) {
        const ByteView chunk = data.subspan(sent, std::min(chunkSize, data.size() - sent));
        write(chunk);
        sent += chunk.size();
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
        pipes_.fail(link.outPipe, code); // which is not the data's fault
}

void MTPContainerWriter::sendContainer(const MTPContainerHeader& header, std::uint64_t payloadSize,
                                       const MTPDataSource& source,
                                       const MTPStreamOptions& options) {
    begin(header);
    Content content(header, payloadSize, source);
    const auto requestSize =
        static_cast<std::size_t>(std::min<std::uint64_t>(chunkSize, content.size()));
    const std::uint64_t chunks = (content.size() + chunkSize - 1) / chunkSize;
    const auto stream = pipes_.connection.interface->stream(
        pipes_.connection.outPipe, requestSize,
        static_cast<std::size_t>(std::min<std::uint64_t>(chunks, streamDepth)));
    if (!stream)
        fail(usb::noMemory);
    const auto awaitOldest = [&](USBTimeouts timeouts) {
        USBTransferred done;
        const USBCode code = stream->next(done, timeouts);
        written_ += done.count;
        return code;
    };
    try {
        while (!content.isOver() || stream->inFlight() > 0) {
            throwIfStopped(options.stop);
            const auto room = content.isOver() ? std::span<std::byte>() : stream->buffer();
            const USBCode code =
                room.empty() ? awaitOldest(pipes_.timeouts()) : stream->submit(content.fill(room));
            if (code != usb::success)
                fail(code);
            if (room.empty() && options.progress)
                options.progress(static_cast<qint64>(written_ - MTPContainerHeader::size));
        }
    } catch (...) {
        // What is under way is called back; how much has left all the same tells how to end it.
        std::stop_source callBack;
        callBack.request_stop();
        const std::stop_token now = callBack.get_token();
        USBTimeouts timeouts = pipes_.timeouts();
        timeouts.stop = &now;
        while (stream->inFlight() > 0 && awaitOldest(timeouts) == usb::success)
            continue;
        throw;
    }
    endFullPacket();
}

void MTPContainerWriter::write(ByteView chunk) {
    std::size_t transferred = 0;
    const USBCode code = pipes_.connection.interface->writePipeTO(pipes_.connection.outPipe, chunk,
                                                                  transferred, pipes_.timeouts());
    written_ += transferred;
    if (code != usb::success)
        fail(code);
}

void MTPContainerWriter::fail(USBCode code) {
    hasFailed_ = code != usb::aborted || !pipes_.waits.stop.stop_requested();
    pipes_.fail(pipes_.connection.outPipe, code);
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
            outgoing_.length = 0; // it has its end
        }
    } catch (const MTPFailure&) {
        // Whatever is still wrong with the pipe, the next transaction reports.
    } catch (const CancellationError&) {
        // It is ended by the next try to bring the device to rest.
    }
}

} // namespace tessary
