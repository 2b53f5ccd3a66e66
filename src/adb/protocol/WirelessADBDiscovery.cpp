#include "adb/protocol/WirelessADBDiscovery.h"

#include "base/threads/MainThread.h"

#include <optional>
#include <utility>

namespace tessary {

/// One time of browsing, shared with the work that is still on its way when it ends.
struct WirelessADBDiscovery::Browsing {
    std::mutex lock; ///< guards `devices`
    QHash<QString, DiscoveredWirelessDevice> devices;

    // On the main thread:
    const WirelessADBDiscovery* owner = nullptr; ///< null when it is over
    std::optional<bool> isAvailable;
};

WirelessADBDiscovery::WirelessADBDiscovery(std::shared_ptr<ServiceNetwork> network)
    : network_(std::move(network)) {}

WirelessADBDiscovery::~WirelessADBDiscovery() {
    stopBrowsing();
}

void WirelessADBDiscovery::startBrowsing() {
    MainThread::assertCurrent();
    if (browsing_)
        return;
    browsing_ = std::make_shared<Browsing>();
    browsing_->owner = this;
    queue_ = std::make_unique<SerialQueue>("com.kestrine.wireless.discovery");
    connectBrowser_ = network_->browse(connectType);
    pairingBrowser_ = network_->browse(pairingType);
    startBrowser(*connectBrowser_, false);
    startBrowser(*pairingBrowser_, true);
}

void WirelessADBDiscovery::startBrowser(ServiceBrowser& browser, bool isPairing) {
    browser.start(
        [queue = queue_.get(), browsing = browsing_, isPairing](const ServiceResults& results) {
            queue->post(
                [browsing, results, isPairing] { handleResults(browsing, results, isPairing); });
        });
}

void WirelessADBDiscovery::stopBrowsing() {
    MainThread::assertCurrent();
    if (!browsing_)
        return;
    browsing_->owner = nullptr;
    browsing_.reset();
    connectBrowser_.reset();
    pairingBrowser_.reset();
    queue_.reset();
}

void WirelessADBDiscovery::handleResults(const std::shared_ptr<Browsing>& browsing,
                                         const ServiceResults& results, bool isPairing) {
    std::vector<DiscoveredWirelessDevice> found;
    {
        const std::scoped_lock lock(browsing->lock);
        for (const ServiceEndpoint& service : results.services) {
            auto known = browsing->devices.find(service.name);
            if (known == browsing->devices.end())
                known = browsing->devices.insert(service.name,
                                                 {service.name, service.name, service, isPairing});
            if (known->isPairing != isPairing)
                known->otherEndpoint = known->endpoint;
            known->endpoint = service;
            known->isPairing = isPairing;
        }
        found.assign(browsing->devices.cbegin(), browsing->devices.cend());
    }
    MainThread::post([browsing, found = std::move(found), isAvailable = results.isAvailable] {
        if (browsing->owner && browsing->isAvailable != isAvailable) {
            browsing->isAvailable = isAvailable;
            if (browsing->owner->onAvailabilityChanged)
                browsing->owner->onAvailabilityChanged(isAvailable);
        }
        if (browsing->owner && browsing->owner->onDevicesUpdated)
            browsing->owner->onDevicesUpdated(found);
    });
}

} // namespace tessary
