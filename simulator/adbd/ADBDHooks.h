#pragma once

#include <QByteArray>

#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

namespace tessary {

/// What may step in while a virtual adbd works; this one never does, and a daemon with it does
/// everything right. Called on the threads of the connections, several at a time.
class ADBDHooks {
public:
    /// `megabytesPerSecond` (of 10^6 bytes) is the pace of files' contents; 0 for no limit.
    explicit ADBDHooks(double megabytesPerSecond = 0) : pace_(megabytesPerSecond) {}
    virtual ~ADBDHooks() = default;
    ADBDHooks(const ADBDHooks&) = delete;
    ADBDHooks& operator=(const ADBDHooks&) = delete;

    /// A service was asked for: "shell:ls …", "sync:".
    virtual void serviceAsked(const QByteArray& /*name*/) {}
    /// The sync service or a shell was asked for one thing: a path, or a command line.
    virtual void requestAsked(const QByteArray& /*what*/) {}
    /// The strict shell refused a command line.
    virtual void lineRefused(const QByteArray& /*line*/) {}

    /// Another output of a command line, with the exit status 0; no value leaves both.
    [[nodiscard]] virtual std::optional<QByteArray> rewrite(const QByteArray& /*line*/) {
        return std::nullopt;
    }
    /// Service data passed in either direction; false cuts the connection.
    [[nodiscard]] virtual bool passes(std::size_t /*bytes*/) {
        return true;
    }

    [[nodiscard]] virtual bool isReadOnly() {
        return false;
    }
    /// How many of the next `bytes` of a file's content, behind the first `at`, have room.
    [[nodiscard]] virtual std::size_t roomFor(std::uint64_t /*at*/, std::size_t bytes) {
        return bytes;
    }
    /// Asked of each piece of a file's content on its way, either direction; true changes a byte.
    [[nodiscard]] virtual bool garbles() {
        return false;
    }
    /// Added to each size that the phone tells.
    [[nodiscard]] virtual std::int64_t sizeLie() {
        return 0;
    }
    /// Names that sync listings hold besides the true ones, and that can be pulled.
    [[nodiscard]] virtual std::vector<QByteArray> extraNames() {
        return {};
    }
    [[nodiscard]] virtual double megabytesPerSecond() {
        return pace_;
    }

private:
    const double pace_;
};

} // namespace tessary
