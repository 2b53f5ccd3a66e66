#include "platform/usb/LinuxUSBReadStream.h"

namespace tessary {

USBCode LinuxUSBReadStream::submit(std::size_t length) {
    const std::uint16_t packet = queue_.pipe().maxPacketSize;
    const bool isWholePackets = packet == 0 || length % packet == 0;
    return length == 0 || !isWholePackets ? usb::badArgument : queue_.submit(length);
}

USBCode LinuxUSBReadStream::next(std::span<const std::byte>& data, USBTimeouts timeouts) {
    const LinuxUSBTransferQueue::Done done = queue_.next(timeouts);
    data = done.bytes;
    return done.code;
}

} // namespace tessary
