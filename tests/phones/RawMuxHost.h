#pragma once

#include "core/LittleEndian.h"
#include "phones/FileHandle.h"
#include "phones/MuxPacket.h"
#include "phones/PlistCodec.h"
#include "phones/VirtualMux.h"

#include <QtEndian>

#include <sys/socket.h>
#include <sys/time.h>
#include <sys/un.h>

#include <cstring>

namespace tessary {

/// A host that speaks to the multiplexer byte by byte. Reads give up after some seconds.
class RawMuxHost {
public:
    explicit RawMuxHost(const VirtualMux& mux) : socket_(::socket(AF_UNIX, SOCK_STREAM, 0)) {
        const QByteArray path = mux.address().mid(5);
        sockaddr_un address{};
        address.sun_family = AF_UNIX;
        std::memcpy(address.sun_path, path.constData(), static_cast<std::size_t>(path.size()));
        const timeval patience{5, 0};
        ::setsockopt(socket_.get(), SOL_SOCKET, SO_RCVTIMEO, &patience, sizeof patience);
        connected_ = ::connect(socket_.get(), reinterpret_cast<const sockaddr*>(&address),
                               sizeof address) == 0;
    }

    [[nodiscard]] bool isConnected() const {
        return connected_;
    }
    void send(ByteView bytes) {
        (void)!::send(socket_.get(), bytes.data(), bytes.size(), MSG_NOSIGNAL);
    }
    void send(const QVariantMap& message, std::uint32_t tag = 7) {
        send(encodeMuxPacket(message, tag));
    }
    /// A property list as services take it, behind its length.
    void sendMessage(const QVariantMap& message) {
        const Bytes list = PlistCodec::encode(message, PlistForm::xml);
        const auto length = qToBigEndian(static_cast<quint32>(list.size()));
        send(std::as_bytes(std::span(&length, 1)));
        send(list);
    }
    void stopSending() {
        ::shutdown(socket_.get(), SHUT_WR);
    }
    /// At most so many bytes; fewer when the other side ended.
    [[nodiscard]] Bytes receiveBytes(std::size_t size) {
        Bytes bytes(size);
        std::size_t got = 0;
        while (got < size) {
            const ssize_t more = ::recv(socket_.get(), bytes.data() + got, size - got, 0);
            if (more <= 0)
                break;
            got += static_cast<std::size_t>(more);
        }
        bytes.resize(got);
        return bytes;
    }
    /// The next packet; an empty one when none comes.
    [[nodiscard]] QVariantMap receive() {
        const auto header = MuxHeader::decode(receiveBytes(MuxHeader::size));
        if (!header)
            return {};
        lastTag_ = header->tag;
        return PlistCodec::decode(receiveBytes(header->length - MuxHeader::size))
            .value_or(QVariantMap());
    }
    [[nodiscard]] QVariantMap ask(const QVariantMap& message, std::uint32_t tag = 7) {
        send(message, tag);
        return receive();
    }
    /// The result number; -1 when the answer has none.
    [[nodiscard]] int result(const QVariantMap& message) {
        return ask(message).value(QStringLiteral("Number"), -1).toInt();
    }
    [[nodiscard]] int connectTo(std::uint32_t device, std::uint16_t port) {
        return result({{QStringLiteral("MessageType"), QStringLiteral("Connect")},
                       {QStringLiteral("DeviceID"), device},
                       {QStringLiteral("PortNumber"), qToBigEndian(port)}});
    }
    /// Whether the other side has ended the connection, or does within the patience.
    [[nodiscard]] bool isEnded() {
        std::byte one{};
        return ::recv(socket_.get(), &one, 1, 0) == 0;
    }
    [[nodiscard]] std::uint32_t lastTag() const {
        return lastTag_;
    }

private:
    FileHandle socket_;
    bool connected_ = false;
    std::uint32_t lastTag_ = 0;
};

} // namespace tessary
