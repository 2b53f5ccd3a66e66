#pragma once

#include "simulator/iphone/VirtualMux.h"

#include <functional>
#include <memory>

namespace tessary {

/// A multiplexer with a virtual iPhone and a virtual iPad, and a few apps with sample documents.
class DemoIPhones {
public:
    using Maker = std::function<std::unique_ptr<VirtualIPhone>(VirtualIPhoneConfig)>;

    /// Listens; no phone is plugged in yet. Throws std::runtime_error when it cannot.
    explicit DemoIPhones(const QString& socketPath);
    ~DemoIPhones();
    DemoIPhones(const DemoIPhones&) = delete;
    DemoIPhones& operator=(const DemoIPhones&) = delete;

    /// Blocking, some tenths of a second. The apps' containers lie below `folder`, which is the
    /// caller's; what an earlier run left there is used as it is. `megabytesPerSecond` slows the
    /// phones down; 0 for no limit. A stop leaves content out. To be called once.
    void plugIn(const QString& folder, double megabytesPerSecond = 0,
                const Maker& maker = std::make_unique<VirtualIPhone, VirtualIPhoneConfig>,
                const std::stop_token& stop = {});

    [[nodiscard]] VirtualMux& mux() {
        return mux_;
    }
    /// From plugIn() on.
    [[nodiscard]] std::vector<std::unique_ptr<VirtualIPhone>>& phones() {
        return phones_;
    }

private:
    VirtualMux mux_;
    std::vector<std::unique_ptr<VirtualIPhone>> phones_;
};

} // namespace tessary
