#include "platform/usb/LinuxUSBStream.h"

#include <algorithm>

namespace tessary {

using std::chrono::steady_clock;

libusb_transfer_type libusbType(const USBPipeProperties& pipe) {
    return static_cast<libusb_transfer_type>(pipe.transferType);
}

LinuxUSBStream::LinuxUSBStream(std::vector<std::unique_ptr<LibusbTransfer>> transfers,
                               std::uint8_t endpoint, USBPipeProperties pipe)
    : idle_(std::move(transfers)), endpoint_(endpoint), pipe_(pipe) {}

LinuxUSBStream::~LinuxUSBStream() {
    static_cast<void>(cancelAll());
}

std::span<std::byte> LinuxUSBStream::buffer() {
    return idle_.empty() ? std::span<std::byte>() : idle_.back()->buffer();
}

USBCode LinuxUSBStream::submit(std::size_t length) {
    const std::uint16_t packet = pipe_.maxPacketSize;
    const bool isWholePackets = length > 0 && (packet == 0 || length % packet == 0);
    if (idle_.empty() || (pipe_.direction == USBDirection::in && !isWholePackets))
        return usb::badArgument;
    const USBCode code = idle_.back()->submit(endpoint_, libusbType(pipe_), length);
    if (code == usb::success) {
        flying_.push_back(std::move(idle_.back()));
        idle_.pop_back();
    }
    return code;
}

USBCode LinuxUSBStream::next(USBTransferred& done, USBTimeouts timeouts) {
    done = {};
    if (flying_.empty())
        return usb::badArgument;
    LibusbTransfer& oldest = *flying_.front();
    const auto timeout = std::max(timeouts.limit, std::chrono::milliseconds(1));
    const bool inTime = oldest.waitUntil(steady_clock::now() + timeout, timeouts.stop);
    if (!inTime && !cancelAll())
        return usb::noDevice;
    const USBCode reason = timeouts.isStopped() ? usb::aborted : usb::timeout;
    const USBCode code = inTime && !cancelled_ ? oldest.result() : oldest.timeoutResult(reason);
    done = {oldest.buffer().first(oldest.transferred()), oldest.transferred()};
    if (code != usb::success && inTime && !cancelAll())
        return usb::noDevice;
    // A time-out that was overtaken by the data is none: the transfers behind it stay in the queue,
    // and what became of them before they were cancelled is handed out like anything else.
    const std::size_t over = code == usb::success ? 1 : flying_.size();
    // Taken from the back, idle transfers are used in turn: this one last.
    for (std::size_t i = 0; i < over; ++i) {
        done.count += i == 0 ? 0 : flying_.front()->transferred();
        idle_.insert(idle_.begin(), std::move(flying_.front()));
        flying_.pop_front();
    }
    cancelled_ = cancelled_ && !flying_.empty();
    return code;
}

/// False when some had to be abandoned: the queue is of no use then.
bool LinuxUSBStream::cancelAll() {
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
