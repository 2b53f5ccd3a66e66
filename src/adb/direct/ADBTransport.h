#pragma once

#include "adb/protocol/ADBMessage.h"

#include <chrono>

namespace tessary {

/// Carries messages between this computer and a phone's adbd. One thread reads and another one
/// writes; close() is called from any. Failures are Error(ADBError).
class ADBTransport {
public:
    /// How long a phone may take no bytes before it counts as lost.
    static constexpr std::chrono::seconds writePatience{10};

    virtual ~ADBTransport() = default;

    /// Waits for a whole message, without a bound: until close(). A payload above
    /// ADBConstants::maxPayloadV2 and a header that is none are ADBError::nonsense.
    [[nodiscard]] virtual ADBMessage read() = 0;
    virtual void write(const ADBMessage& message) = 0;
    /// Ends what read() and write() wait for soon, with an error, and every later call.
    virtual void close() = 0;
};

} // namespace tessary
