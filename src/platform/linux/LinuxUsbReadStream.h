#pragma once

#include "platform/UsbBus.h"
#include "platform/linux/LibusbTransfer.h"

#include <deque>
#include <memory>
#include <vector>

namespace tessary {

[[nodiscard]] libusb_transfer_type libusbType(const UsbPipeProperties& pipe);

/// Reads in flight on one pipe; the kernel works through them in order without this program. What
/// next() hands out lies in the transfer's own buffer.
class LinuxUsbReadStream : public UsbReadStream {
public:
    LinuxUsbReadStream(std::vector<std::unique_ptr<LibusbTransfer>> transfers,
                       std::uint8_t endpoint, UsbPipeProperties pipe);
    /// Takes at most LibusbTransfer::cancelBound, also when the device is gone.
    ~LinuxUsbReadStream() override;

    UsbCode submit(std::size_t length) override;
    UsbCode next(std::span<const std::byte>& data, UsbTimeouts timeouts) override;
    [[nodiscard]] std::size_t inFlight() const override;

private:
    [[nodiscard]] bool cancelAll();

    std::vector<std::unique_ptr<LibusbTransfer>> idle_;
    std::deque<std::unique_ptr<LibusbTransfer>> flying_; ///< oldest first
    bool cancelled_ = false;                             ///< what is flying was cancelled
    std::uint8_t endpoint_;
    UsbPipeProperties pipe_;
};

} // namespace tessary
