#include "adb/protocol/WirelessADBDiscovery.h"
#include "base/threads/MainThread.h"
#include "support/Application.h"
#include "support/AvahiNetwork.h"
#include "support/QtPrinters.h"
#include "support/Soon.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace tessary {

namespace {

class RealNetworkTest : public Application, public testing::Test {
protected:
    static void SetUpTestSuite() {
        canHave_ = AvahiNetwork::enter();
    }
    void SetUp() override {
        if (!canHave_)
            GTEST_SKIP() << "no network namespace can be had here (unshare -n)";
        network_ = std::make_unique<AvahiNetwork>();
    }

    static inline bool canHave_ = false;
    std::unique_ptr<AvahiNetwork> network_;
};

TEST_F(RealNetworkTest, phonesAreFoundAndResolvedAsSoonAsThereIsADaemon) {
    const auto services = makeSystemServiceNetwork();
    WirelessADBDiscovery discovery(services);
    std::vector<DiscoveredWirelessDevice> devices;
    std::optional<bool> isAvailable;
    discovery.onDevicesUpdated = [&](const std::vector<DiscoveredWirelessDevice>& found) {
        EXPECT_TRUE(MainThread::isCurrent());
        devices = found;
        std::ranges::sort(devices, {}, &DiscoveredWirelessDevice::isPairing);
    };
    discovery.onAvailabilityChanged = [&](bool available) { isAvailable = available; };
    discovery.startBrowsing();
    ASSERT_TRUE(eventually([&] { return isAvailable == false; }));
    EXPECT_TRUE(devices.empty());

    network_->startDaemon();
    const QString odd = QStringLiteral("Päd\\.1 x");
    network_->publish(QStringLiteral("adb-PHONE1-abc"), WirelessADBDiscovery::connectType, 37001);
    network_->publish(odd, WirelessADBDiscovery::pairingType, 37002);
    network_->publish(QStringLiteral("printer"), QStringLiteral("_ipp._tcp"), 631);
    ASSERT_TRUE(eventually([&] { return devices.size() == 2; }));
    EXPECT_EQ(isAvailable, true);
    EXPECT_EQ(devices[0].name, QStringLiteral("adb-PHONE1-abc"));
    EXPECT_EQ(devices[1].name, odd);
    EXPECT_FALSE(devices[0].isPairing || !devices[1].isPairing);
    const QString host = QStringLiteral("10.77.0.1");
    EXPECT_EQ(services->resolve(devices[0].endpoint, {}), (ServiceAddress{host, 37001}));
    EXPECT_EQ(services->resolve(devices[1].endpoint, {}), (ServiceAddress{host, 37002}));

    network_->stopDaemon();
    EXPECT_TRUE(eventually([&] { return isAvailable == false; }));
    EXPECT_EQ(services->resolve(devices[1].endpoint, {}), std::nullopt);
    const auto start = std::chrono::steady_clock::now();
    discovery.stopBrowsing();
    EXPECT_LT(std::chrono::steady_clock::now() - start, soon);
}

} // namespace

} // namespace tessary
