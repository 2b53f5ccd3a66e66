#include "platform/usb/LinuxUSBReadStream.h"

#include <algorithm>

namespace tessary {

using std::chrono::steady_clock;

libusb_transfer_type libusbType(const USBPipeProperties& pipe) {
    return static_cast<libusb_transfer_type>(pipe.transferType);
}

LinuxUSBReadStream::LinuxUSBReadStream(std::vector<std::unique_ptr<LibusbTransfer>> transfers,
                                       std::uint8_t endpoint, USBPipeProperties pipe)
    : idle_(std::move(transfers)), endpoint_(endpoint), pipe_(pipe) {}

LinuxUSBReadStream::~LinuxUSBReadStream() {
    static_cast<void>(cancelAll());
}

USBCode LinuxUSBReadStream::submit(std::size_t length) {
    const bool wholePackets = pipe_.maxPacketSize == 0 || length % pipe_.maxPacketSize == 0;
    if (idle_.empty() || length == 0 || !wholePackets)
        return usb::badArgument;
    const USBCode code = idle_.back()->submit(endpoint_, libusbType(pipe_), length);
    if (code == usb::success) {
        flying_.push_back(std::move(idle_.back()));
        idle_.pop_back();
    }
    return code;
}

USBCode LinuxUSBReadStream::next(std::span<const std::byte>& data, USBTimeouts timeouts) {
    data = {};
    if (flying_.empty())
        return usb::badArgument;
    LibusbTransfer& oldest = *flying_.front();
    const auto timeout =
        std::max({timeouts.noData, timeouts.completion, std::chrono::milliseconds(1)});
    const bool inTime = oldest.waitUntil(steady_clock::now() + timeout, timeouts.stop);
    if (!inTime && !cancelAll())
        return usb::noDevice;
    const USBCode reason = timeouts.isStopped() ? usb::aborted : usb::timeout;
    const USBCode code = inTime && !cancelled_ ? oldest.result() : oldest.timeoutResult(reason);
    data = oldest.buffer().first(oldest.transferred());
    if (code != usb::success && inTime && !cancelAll())
        return code;
    // A time-out that was overtaken by the data is none: the reads behind it stay in the queue, and
    // what they got before they were cancelled is handed out like anything else.
    const std::size_t done = code == usb::success ? 1 : flying_.size();
    // Taken from the back, idle transfers are used in turn: this one last.
    for (std::size_t i = 0; i < done; ++i) {
        idle_.insert(idle_.begin(), std::move(flying_.front()));
        flying_.pop_front();
    }
    cancelled_ = cancelled_ && !flying_.empty();
    return code;
}

std::size_t LinuxUSBReadStream::inFlight() const {
    return flying_.size();
}

/// False when some had to be abandoned: the stream is of no use then.
bool LinuxUSBReadStream::cancelAll() {
    // From the newest: else one would take over the data of the one that was cancelled before it.
    cancelled_ = true;
    for (auto transfer = flying_.rbegin(); transfer != flying_.rend(); ++transfer)
        (*transfer)->cancel();
    const auto until = steady_clock::now() + LibusbTransfer::cancelBound;
    bool settled = true;
    for (const auto& transfer : flying_)
        settled = transfer->settle(until) && settled;
    return settled;
}

} // namespace tessary
