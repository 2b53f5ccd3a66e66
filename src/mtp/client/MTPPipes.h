#pragma once

#include "mtp/client/MTPInterfaceConnection.h"
#include "mtp/client/MTPTransfers.h"

namespace tessary {

/// The open pipes of one device, and the bounds of the calls on them, which may change meanwhile.
/// Both outlive it.
struct MTPPipes {
    const MTPInterfaceConnection& connection;
    const MTPWaits& waits;

    [[nodiscard]] USBTimeouts timeouts() const;
    /// Throws for a call that failed: CancellationError when a stop ended it, which leaves the
    /// pipes as they are; else the halt is cleared, and MTPFailure tells `code`.
    [[noreturn]] void fail(std::uint8_t pipe, USBCode code) const;
};

} // namespace tessary
