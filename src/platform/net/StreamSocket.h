#pragma once

#include "base/local/FileHandle.h"
#include "base/values/Bytes.h"

#include <QString>

#include <chrono>
#include <cstdint>
#include <span>
#include <stop_token>

namespace tessary {

/// How long a blocking call may wait: until it is asked to stop, and at most for so long without
/// anything moving.
struct Wait {
    std::stop_token stop;
    std::chrono::milliseconds silence{30'000};
};

/// A connected stream socket. One thread may read while another one writes. Failures are
/// Error(NetworkError); CancellationError soon after `wait.stop` asks for it.
class StreamSocket {
public:
    /// Connects to an IPv4 or IPv6 address in figures ("::1" or "[::1]", with "%interface" behind
    /// it where it is link-local), or to "localhost". Names are not looked up.
    [[nodiscard]] static StreamSocket connectTCP(const QString& host, std::uint16_t port,
                                                 const Wait& wait);
    /// Connects to a socket in the file system.
    [[nodiscard]] static StreamSocket connectLocal(const QString& path, const Wait& wait);

    /// Waits until bytes are there and takes them, at most as many as there is room for. 0 when the
    /// other side has ended the stream.
    [[nodiscard]] std::size_t read(std::span<std::byte> to, const Wait& wait);
    /// Hands all bytes over. `left` shrinks as they go: what was stopped can be finished later.
    void writeOn(ByteView& left, const Wait& wait);
    void write(ByteView bytes, const Wait& wait) {
        writeOn(bytes, wait);
    }
    /// Whether a read() would return at once. Never blocks.
    [[nodiscard]] bool hasInput() const;
    /// Ends the stream in both directions; a read() or write() under way fails. From any thread.
    void shutDown();

private:
    explicit StreamSocket(FileHandle socket) : socket_(std::move(socket)) {}
    [[nodiscard]] static StreamSocket connectTo(const void* address, std::size_t size,
                                                const QString& name, const Wait& wait);
    void await(short events, const Wait& wait) const;

    FileHandle socket_; ///< does not block
};

} // namespace tessary
