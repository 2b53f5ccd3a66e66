#include "simulator/mtp/VirtualAndroid.h"

#include "simulator/mtp/MTPResponder.h"

#include <algorithm>

namespace tessary {

VirtualAndroid::VirtualAndroid(VirtualAndroidConfig config)
    : VirtualAndroid(config, std::make_unique<MTPResponderHooks>(config.megabytesPerSecond)) {}

VirtualAndroid::VirtualAndroid(VirtualAndroidConfig config,
                               std::unique_ptr<MTPResponderHooks> hooks)
    : config_(std::move(config)),
      responder_(std::make_unique<MTPResponder>(
          MTPDeviceDescription{config_.vendorName, config_.productName, config_.serialNumber, {}},
          config_.storages, config_.locked, config_.battery, config_.behaviour, std::move(hooks))) {
}

VirtualAndroid::~VirtualAndroid() {
    unplug();
}

std::uint64_t VirtualAndroid::plugInto(VirtualUSBBus& bus) {
    return isPlugged() ? 0 : bus.attach(*this, config_.location);
}

void VirtualAndroid::unplug() {
    std::shared_ptr<VirtualUSBPort> port;
    {
        const std::lock_guard lock(mutex_);
        port = port_;
    }
    if (!port)
        return;
    port->unplug();
    port->waitUnused();
    responder_->join();
}

bool VirtualAndroid::isPlugged() const {
    const std::lock_guard lock(mutex_);
    return port_ && port_->isPlugged();
}

std::size_t VirtualAndroid::waitingReads() const {
    const std::lock_guard lock(mutex_);
    return port_ ? port_->in().waitingReads() : 0;
}

void VirtualAndroid::sendEvent(MTPEventCode code, std::uint32_t parameter) {
    responder_->sendEvent(static_cast<std::uint16_t>(code), parameter);
}

std::size_t VirtualAndroid::unreadEvents() const {
    return responder_->unreadEvents();
}

void VirtualAndroid::setLocked(bool locked) {
    responder_->store().setLocked(locked);
}

void VirtualAndroid::setBattery(int percent) {
    responder_->setBattery(std::clamp(percent, 0, 100));
}

std::vector<VirtualStorage> VirtualAndroid::storages() const {
    return responder_->store().storages();
}

MTPResponderHooks& VirtualAndroid::hooks() {
    return responder_->hooks();
}

Guarded<VirtualBehaviour>& VirtualAndroid::behaviour() {
    return responder_->behaviour();
}

VirtualUSBDescription VirtualAndroid::description() const {
    VirtualUSBDescription description;
    description.vendorID = config_.vendorID;
    description.productID = config_.productID;
    description.vendorName = config_.vendorName;
    description.productName = config_.productName;
    description.serialNumber = config_.serialNumber;
    description.maxPacketSize = config_.maxPacketSize;
    description.interfaces = config_.interfaces;
    description.isDeafWhileReadWaits = true; // as some devices are
    return description;
}

void VirtualAndroid::plugged(std::shared_ptr<VirtualUSBPort> port) {
    {
        const std::lock_guard lock(mutex_);
        port_ = port;
    }
    responder_->start(std::move(port));
}

void VirtualAndroid::unplugged() {
    responder_->unplugged();
}

USBCode VirtualAndroid::control(const USBControlRequest& request, std::span<std::byte> data,
                                std::size_t& transferred) {
    std::shared_ptr<VirtualUSBPort> port;
    {
        const std::lock_guard lock(mutex_);
        port = port_;
    }
    return responder_->control(*port, request, data, transferred);
}

void VirtualAndroid::haltCleared(std::uint8_t, bool needed) {
    responder_->haltCleared(needed);
}

} // namespace tessary
