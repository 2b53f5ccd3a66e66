#pragma once

#include "platform/usb/LibusbTransfer.h"
#include "platform/usb/USBBus.h"

#include <deque>
#include <memory>
#include <vector>

namespace tessary {

[[nodiscard]] libusb_transfer_type libusbType(const USBPipeProperties& pipe);

/// Transfers in flight on one pipe; the kernel works through them in order without this program.
class LinuxUSBStream : public USBStream {
public:
    LinuxUSBStream(std::vector<std::unique_ptr<LibusbTransfer>> transfers, std::uint8_t endpoint,
                   USBPipeProperties pipe);
    /// Takes at most LibusbTransfer::cancelBound, also when the device is gone.
    ~LinuxUSBStream() override;
    LinuxUSBStream(const LinuxUSBStream&) = delete;
    LinuxUSBStream& operator=(const LinuxUSBStream&) = delete;

    [[nodiscard]] std::span<std::byte> buffer() override;
    USBCode submit(std::size_t length) override;
    /// usb::noDevice as well when some had to be abandoned.
    USBCode next(USBTransferred& done, USBTimeouts timeouts) override;
    [[nodiscard]] std::size_t inFlight() const override {
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
