#include "simulator/wire/PhoneStream.h"

#include "simulator/wire/PhoneSockets.h"

#include <openssl/ssl.h>

#include <poll.h>
#include <sys/socket.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <limits>

namespace tessary {

namespace {

int tlsLength(std::size_t size) {
    return static_cast<int>(
        std::min<std::size_t>(size, static_cast<std::size_t>(std::numeric_limits<int>::max())));
}

} // namespace

void PhoneStream::TlsFreer::operator()(SSL* tls) const {
    SSL_free(tls);
}

PhoneStream::PhoneStream(int socket) : socket_(socket) {}

PhoneStream::~PhoneStream() = default;

std::size_t PhoneStream::readSome(std::span<std::byte> bytes) {
    if (tls_) {
        const int got = SSL_read(tls_.get(), bytes.data(), tlsLength(bytes.size()));
        return got > 0 ? static_cast<std::size_t>(got) : 0;
    }
    for (;;) {
        const ssize_t got = ::recv(socket_, bytes.data(), bytes.size(), 0);
        if (got >= 0 || errno != EINTR)
            return got > 0 ? static_cast<std::size_t>(got) : 0;
    }
}

bool PhoneStream::read(std::span<std::byte> bytes) {
    while (!bytes.empty()) {
        const std::size_t got = readSome(bytes);
        if (got == 0)
            return false;
        bytes = bytes.subspan(got);
    }
    return true;
}

bool PhoneStream::write(ByteView bytes) {
    while (!bytes.empty()) {
        const ssize_t sent =
            tls_ ? SSL_write(tls_.get(), bytes.data(), tlsLength(bytes.size()))
                 : ::send(socket_, bytes.data(), bytes.size(), PhoneSockets::noSignal);
        if (sent <= 0 && (tls_ || errno != EINTR))
            return false;
        bytes = bytes.subspan(static_cast<std::size_t>(std::max<ssize_t>(sent, 0)));
    }
    return true;
}

std::optional<QVariantMap> PhoneStream::readMessage() {
    std::array<std::byte, 4> head{};
    if (!read(head))
        return std::nullopt;
    std::size_t length = 0;
    for (const std::byte each : head)
        length = length << 8 | std::to_integer<std::size_t>(each);
    if (length > PlistCodec::longest)
        return std::nullopt;
    Bytes message(length);
    return read(message) ? PlistCodec::decode(message) : std::nullopt;
}

bool PhoneStream::writeMessage(const QVariantMap& message, PlistForm form) {
    const Bytes list = PlistCodec::encode(message, form);
    Bytes packet;
    packet.reserve(list.size() + 4);
    for (int shift = 24; shift >= 0; shift -= 8)
        packet.push_back(static_cast<std::byte>(list.size() >> shift));
    packet.insert(packet.end(), list.begin(), list.end());
    return write(packet);
}

bool PhoneStream::startTls(SSL_CTX* context) {
    if (context == nullptr)
        return false;
    tls_.reset(SSL_new(context));
    return tls_ && SSL_set_fd(tls_.get(), socket_) == 1 && SSL_accept(tls_.get()) == 1;
}

void PhoneStream::endTls() {
    // The first call says goodbye, the second waits for the host's.
    if (tls_ && SSL_shutdown(tls_.get()) == 0)
        SSL_shutdown(tls_.get());
    tls_.reset();
}

bool PhoneStream::pause(std::chrono::milliseconds time) {
    if (time <= std::chrono::milliseconds::zero())
        return true;
    // Without events asked for, only the end of the connection wakes it.
    pollfd waiting{socket_, 0, 0};
    const auto end = std::chrono::steady_clock::now() + time;
    for (;;) {
        const auto left =
            std::chrono::ceil<std::chrono::milliseconds>(end - std::chrono::steady_clock::now());
        const int woken =
            ::poll(&waiting, 1,
                   static_cast<int>(std::clamp<long>(static_cast<long>(left.count()), 0, 60'000)));
        if (woken > 0)
            return false;
        if (std::chrono::steady_clock::now() >= end)
            return true;
    }
}

void PhoneStream::shutDown() {
    ::shutdown(socket_, SHUT_RDWR);
}

} // namespace tessary
