#pragma once

#include "core/Background.h"
#include "devices/DeviceInquiry.h"
#include "devices/DeviceManager.h"
#include "support/PluggedPhone.h"
#include "support/QtPrinters.h"

#include <QCoreApplication>
#include <QTimer>

#include <gtest/gtest.h>

#include <functional>

namespace tessary {

using namespace std::chrono_literals;

/// A device manager on the test's thread, over a virtual bus. What it has started in the
/// background is over before the bus goes.
class DeviceManagerFixture : public testing::Test {
protected:
    DeviceManagerFixture() {
        static int count = 1;
        static char name[] = "test";
        static char* arguments[] = {name, nullptr};
        static const QCoreApplication application(count, arguments);
        Background::restart();
    }

    ~DeviceManagerFixture() override {
        manager_.reset();
        EXPECT_TRUE(Background::shutDown(60s));
        QCoreApplication::processEvents(); // answers for a manager that is gone
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

    /// Runs the event loop until `holds`, and tells whether it did in time.
    [[nodiscard]] static bool eventually(const std::function<bool()>& holds,
                                         std::chrono::milliseconds limit = 20s) {
        const auto end = std::chrono::steady_clock::now() + limit;
        while (!holds()) {
            if (std::chrono::steady_clock::now() > end)
                return false;
            QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
            std::this_thread::sleep_for(1ms);
        }
        return true;
    }
    static void runLoopFor(std::chrono::milliseconds time) {
        (void)eventually([] { return false; }, time);
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
        return manager_->device(QString::fromUtf8(udid) + QStringLiteral("-0"));
    }
    [[nodiscard]] std::optional<DeviceTrouble> trouble(const char* udid) const {
        return manager_->trouble(QString::fromUtf8(udid) + QStringLiteral("-0"));
    }

    static VirtualAndroidConfig phoneConfig(const char* serial, const char* location) {
        VirtualAndroidConfig config;
        config.serialNumber = QString::fromUtf8(serial);
        config.location = QString::fromUtf8(location);
        return config;
    }

    VirtualUsbBus bus_;
    std::unique_ptr<DeviceManager> manager_;
    int changes_ = 0;
    int troubleChanges_ = 0;
    int conflictChanges_ = 0;
    int rounds_ = 0;
};

} // namespace tessary
