#pragma once

#include "base/local/FileHandle.h"
#include "platform/usb/USBBus.h"

#include <filesystem>

namespace tessary {

/// Joins a virtual device to Linux's gadget framework, so that every program of the machine meets
/// it on the bus that its kernel emulates: packets go both ways unchanged, and so do the ends of
/// transfers, halts and class requests.
class GadgetCable {
public:
    /// `interface` is open, has the three pipes of MTP with packets of 512 bytes, and outlives the
    /// cable. `functions` is where FunctionFS is mounted; the gadget may be bound once this
    /// returns. Throws std::system_error.
    GadgetCable(USBInterface& interface, const std::filesystem::path& functions);

    /// Carries packets for as long as the process lives; a gadget that is not bound waits. Throws
    /// std::system_error when FunctionFS is gone.
    [[noreturn]] void run();

private:
    [[noreturn]] void carryToHost(std::uint8_t pipe, const FileHandle& endpoint);
    [[noreturn]] void carryFromHost();
    void answer(const USBControlRequest& request, std::uint16_t length);

    USBInterface& interface_;
    FileHandle control_;
    FileHandle in_;
    FileHandle out_;
    FileHandle events_;
};

} // namespace tessary
