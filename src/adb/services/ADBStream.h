#pragma once

#include "base/values/Bytes.h"
#include "platform/net/StreamSocket.h"

#include <QByteArray>
#include <QByteArrayList>

#include <memory>
#include <span>

namespace tessary {

/// A byte stream to one service of a phone. Used by one thread at a time; ended when it goes.
/// Failures are Error(ADBError); CancellationError soon after `wait.stop` asks for it.
class ADBStream {
public:
    virtual ~ADBStream() = default;

    /// Waits until bytes are there and takes them, at most as many as there is room for. 0 when the
    /// service has ended.
    [[nodiscard]] virtual std::size_t read(std::span<std::byte> to, const Wait& wait) = 0;
    /// Hands all bytes over. `left` shrinks as they go: what was stopped can be finished later.
    virtual void writeOn(ByteView& left, const Wait& wait) = 0;
    void write(ByteView bytes, const Wait& wait) {
        writeOn(bytes, wait);
    }
    /// Whether read() would return at once: of an idle stream that it has ended. Never blocks.
    [[nodiscard]] virtual bool hasInput() const = 0;
};

/// One phone whose adbd can be reached, in one of the ways there are. Thread-safe and blocking.
/// Failures are Error(ADBError); CancellationError soon after `wait.stop` asks for it.
class ADBConnection {
public:
    virtual ~ADBConnection() = default;

    /// Opens a stream to a service ("sync:", "shell,v2,raw:ls"). ADBError::refused when the phone
    /// does not have it.
    [[nodiscard]] virtual std::unique_ptr<ADBStream> open(const QByteArray& service,
                                                          const Wait& wait) = 0;
    /// What the phone, and this way to it, can do ("stat_v2", "ls_v2", "shell_v2").
    [[nodiscard]] virtual QByteArrayList features(const Wait& wait) = 0;
    /// Nothing is asked for a while: what this way holds may be given up until the next call.
    virtual void release() {}
    /// The programs that keep this one from the phone right now; never throws.
    [[nodiscard]] virtual QStringList programsHolding() {
        return {};
    }
};

} // namespace tessary
