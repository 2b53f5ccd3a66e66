#include "adb/direct/ADBTCPTransport.h"

#include "adb/protocol/ADBError.h"
#include "platform/net/NetworkError.h"

#include <array>

namespace tessary {

namespace {

/// An idle phone sends nothing.
constexpr std::chrono::hours idleTime{12};

StreamSocket connectTo(const QString& host, std::uint16_t port, const Wait& wait) {
    try {
        return StreamSocket::connectTCP(host, port, wait);
    } catch (const Error& error) {
        throw Error(ADBError::notFound, {QStringLiteral("%1:%2").arg(host).arg(port)}, error);
    }
}

} // namespace

ADBTCPTransport::ADBTCPTransport(const QString& host, std::uint16_t port, const Wait& wait)
    : socket_(connectTo(host, port, wait)) {}

void ADBTCPTransport::readExactly(std::span<std::byte> to) {
    while (!to.empty()) {
        std::size_t got = 0;
        try {
            got = socket_.read(to, {{}, idleTime});
        } catch (const Error& error) {
            if (error.is(NetworkError::timedOut))
                continue;
            throw Error(ADBError::brokenOff, {}, error);
        }
        if (got == 0)
            throw Error(ADBError::brokenOff);
        to = to.subspan(got);
    }
}

ADBMessage ADBTCPTransport::read() {
    std::array<std::byte, ADBConstants::headerSize> header{};
    readExactly(header);
    auto message = ADBMessage::decodeHeader(header);
    if (!message || message->dataLength > ADBConstants::maxPayloadV2)
        throw Error(ADBError::nonsense, {QStringLiteral("a message's header")});
    message->payload.resize(message->dataLength);
    readExactly(message->payload);
    return *std::move(message);
}

void ADBTCPTransport::write(const ADBMessage& message) {
    try {
        socket_.write(message.encode(), {{}, writePatience});
    } catch (const Error& error) {
        throw Error(ADBError::brokenOff, {}, error);
    }
}

void ADBTCPTransport::close() {
    socket_.shutDown();
}

} // namespace tessary
