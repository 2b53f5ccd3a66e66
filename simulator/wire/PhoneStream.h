#pragma once

#include "simulator/wire/PlistCodec.h"

#include <openssl/types.h>

#include <chrono>
#include <memory>

namespace tessary {

/// One connection to a service of a virtual iPhone, from the phone's side: bytes over a socket,
/// plain or under TLS. Blocking: a call ends when the host sends or takes something, goes away, or
/// when the socket is shut down from elsewhere (unplugging does so). For one thread. The thread has
/// SIGPIPE blocked.
class PhoneStream {
public:
    /// The socket is the caller's.
    explicit PhoneStream(int socket);
    ~PhoneStream();
    PhoneStream(const PhoneStream&) = delete;
    PhoneStream& operator=(const PhoneStream&) = delete;

    /// False when the connection ended first.
    [[nodiscard]] bool read(std::span<std::byte> bytes);
    /// Reads what has come, at least one byte and at most the span; 0 at the end.
    [[nodiscard]] std::size_t readSome(std::span<std::byte> bytes);
    /// False when not all of it was taken.
    [[nodiscard]] bool write(ByteView bytes);

    /// A property list behind its length (32 bits, big-endian), as lockdown and most services talk.
    /// No value when the connection ended or what came is none; the connection is useless then.
    [[nodiscard]] std::optional<QVariantMap> readMessage();
    [[nodiscard]] bool writeMessage(const QVariantMap& message, PlistForm form = PlistForm::xml);

    /// The phone is TLS's server. False when the handshake fails.
    [[nodiscard]] bool startTls(SSL_CTX* context);
    /// Says goodbye in TLS and goes on in plain.
    void endTls();

    /// Waits, at most so long; false as soon as the connection is gone.
    [[nodiscard]] bool pause(std::chrono::milliseconds time);
    /// Ends the connection both ways.
    void shutDown();

private:
    struct TlsFreer {
        void operator()(SSL* tls) const;
    };

    const int socket_;
    std::unique_ptr<SSL, TlsFreer> tls_;
};

} // namespace tessary
