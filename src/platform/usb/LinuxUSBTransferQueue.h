#pragma once

#include "platform/usb/LibusbTransfer.h"
#include "platform/usb/USBBus.h"

#include <deque>
#include <memory>
#include <vector>

namespace tessary {

[[nodiscard]] libusb_transfer_type libusbType(const USBPipeProperties& pipe);

/// Transfers in flight on one pipe; the kernel works through them in order without this program.
/// Used by one thread.
class LinuxUSBTransferQueue {
public:
    /// One that is over. Its buffer stays valid until the next call of submit() or next().
    struct Done {
        USBCode code = usb::badArgument;  ///< usb::noDevice as well when some had to be abandoned
        std::span<const std::byte> bytes; ///< what was transferred of the oldest one's buffer
        std::size_t transferred = 0;      ///< in all that ended with it
    };

    LinuxUSBTransferQueue(std::vector<std::unique_ptr<LibusbTransfer>> transfers,
                          std::uint8_t endpoint, USBPipeProperties pipe);
    /// Takes at most LibusbTransfer::cancelBound, also when the device is gone.
    ~LinuxUSBTransferQueue();
    LinuxUSBTransferQueue(const LinuxUSBTransferQueue&) = delete;
    LinuxUSBTransferQueue& operator=(const LinuxUSBTransferQueue&) = delete;

    [[nodiscard]] const USBPipeProperties& pipe() const {
        return pipe_;
    }
    /// The memory of the next transfer; empty when all are in flight.
    [[nodiscard]] std::span<std::byte> buffer() const;
    USBCode submit(std::size_t length);
    /// Waits for the oldest one. With any code but usb::success all others end, too.
    [[nodiscard]] Done next(USBTimeouts timeouts);
    [[nodiscard]] std::size_t inFlight() const {
        return flying_.size();
    }

private:
    [[nodiscard]] bool cancelAll();

    std::vector<std::unique_ptr<LibusbTransfer>> idle_;
    std::deque<std::unique_ptr<LibusbTransfer>> flying_; ///< oldest first
    bool cancelled_ = false;                             ///< what is flying was cancelled
    const std::uint8_t endpoint_;
    const USBPipeProperties pipe_;
};

} // namespace tessary
