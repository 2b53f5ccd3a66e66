#pragma once

#include "core/Bytes.h"
#include "phones/FileHandle.h"

#include <QByteArray>
#include <QString>

#include <cstdint>

namespace tessary {

/// The sockets of the virtual multiplexer, none of which children inherit.
class PhoneSockets {
public:
    /// Listens at a path, for this user only; replaces a socket that nobody listens on any more.
    /// Throws std::runtime_error.
    [[nodiscard]] static FileHandle listenAt(const QString& path);
    /// Listens at an IPv4 address; not open when that cannot be.
    [[nodiscard]] static FileHandle listenAt(const QString& address, std::uint16_t port);
    /// Not open when nobody waits any more. With a large buffer for what the phone sends.
    [[nodiscard]] static FileHandle accept(int listener);
    /// Neither end blocks. Throws std::runtime_error.
    static void makePipe(FileHandle& out, FileHandle& in);
    /// False when not all of it went at once.
    [[nodiscard]] static bool sendAtOnce(int socket, ByteView bytes);
    /// A sockaddr_in as BSD lays it out: its length (16), the family (2), the port (0), the
    /// address.
    [[nodiscard]] static QByteArray bsdAddress(const QString& address);
};

} // namespace tessary
