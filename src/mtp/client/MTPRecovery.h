#pragma once

#include "mtp/client/MTPInterfaceConnection.h"
#include "mtp/client/MTPTransfers.h"

#include <cstdint>

namespace tessary {

// Two steps that bring the pipes of a broken-off transaction to rest. Blocking, each as long as
// `waits` says at the most.

/// Asks the device to drop a transaction and waits until it has. False when it does not know the
/// request.
///
/// The still image class's CancelRequest (0x21, 0x64) carries six little-endian bytes: u16 0x4001,
/// u32 transaction ID. GetDeviceStatus (0xA1, 0x67) answers u16 length, u16 response code, and a
/// u32 for each halted endpoint.
[[nodiscard]] bool cancelMTPTransaction(const MTPInterfaceConnection& connection,
                                        std::uint32_t transactionID, const MTPWaits& waits);

/// Reads and drops what the device still sends, until it is quiet.
[[nodiscard]] MTPPipeState drainMTPPipe(const MTPInterfaceConnection& connection,
                                        const MTPWaits& waits);

} // namespace tessary
