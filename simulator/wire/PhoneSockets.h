#pragma once

#include "base/local/FileHandle.h"
#include "base/values/Bytes.h"

#include <QByteArray>
#include <QString>

#include <cstdint>
#include <netinet/in.h>

namespace tessary {

/// The sockets of the virtual phones; children inherit none that is made here.
class PhoneSockets {
public:
    /// A flag for send(): no signal when the other side is gone.
    static const int noSignal;

    /// A port of this machine, out of reach for others.
    [[nodiscard]] static sockaddr_in loopback(std::uint16_t port);
    /// The port that a socket is bound to; 0 for none.
    [[nodiscard]] static std::uint16_t portOf(const FileHandle& socket);
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
