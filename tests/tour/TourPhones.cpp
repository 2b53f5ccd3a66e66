#include "tour/TourPhones.h"

#include <stdexcept>

namespace tessary {

namespace {

/// A maker of phones that keeps the first one in `first`.
template <typename Phone>
auto keepingFirst(Phone*& first) {
    return [&first](auto config) {
        auto made = std::make_unique<Phone>(std::move(config));
        if (first == nullptr)
            first = made.get();
        return made;
    };
}

} // namespace

TourPhones::TourPhones(const QString& folder) {
    DemoMakers makers;
    makers.android = keepingFirst(android_);
    makers.iPhone = keepingFirst(iPhone_);
    demo_ = std::make_unique<DemoPhones>(folder, 0, makers);
    if (iPhone_ == nullptr)
        throw std::runtime_error("the virtual iPhones cannot be reached");
    for (const auto& phone : demo_->androids())
        phone->unplug();
    for (const auto& phone : demo_->iPhones()->phones())
        phone->unplug();
}

void TourPhones::setStorageFull(bool full) {
    android_->faults().update([full](VirtualFaults& faults) {
        faults.errors.clear();
        if (full)
            faults.errors[static_cast<std::uint16_t>(MTPOperationCode::sendObjectInfo)] = {
                static_cast<std::uint16_t>(MTPResponseCode::storeFull), true};
    });
}

void TourPhones::setHeld(bool held) {
    VirtualOpenFaults faults;
    if (held)
        faults.interfaceOpen = faults.interfaceSeize = usb::exclusiveAccess;
    VirtualUSBBus& bus = demo_->virtualBus();
    bus.setOpenFaults(android_->config().location, faults);
    bus.setProgramsHolding(android_->config().location,
                           held ? QStringList{QStringLiteral("gvfsd-mtp (2841)")} : QStringList());
}

void TourPhones::setSpeed(double megabytesPerSecond) {
    android_->faults().update(
        [=](VirtualFaults& faults) { faults.megabytesPerSecond = megabytesPerSecond; });
    iPhone_->faults().update(
        [=](VirtualIPhoneFaults& faults) { faults.megabytesPerSecond = megabytesPerSecond; });
}

} // namespace tessary
