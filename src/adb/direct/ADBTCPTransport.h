#pragma once

#include "adb/direct/ADBTransport.h"
#include "platform/net/StreamSocket.h"

namespace tessary {

/// The way over the network, to a phone that was told to listen ("adb tcpip 5555").
class ADBTCPTransport final : public ADBTransport {
public:
    /// ADBError::notFound when nobody answers at the address, which is in figures.
    ADBTCPTransport(const QString& host, std::uint16_t port, const Wait& wait);

    [[nodiscard]] ADBMessage read() override;
    void write(const ADBMessage& message) override;
    void close() override;

private:
    void readExactly(std::span<std::byte> to);

    StreamSocket socket_;
};

} // namespace tessary
