#pragma once

#include "platform/usb/LibusbTransfer.h"
#include "platform/usb/USBBus.h"

#include <deque>
#include <memory>
#include <vector>

namespace tessary {

[[nodiscard]] libusb_transfer_type libusbType(const USBPipeProperties& pipe);

/// Reads in flight on one pipe; the kernel works through them in order without this program. What
/// next() hands out lies in the transfer's own buffer.
class LinuxUSBReadStream : public USBReadStream {
public:
    LinuxUSBReadStream(std::vector<std::unique_ptr<LibusbTransfer>> transfers,
                       std::uint8_t endpoint, USBPipeProperties pipe);
    /// Takes at most LibusbTransfer::cancelBound, also when the device is gone.
    ~LinuxUSBReadStream() override;

    USBCode submit(std::size_t length) override;
    USBCode next(std::span<const std::byte>& data, USBTimeouts timeouts) override;
    [[nodiscard]] std::size_t inFlight() const override;

private:
    [[nodiscard]] bool cancelAll();

    std::vector<std::unique_ptr<LibusbTransfer>> idle_;
    std::deque<std::unique_ptr<LibusbTransfer>> flying_; ///< oldest first
    bool cancelled_ = false;                             ///< what is flying was cancelled
    std::uint8_t endpoint_;
    USBPipeProperties pipe_;
};

} // namespace tessary
