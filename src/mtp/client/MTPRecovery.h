#pragma once

#include "mtp/client/MTPInterfaceConnection.h"
#include "mtp/client/MTPTransport.h"

#include <chrono>
#include <cstdint>

namespace tessary {

// Two steps that bring the pipes of a broken-off transaction to rest. Blocking, bounded.

/// How long a device may be busy with a cancellation, and how long the rest of a broken-off data
/// phase is read at the most.
inline constexpr std::chrono::seconds mtpRecoveryLimit{10};

/// Asks the device to drop a transaction and waits until it has. False when it does not know the
/// request.
///
/// The still image class's CancelRequest (0x21, 0x64) carries six little-endian bytes: u16 0x4001,
/// u32 transaction ID. GetDeviceStatus (0xA1, 0x67) answers u16 length, u16 response code, and a
/// u32 for each halted endpoint.
[[nodiscard]] bool cancelMTPTransaction(const MTPInterfaceConnection& connection,
                                        std::uint32_t transactionID);

/// Reads and drops what the device still sends, until it is quiet.
[[nodiscard]] MTPPipeState drainMTPPipe(const MTPInterfaceConnection& connection);

} // namespace tessary
