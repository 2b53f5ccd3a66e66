#pragma once

#include "phones/DemoIPhones.h"
#include "phones/VirtualAndroid.h"

#include <QTemporaryDir>

namespace tessary {

/// Virtual phones for trying the program out: a bus with two Android phones, and a multiplexer with
/// an iPhone and an iPad, which libraries find by the environment of this process. Their storages
/// lie in folders below the one that is given, which are filled with sample content first.
class DemoPhones {
public:
    /// Blocking, about a second. The folder is the caller's; what an earlier run left in it is used
    /// as it is. `megabytesPerSecond` slows the phones down, so that progress can be seen; 0 for no
    /// limit. Sets an environment variable: before there are threads that read the environment.
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

    /// Null when no multiplexer could listen.
    [[nodiscard]] DemoIPhones* iPhones() {
        return iPhones_.get();
    }

private:
    QTemporaryDir socketFolder_; ///< short of name, as a socket's path has to be
    std::unique_ptr<DemoIPhones> iPhones_;
    VirtualUsbBus bus_;
    std::vector<std::unique_ptr<VirtualAndroid>> androids_;
};

} // namespace tessary
