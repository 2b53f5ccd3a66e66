#pragma once

#include "mtp/protocol/MTPError.h"
#include "mtp/protocol/MTPTypes.h"

#include <chrono>
#include <cstdint>
#include <functional>
#include <optional>
#include <stop_token>

namespace tessary {

/// Takes the next bytes of a payload as they arrive; they are valid during the call only. An
/// exception breaks the transfer off and reaches the caller.
using MTPDataSink = std::function<void(ByteView)>;

/// Fills the front of a buffer with the next bytes of a payload and tells how many; 0 at the end.
/// An exception breaks the transfer off and reaches the caller.
using MTPDataSource = std::function<std::size_t(std::span<std::byte>)>;

/// What goes with one streamed payload.
struct MTPStreamOptions {
    /// The payload's true size in bytes, for containers whose 32-bit length cannot tell it.
    std::optional<std::uint64_t> expectedSize;
    /// Told how many bytes of an upload have left.
    std::function<void(qint64 sent)> progress;
    /// Told, before the bytes of an upload, that the device has accepted the object, with the
    /// handle that it announced, or 0.
    std::function<void(std::uint32_t handle)> accepted;
    /// Ends the transfer between two pieces with CancellationError.
    std::stop_token stop;
};

/// Which way the payload of a broken-off transaction was going.
enum class MTPDataPhase { toHost, toDevice };

/// What recover() found, and how it left the pipes.
enum class MTPPipeState {
    quiet,   ///< nothing was left in them
    drained, ///< what was left in them has been dropped
    busy,    ///< the device is still at work: nothing else can be asked of it yet
};

/// What bounds the waits of a transport.
struct MTPWaits {
    /// How long a silent device is waited for unless somebody says otherwise.
    static constexpr std::chrono::milliseconds pipeTimeout{5000};
    /// How long a device may be busy with a cancellation, and how long the rest of a broken-off
    /// data phase is read at the most.
    static constexpr std::chrono::seconds recoveryLimit{10};

    std::chrono::milliseconds patience{pipeTimeout}; ///< for a silent device, in each pipe call
    std::stop_token stop; ///< ends any wait early, with CancellationError
};

} // namespace tessary
