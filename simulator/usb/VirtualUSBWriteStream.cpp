#include "simulator/usb/VirtualUSBWriteStream.h"

namespace tessary {

VirtualUSBWriteStream::VirtualUSBWriteStream(std::shared_ptr<VirtualUSBPort> port,
                                             VirtualUSBPipe& pipe, std::size_t requestSize,
                                             std::size_t depth)
    : port_(std::move(port)), pipe_(pipe), buffers_(depth, Bytes(requestSize)) {}

std::span<std::byte> VirtualUSBWriteStream::buffer() {
    if (lengths_.size() == buffers_.size())
        return {};
    return buffers_[(first_ + lengths_.size()) % buffers_.size()];
}

USBCode VirtualUSBWriteStream::submit(std::size_t length) {
    if (length > buffer().size())
        return usb::badArgument;
    if (!port_->isPlugged())
        return usb::noDevice;
    lengths_.push_back(length);
    return usb::success;
}

USBCode VirtualUSBWriteStream::next(USBTransferred& done, USBTimeouts timeouts) {
    done = {};
    if (lengths_.empty())
        return usb::badArgument;
    const ByteView bytes = ByteView(buffers_[first_]).first(lengths_.front());
    USBCode code = port_->isPlugged() ? usb::success : usb::noDevice;
    if (code == usb::success)
        code = timeouts.isStopped() ? usb::aborted : pipe_.hostWrite(bytes, done.count, timeouts);
    lengths_.pop_front();
    first_ = (first_ + 1) % buffers_.size();
    if (code != usb::success)
        lengths_.clear();
    return code;
}

} // namespace tessary
