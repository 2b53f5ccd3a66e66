#pragma once

#include "phones/VirtualAndroid.h"

namespace tessary {

/// A bus with two virtual Android phones for trying the program out. Their storages lie in folders
/// below the one that is given, which are filled with sample content first.
class DemoPhones {
public:
    /// Blocking, about a second. The folder is the caller's; what an earlier run left in it is used
    /// as it is. `megabytesPerSecond` slows the phones down, so that progress can be seen; 0 for no
    /// limit.
    explicit DemoPhones(const QString& folder, double megabytesPerSecond = 0);
    ~DemoPhones();
    DemoPhones(const DemoPhones&) = delete;
    DemoPhones& operator=(const DemoPhones&) = delete;

    [[nodiscard]] UsbBus& bus() {
        return bus_;
    }
    [[nodiscard]] VirtualUsbBus& virtualBus() {
        return bus_;
    }
    [[nodiscard]] std::vector<std::unique_ptr<VirtualAndroid>>& androids() {
        return androids_;
    }

private:
    VirtualUsbBus bus_;
    std::vector<std::unique_ptr<VirtualAndroid>> androids_;
};

} // namespace tessary
