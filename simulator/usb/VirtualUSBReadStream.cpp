#include "simulator/usb/VirtualUSBReadStream.h"

namespace tessary {

VirtualUSBReadStream::VirtualUSBReadStream(std::shared_ptr<VirtualUSBPort> port,
                                           VirtualUSBPipe& pipe, std::size_t requestSize,
                                           std::size_t depth)
    : port_(std::move(port)), pipe_(pipe), requestSize_(requestSize), depth_(depth) {}

VirtualUSBReadStream::~VirtualUSBReadStream() {
    cancel();
    pipe_.recycle(std::move(delivered_));
}

USBCode VirtualUSBReadStream::submit(std::size_t length) {
    const bool wholePackets = length > 0 && length % pipe_.packetSize() == 0;
    if (!wholePackets || length > requestSize_ || lengths_.size() == depth_)
        return usb::badArgument;
    if (!port_->isPlugged())
        return usb::noDevice;
    lengths_.push_back(length);
    pipe_.expectRead(length);
    return usb::success;
}

USBCode VirtualUSBReadStream::next(USBTransferred& done, USBTimeouts timeouts) {
    done = {};
    if (lengths_.empty())
        return usb::badArgument;
    const std::size_t length = lengths_.front();
    lengths_.pop_front();
    const USBCode code = pipe_.hostTake(delivered_, length, timeouts);
    done = {delivered_.bytes(), delivered_.bytes().size()};
    if (code != usb::success)
        cancel();
    return code;
}

void VirtualUSBReadStream::cancel() {
    lengths_.clear();
    pipe_.forgetReads();
}

} // namespace tessary
