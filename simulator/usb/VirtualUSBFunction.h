#pragma once

#include "platform/usb/USBBus.h"

#include <QString>

#include <cstdint>
#include <memory>
#include <span>
#include <vector>

namespace tessary {

class VirtualUSBPort;

/// One interface in a virtual device's descriptor.
struct VirtualUSBInterfaceDescription {
    std::uint8_t interfaceClass = 6; ///< still image
    std::uint8_t interfaceSubclass = 1;
    std::uint8_t protocol = 1;
    /// How many it has of the three pipes of MTP: 1 bulk in, 2 bulk out, 3 interrupt in. The pipes
    /// of all interfaces are the same ones.
    std::uint8_t pipes = 3;
    QString name{};
};

/// What a virtual device tells of itself.
struct VirtualUSBDescription {
    std::uint16_t vendorID = 0;
    std::uint16_t productID = 0;
    QString vendorName;
    QString productName;
    QString serialNumber;
    std::uint16_t maxPacketSize = 512; ///< of the bulk pipes: 64, 512 or 1024 bytes
    /// Takes no command (`writePipeTO`) as long as a read of a stream waits for data: the write has
    /// timed out, at once.
    bool isDeafWhileReadWaits = false;
    /// Numbered from 0.
    std::vector<VirtualUSBInterfaceDescription> interfaces =
        std::vector<VirtualUSBInterfaceDescription>(1);
};

/// The device's side of a virtual USB device. It outlives its attachment: unplug it (through its
/// port or its bus) before it is destroyed.
class VirtualUSBFunction {
public:
    virtual ~VirtualUSBFunction() = default;

    [[nodiscard]] virtual VirtualUSBDescription description() const = 0;

    /// Plugged in: the pipes of `port` work from now on. Called by the thread that attaches.
    virtual void plugged(std::shared_ptr<VirtualUSBPort> port) = 0;
    /// Unplugged: the pipes are about to close. Any thread, its own included; must not wait.
    virtual void unplugged() = 0;

    /// A class request to the interface, called by the host's thread; quick. usb::pipeStalled
    /// refuses it.
    virtual USBCode control(const USBControlRequest& request, std::span<std::byte> data,
                            std::size_t& transferred) = 0;
    /// The host cleared a halt; `needed` is false when the pipe was not halted.
    virtual void haltCleared(std::uint8_t pipe, bool needed) = 0;
};

} // namespace tessary
