#pragma once

#include "platform/usb/USBCode.h"

#include <libusb-1.0/libusb.h>

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <stop_token>

namespace tessary {

class LibusbHandle;

/// One transfer at a time with a buffer of its own, which can be used again once it is finished.
/// The buffer is never a caller's: what the system does not let go of in time is abandoned, memory
/// and all, and nobody's memory is written to later. Used by one thread.
class LibusbTransfer {
public:
    enum class Memory {
        heap,
        mapped ///< memory of the host controller's driver, where it offers any: saves a copy
    };

    /// Null when there is no memory. The handle must outlive the transfer.
    [[nodiscard]] static std::unique_ptr<LibusbTransfer> make(const LibusbHandle& handle,
                                                              std::size_t capacity, Memory memory);

    /// Cancels what is in flight and waits for it.
    ~LibusbTransfer();
    LibusbTransfer(const LibusbTransfer&) = delete;
    LibusbTransfer& operator=(const LibusbTransfer&) = delete;

    [[nodiscard]] std::span<std::byte> buffer() const;

    /// Starts a bulk or interrupt transfer of the buffer's first `length` bytes.
    [[nodiscard]] USBCode submit(std::uint8_t endpoint, libusb_transfer_type type,
                                 std::size_t length);
    /// Starts a control transfer whose 8 bytes of set-up and whose data are in the buffer.
    [[nodiscard]] USBCode submitControl();

    /// Whether it finished before `until`, or before a stop was asked for. It stays in flight when
    /// it did not.
    [[nodiscard]] bool waitUntil(std::chrono::steady_clock::time_point until,
                                 const std::stop_token* stop = nullptr) const;
    /// Asks the system to stop it, without waiting. A cancelled transfer may still complete.
    void cancel();
    /// Waits for a cancelled transfer. False when it had to be abandoned: never use it again.
    [[nodiscard]] bool settle(std::chrono::steady_clock::time_point until);
    /// Waits until `until`, then cancels. What had arrived or left by then counts: usb::timeout
    /// only when the transfer is not complete, usb::aborted when a stop was the reason.
    /// usb::noDevice when it had to be abandoned.
    [[nodiscard]] USBCode finish(std::chrono::steady_clock::time_point until,
                                 const std::stop_token* stop = nullptr);

    /// Bytes transferred, of a finished transfer, whatever its result.
    [[nodiscard]] std::size_t transferred() const;
    [[nodiscard]] USBCode result() const;
    /// The result of a transfer that was cancelled because its time had passed. Host controllers
    /// differ in how such a one ends; what counts is whether it completed after all. `reason` is
    /// the code of one that did not.
    [[nodiscard]] USBCode timeoutResult(USBCode reason = usb::timeout) const;

    /// How long a cancelled transfer may take to end before it is abandoned.
    static constexpr std::chrono::milliseconds cancelBound{2000};

private:
    struct State;
    explicit LibusbTransfer(std::unique_ptr<State> state);
    [[nodiscard]] USBCode start();
    [[nodiscard]] bool completed() const;

    std::unique_ptr<State> state_;
};

} // namespace tessary
