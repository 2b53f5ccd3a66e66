#pragma once

#include "mtp/protocol/MTPCodes.h"
#include "simulator/mtp/VirtualBehaviour.h"
#include "simulator/storage/VirtualStorage.h"
#include "simulator/usb/VirtualUSBBus.h"
#include "simulator/wire/Guarded.h"

#include <memory>
#include <vector>

namespace tessary {

class MTPResponder;
class MTPResponderHooks;

struct VirtualAndroidConfig {
    std::uint16_t vendorID = 0x18D1;
    std::uint16_t productID = 0x4EE1;
    QString vendorName = QStringLiteral("Google");
    QString productName = QStringLiteral("Pixel 7");
    QString serialNumber{}; ///< empty: none
    QString location = QStringLiteral("1-1");
    std::uint16_t maxPacketSize = 512; ///< 64, 512 or 1024
    std::vector<VirtualUSBInterfaceDescription> interfaces =
        std::vector<VirtualUSBInterfaceDescription>(1);
    /// Ids are 0x00010001, 0x00020001, … in this order.
    std::vector<VirtualStorage> storages{};
    int battery = 80; ///< percent
    bool locked = false;
    double megabytesPerSecond = 0; ///< of 10^6 bytes, in data phases; 0 for no limit
    VirtualBehaviour behaviour{};
};

/// A virtual Android phone in MTP mode. Thread-safe. It answers on a thread of its own while it is
/// plugged in; object handles are new at each plugging.
class VirtualAndroid : public VirtualUSBFunction {
public:
    explicit VirtualAndroid(VirtualAndroidConfig config);
    /// Unplugs it and waits for its thread.
    ~VirtualAndroid() override;
    VirtualAndroid(const VirtualAndroid&) = delete;
    VirtualAndroid& operator=(const VirtualAndroid&) = delete;

    /// Plugs it in at the location of its configuration, when it is not plugged in anywhere.
    /// Returns the id of the attachment, or 0.
    std::uint64_t plugInto(VirtualUSBBus& bus);
    /// Pulls the cable and waits for the phone's thread. Not from a hook.
    void unplug();
    [[nodiscard]] bool isPlugged() const;
    /// How many reads the host has asked for that this phone has nothing for yet.
    [[nodiscard]] std::size_t waitingReads() const;

    [[nodiscard]] const VirtualAndroidConfig& config() const {
        return config_;
    }

    /// Tells the host of something, with a handle or a storage.
    void sendEvent(MTPEventCode code, std::uint32_t parameter);
    /// How many of those the host has not read.
    [[nodiscard]] std::size_t unreadEvents() const;

    void setLocked(bool locked);
    void setBattery(int percent);
    /// The storages with their current free space.
    [[nodiscard]] std::vector<VirtualStorage> storages() const;

    /// May be changed at any time; a transaction under way sees it from its next step on.
    [[nodiscard]] Guarded<VirtualBehaviour>& behaviour();

    [[nodiscard]] VirtualUSBDescription description() const override;
    void plugged(std::shared_ptr<VirtualUSBPort> port) override;
    void unplugged() override;
    USBCode control(const USBControlRequest& request, std::span<std::byte> data,
                    std::size_t& transferred) override;
    void haltCleared(std::uint8_t pipe, bool needed) override;

protected:
    /// A phone in whose work something may step in.
    VirtualAndroid(VirtualAndroidConfig config, std::unique_ptr<MTPResponderHooks> hooks);
    [[nodiscard]] MTPResponderHooks& hooks();

private:
    const VirtualAndroidConfig config_;
    std::unique_ptr<MTPResponder> responder_;
    mutable std::mutex mutex_; ///< guards port_
    std::shared_ptr<VirtualUSBPort> port_;
};

} // namespace tessary
