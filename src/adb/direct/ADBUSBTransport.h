#pragma once

#include "adb/direct/ADBTransport.h"
#include "platform/usb/USBBus.h"

#include <QString>

#include <memory>
#include <optional>
#include <stop_token>

namespace tessary {

/// The interface by which a phone speaks adb.
struct ADBUSBInterfaceKind {
    static constexpr std::uint8_t interfaceClass = 0xFF;
    static constexpr std::uint8_t subclass = 0x42;
    static constexpr std::uint8_t protocol = 1;
};

/// The way over the cable. Header and payload are transfers of their own, and a payload that fills
/// its last packet is followed by an empty one, as adbd expects it. The interface is never taken
/// from another program.
class ADBUSBTransport final : public ADBTransport {
public:
    /// Opens the phone at `location` ("1-4.2") or, without one there, the only one with this serial
    /// number. ADBError::notFound when no such phone or no such interface is there, ::held when
    /// another program has it, ::notPermitted.
    ADBUSBTransport(USBBus& bus, const QString& location, const QString& serialNumber);
    ~ADBUSBTransport() override;

    [[nodiscard]] ADBMessage read() override;
    void write(const ADBMessage& message) override;
    void close() override;

    /// The entry that is meant; no value when it is not attached or not certain.
    [[nodiscard]] static std::optional<USBDeviceEntry> find(USBBus& bus, const QString& location,
                                                            const QString& serialNumber);

private:
    [[nodiscard]] std::size_t readTransfer(std::span<std::byte> to);
    void writeTransfer(ByteView bytes);

    std::unique_ptr<USBDevice> device_;
    std::unique_ptr<USBInterface> interface_; ///< closed before the device
    std::uint8_t inPipe_ = 0;
    std::uint8_t outPipe_ = 0;
    std::size_t packetSize_ = 0; ///< bytes
    Bytes buffer_;               ///< of the thread that reads
    std::stop_source closing_;   ///< stopped by close()
    const std::stop_token isClosed_ = closing_.get_token();
};

} // namespace tessary
