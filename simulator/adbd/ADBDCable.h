#pragma once

#include "simulator/adbd/VirtualADBD.h"
#include "simulator/usb/VirtualUSBBus.h"

#include <memory>
#include <mutex>
#include <thread>

namespace tessary {

/// The USB interface 255/66/1 of a virtual adbd. As strict as phones' drivers: header and payload
/// are transfers of their own, and a transfer from the host that fills its last packet ends only by
/// an empty one. Thread-safe.
class ADBDCable final : public VirtualUSBFunction {
public:
    /// `adbd` must outlive it.
    ADBDCable(VirtualADBD& adbd, QString serialNumber);
    /// unplug().
    ~ADBDCable() override;
    ADBDCable(const ADBDCable&) = delete;
    ADBDCable& operator=(const ADBDCable&) = delete;

    void plugInto(VirtualUSBBus& bus, const QString& location);
    void unplug();

    [[nodiscard]] VirtualUSBDescription description() const override;
    void plugged(std::shared_ptr<VirtualUSBPort> port) override;
    void unplugged() override;
    USBCode control(const USBControlRequest& request, std::span<std::byte> data,
                    std::size_t& transferred) override;
    void haltCleared(std::uint8_t, bool) override {}

private:
    void carryFromHost(VirtualUSBPort& port, int socket);
    static void carryToHost(VirtualUSBPort& port, int socket);

    VirtualADBD& adbd_;
    const QString serialNumber_;
    std::mutex mutex_; ///< guards all below
    VirtualUSBBus* bus_ = nullptr;
    QString location_;
    std::shared_ptr<FileHandle> socket_; ///< to adbd while plugged in
    std::jthread fromHost_;
    std::jthread toHost_;
};

} // namespace tessary
