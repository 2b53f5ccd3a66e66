#include "adb/protocol/WirelessADBDiscovery.h"
#include "base/threads/MainThread.h"
#include "support/Application.h"
#include "support/AvahiNetwork.h"
#include "support/QtPrinters.h"
#include "support/Soon.h"

#include <gmock/gmock.h>

#include <algorithm>

namespace tessary {

namespace {

using testing::IsEmpty;

/// What came from a discovery: "name", or "name (pairing)".
class Watch {
public:
    explicit Watch(WirelessADBDiscovery& discovery) {
        discovery.onDevicesUpdated = [this](const std::vector<DiscoveredWirelessDevice>& found) {
            EXPECT_TRUE(MainThread::isCurrent());
            devices = found;
            std::sort(devices.begin(), devices.end(),
                      [](const auto& left, const auto& right) { return left.name < right.name; });
        };
        discovery.onAvailabilityChanged = [this](bool available) { isAvailable = available; };
    }
    [[nodiscard]] QStringList names() const {
        QStringList list;
        for (const DiscoveredWirelessDevice& device : devices)
            list << (device.isPairing ? device.name + QStringLiteral(" (pairing)") : device.name);
        return list;
    }

    std::vector<DiscoveredWirelessDevice> devices;
    std::optional<bool> isAvailable;
};

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
    Watch watch(discovery);
    discovery.startBrowsing();
    ASSERT_TRUE(eventually([&] { return watch.isAvailable == false; }));
    EXPECT_THAT(watch.names(), IsEmpty());

    network_->startDaemon();
    const QString odd = QStringLiteral("Päd\\.1 x");
    network_->publish(QStringLiteral("adb-PHONE1-abc"), WirelessADBDiscovery::connectType, 37001);
    network_->publish(odd, WirelessADBDiscovery::pairingType, 37002);
    network_->publish(QStringLiteral("printer"), QStringLiteral("_ipp._tcp"), 631);
    ASSERT_TRUE(eventually([&] { return watch.devices.size() == 2; }));
    EXPECT_EQ(watch.isAvailable, true);
    EXPECT_EQ(watch.names(),
              (QStringList{odd + QStringLiteral(" (pairing)"), QStringLiteral("adb-PHONE1-abc")}));
    const QString host = QStringLiteral("10.77.0.1");
    EXPECT_EQ(services->resolve(watch.devices[0].endpoint, {}), (ServiceAddress{host, 37002}));
    EXPECT_EQ(services->resolve(watch.devices[1].endpoint, {}), (ServiceAddress{host, 37001}));

    network_->stopDaemon();
    EXPECT_TRUE(eventually([&] { return watch.isAvailable == false; }));
    EXPECT_EQ(services->resolve(watch.devices[1].endpoint, {}), std::nullopt);
    const auto start = std::chrono::steady_clock::now();
    discovery.stopBrowsing();
    EXPECT_LT(std::chrono::steady_clock::now() - start, soon);
}

} // namespace

} // namespace tessary
