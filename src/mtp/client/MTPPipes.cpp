#include "mtp/client/MTPPipes.h"

#include "base/threads/CancellationError.h"

namespace tessary {

USBTimeouts MTPPipes::timeouts() const {
    return {waits.patience, waits.stop.stop_possible() ? &waits.stop : nullptr};
}

void MTPPipes::fail(std::uint8_t pipe, USBCode code) const {
    if (code == usb::aborted)
        throwIfStopped(waits.stop);
    if (code != usb::noDevice)
        connection.interface->clearPipeStallBothEnds(pipe);
    throw MTPFailure::ofUSB(code);
}

} // namespace tessary
