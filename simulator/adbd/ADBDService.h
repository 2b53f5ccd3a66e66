#pragma once

#include "base/values/Bytes.h"

namespace tessary {

/// One service that a host has opened on a virtual adbd: what answers its bytes. Used by the
/// thread of its connection.
class ADBDService {
public:
    virtual ~ADBDService() = default;

    /// Bytes from the host.
    virtual void receive(ByteView bytes) = 0;
    /// The next bytes for the host, at most `most`; empty when there are none at the moment.
    [[nodiscard]] virtual Bytes produce(std::size_t most) = 0;
    /// A little of what produce() will want, done while the host is busy; false when there is
    /// nothing of the kind.
    [[nodiscard]] virtual bool workAhead() {
        return false;
    }
    /// Whether the service ends once everything that it produced has been taken.
    [[nodiscard]] virtual bool isOver() const = 0;
};

} // namespace tessary
