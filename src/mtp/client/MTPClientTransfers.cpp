#include "base/threads/CancellationError.h"
#include "mtp/client/MTPClient.h"
#include "mtp/protocol/MTPPacketCodec.h"

#include <algorithm>
#include <limits>

namespace tessary {

namespace {

constexpr std::uint16_t rawOk = static_cast<std::uint16_t>(MTPResponseCode::ok);
constexpr std::uint32_t full32Bits = std::numeric_limits<std::uint32_t>::max();
/// What fills the first write of a data container.
constexpr std::size_t firstPieceSize = 0x40000 - MTPContainerHeader::size;

/// As much of a payload as goes out with its header.
Bytes firstPiece(const MTPDataSource& source, std::uint64_t size) {
    Bytes piece(static_cast<std::size_t>(std::min<std::uint64_t>(size, firstPieceSize)));
    for (std::size_t filled = 0; filled < piece.size();) {
        const std::size_t count = source(std::span(piece).subspan(filled));
        if (count == 0)
            throw MTPTransportError::underlying(
                QStringLiteral("the data ended after %1 of %2 bytes").arg(filled).arg(size));
        filled += count;
    }
    return piece;
}

/// Moves as many bytes as fit.
std::size_t takeFront(Bytes& from, std::span<std::byte> to) {
    const std::size_t count = std::min(from.size(), to.size());
    std::copy_n(from.begin(), count, to.begin());
    from.erase(from.begin(), from.begin() + static_cast<std::ptrdiff_t>(count));
    return count;
}

} // namespace

Bytes MTPClient::getObject(std::uint32_t handle) {
    Bytes bytes;
    getObject(handle,
              [&bytes](ByteView more) { bytes.insert(bytes.end(), more.begin(), more.end()); });
    return bytes;
}

std::uint64_t MTPClient::getObject(std::uint32_t handle, const MTPDataSink& sink,
                                   const MTPStreamOptions& options) {
    return receiveObject(MTPOperationCode::getObject, {handle},
                         QStringLiteral("GetObject failed: 0x"), sink, options);
}

std::uint64_t MTPClient::getPartialObject(std::uint32_t handle, std::uint64_t offset,
                                          std::uint32_t length, bool isWide,
                                          const MTPDataSink& sink,
                                          const MTPStreamOptions& options) {
    const auto low = static_cast<std::uint32_t>(offset);
    const auto high = static_cast<std::uint32_t>(offset >> 32);
    const QString failure = QStringLiteral("GetPartialObject failed: 0x");
    return isWide ? receiveObject(MTPOperationCode::androidGetPartialObject64,
                                  {handle, low, high, length}, failure, sink, options)
                  : receiveObject(MTPOperationCode::getPartialObject, {handle, low, length},
                                  failure, sink, options);
}

void MTPClient::getObjectPropList(std::uint32_t folder, const MTPDataSink& sink,
                                  const MTPStreamOptions& options) {
    constexpr std::uint32_t anyFormat = 0;
    constexpr std::uint32_t allProperties = 0xFFFFFFFF;
    constexpr std::uint32_t noGroup = 0;
    constexpr std::uint32_t childrenOnly = 1;
    receiveObject(MTPOperationCode::getObjectPropList,
                  {folder, anyFormat, allProperties, noGroup, childrenOnly},
                  QStringLiteral("GetObjectPropList failed: 0x"), sink, options);
}

void MTPClient::getThumb(std::uint32_t handle, const MTPDataSink& sink,
                         const MTPStreamOptions& options) {
    receiveObject(MTPOperationCode::getThumb, {handle}, QStringLiteral("GetThumb failed: 0x"), sink,
                  options);
}

/// The data phase of an operation that sends an object's content, or a part of it.
std::uint64_t MTPClient::receiveObject(MTPOperationCode operation, Parameters parameters,
                                       const QString& failure, const MTPDataSink& sink,
                                       const MTPStreamOptions& options) {
    const std::scoped_lock lock(mutex_);
    throwIfStopped(options.stop);
    sendCommand(operation, parameters);
    std::uint64_t received = 0;
    const MTPDataSink countingSink = [&](ByteView bytes) {
        sink(bytes);
        received += bytes.size();
    };
    MTPPacket first;
    try {
        first = transport_->receiveContainer(countingSink, options);
        isSettled_ = first.header.type == MTPContainerType::response;
    } catch (const CancellationError&) {
        recoverSoon();
        throw;
    } catch (...) {
        recover();
        throw;
    }
    if (!isSettled_)
        expectOk(failure);
    else if (first.header.code != rawOk)
        throw MTPTransportError::refusal(failure, first.header.code);
    return received;
}

std::uint32_t MTPClient::sendObject(ByteView data, const QString& filename,
                                    std::uint32_t parentHandle, std::uint32_t storageID,
                                    const MTPByteProgress& progress) {
    const MTPDataSource source = [rest = data](std::span<std::byte> buffer) mutable {
        const std::size_t count = std::min(buffer.size(), rest.size());
        std::copy_n(rest.begin(), count, buffer.begin());
        rest = rest.subspan(count);
        return count;
    };
    MTPStreamOptions options;
    options.progress = progress;
    return sendObject(source, data.size(), filename, parentHandle, storageID, options);
}

std::uint32_t MTPClient::sendObject(const MTPDataSource& source, std::uint64_t size,
                                    const QString& filename, std::uint32_t parentHandle,
                                    std::uint32_t storageID, const MTPStreamOptions& options) {
    MTPObjectInfo object;
    object.storageID = storageID;
    object.parentObject = parentHandle;
    object.filename = filename;
    return sendObject(std::move(object), source, size, options);
}

std::uint32_t MTPClient::sendObject(MTPObjectInfo object, const MTPDataSource& source,
                                    std::uint64_t size, const MTPStreamOptions& options) {
    const std::scoped_lock lock(mutex_);
    // A transfer that fails before its first bytes has not begun: a device may miss a cancellation
    // that comes before data does.
    Bytes first = firstPiece(source, size);
    throwIfStopped(options.stop);
    const MTPDataSource whole = [&](std::span<std::byte> buffer) {
        return first.empty() ? source(buffer) : takeFront(first, buffer);
    };
    object.compressedSize = static_cast<std::uint32_t>(std::min<std::uint64_t>(size, full32Bits));
    const std::uint32_t handle =
        sendObjectInfo(object, QStringLiteral("SendObjectInfo failed: 0x"));
    if (options.accepted)
        options.accepted(handle);

    sendContent(MTPOperationCode::sendObject, {}, whole, size,
                QStringLiteral("SendObject failed: 0x"), options);
    return handle;
}

void MTPClient::sendPartialObject(std::uint32_t handle, std::uint64_t offset, std::uint32_t size,
                                  const MTPDataSource& source, const MTPStreamOptions& options) {
    const std::scoped_lock lock(mutex_);
    Bytes first = firstPiece(source, size);
    throwIfStopped(options.stop);
    const MTPDataSource whole = [&](std::span<std::byte> buffer) {
        return first.empty() ? source(buffer) : takeFront(first, buffer);
    };
    sendContent(MTPOperationCode::androidSendPartialObject,
                {handle, static_cast<std::uint32_t>(offset),
                 static_cast<std::uint32_t>(offset >> 32), size},
                whole, size, QStringLiteral("SendPartialObject failed: 0x"), options);
}

/// A transaction whose data phase is a file's content, or a part of it.
void MTPClient::sendContent(MTPOperationCode operation, Parameters parameters,
                            const MTPDataSource& source, std::uint64_t size, const QString& failure,
                            const MTPStreamOptions& options) {
    const std::uint32_t transactionID = sendCommand(operation, parameters);
    MTPContainerHeader header;
    header.type = MTPContainerType::data;
    header.code = static_cast<std::uint16_t>(operation);
    header.transactionID = transactionID;
    header.length = static_cast<std::uint32_t>(
        std::min<std::uint64_t>(size, full32Bits - MTPContainerHeader::size) +
        MTPContainerHeader::size);
    MTPPacket response;
    phase_ = MTPDataPhase::toDevice;
    try {
        transport_->sendContainer(header, size, source, options);
        response = receiveResponse(workPatience);
    } catch (const CancellationError&) {
        recoverSoon();
        throw;
    } catch (...) {
        recover();
        throw;
    }
    if (response.header.code != rawOk)
        throw MTPTransportError::refusal(failure, response.header.code);
}

} // namespace tessary
