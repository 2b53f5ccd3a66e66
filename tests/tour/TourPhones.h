#pragma once

#include "simulator/demo/DemoPhones.h"
#include "simulator/faults/FaultyAndroid.h"
#include "simulator/faults/FaultyIPhone.h"

namespace tessary {

/// The demo's phones, all unplugged at first, of which the first Android phone and the iPhone do
/// wrong what they are told to.
class TourPhones {
public:
    /// Blocking, about a second. Throws std::runtime_error when there can be no virtual iPhones.
    explicit TourPhones(const QString& folder);

    [[nodiscard]] DemoPhones& demo() {
        return *demo_;
    }

    [[nodiscard]] FaultyAndroid& android() {
        return *android_;
    }
    [[nodiscard]] FaultyIPhone& iPhone() {
        return *iPhone_;
    }
    void plugIn(VirtualAndroid& phone) {
        phone.plugInto(demo_->virtualBus());
    }
    /// The next uploads find the storage full, or not.
    void setStorageFull(bool full);
    /// Another program holds the phone, or not.
    void setHeld(bool held);

    /// Megabytes a second of both; 0 for no limit.
    void setSpeed(double megabytesPerSecond);

private:
    FaultyAndroid* android_ = nullptr;
    FaultyIPhone* iPhone_ = nullptr;
    std::unique_ptr<DemoPhones> demo_; ///< which owns both
};

} // namespace tessary
