#pragma once

#include "devices/list/DeviceManager.h"
#include "devices/list/DeviceProbe.h"
#include "support/MainLoop.h"
#include "support/PluggedPhone.h"

namespace tessary {

/// A device manager on the test's thread, over a virtual bus. What it has started in the
/// background is over before the bus goes.
class DeviceManagerFixture : public MainLoop {
protected:
    ~DeviceManagerFixture() override {
        end();
    }
    /// What the manager has started is over, before what it uses goes.
    void end() {
        manager_.reset();
        EXPECT_TRUE(Background::shutDown(60s));
    }

    /// `made` is connected to counters and not listening yet.
    void use(std::unique_ptr<DeviceManager> made) {
        manager_ = std::move(made);
        QObject::connect(manager_.get(), &DeviceManager::devicesChanged, [this] { ++changes_; });
        QObject::connect(manager_.get(), &DeviceManager::troubleChanged,
                         [this] { ++troubleChanges_; });
        QObject::connect(manager_.get(), &DeviceManager::hasUSBConflictChanged,
                         [this] { ++conflictChanges_; });
        QObject::connect(manager_.get(), &DeviceManager::detailsSettled, [this] { ++rounds_; });
    }

    /// One refresh, until every question that it led to is answered.
    void refresh(bool forceStorageRefresh) {
        const int before = rounds_;
        manager_->refreshDeviceList(forceStorageRefresh);
        ASSERT_TRUE(eventually([&] { return rounds_ > before; }));
    }

    [[nodiscard]] QStringList udids() const {
        QStringList udids;
        for (const DeviceInfo& device : manager_->devices())
            udids.append(device.udid);
        return udids;
    }
    [[nodiscard]] std::optional<DeviceInfo> device(const char* udid) const {
        for (const DeviceInfo& device : manager_->devices())
            if (device.udid == QLatin1String(udid))
                return device;
        return std::nullopt;
    }
    [[nodiscard]] std::optional<DeviceTrouble> trouble(const char* udid) const {
        return manager_->trouble(QString::fromUtf8(udid) + QStringLiteral("-0"));
    }

    VirtualUSBBus bus_;
    std::unique_ptr<DeviceManager> manager_;
    int changes_ = 0;
    int troubleChanges_ = 0;
    int conflictChanges_ = 0;
    int rounds_ = 0;
};

} // namespace tessary
