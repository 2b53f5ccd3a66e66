#include "adb/protocol/WirelessADBDiscovery.h"

#include "base/threads/MainThread.h"

#include <QHash>

#include <optional>
#include <utility>

namespace tessary {

/// One time of browsing. What was reported before it ended comes to nothing.
struct WirelessADBDiscovery::Browsing {
    QHash<QString, DiscoveredWirelessDevice> devices;
    std::optional<bool> isAvailable;
    std::unique_ptr<ServiceBrowser> connectBrowser;
    std::unique_ptr<ServiceBrowser> pairingBrowser;
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
    browsing_->connectBrowser = startBrowser(connectType, false);
    browsing_->pairingBrowser = startBrowser(pairingType, true);
}

std::unique_ptr<ServiceBrowser> WirelessADBDiscovery::startBrowser(const QString& type,
                                                                   bool isPairing) {
    return network_->browse(
        type, [this, current = std::weak_ptr(browsing_), isPairing](const ServiceResults& results) {
            MainThread::post([this, current, results, isPairing] {
                if (!current.expired())
                    handleResults(results, isPairing);
            });
        });
}

void WirelessADBDiscovery::stopBrowsing() {
    MainThread::assertCurrent();
    browsing_.reset();
}

void WirelessADBDiscovery::handleResults(const ServiceResults& results, bool isPairing) {
    auto& devices = browsing_->devices;
    for (const ServiceEndpoint& service : results.services) {
        auto known = devices.find(service.name);
        if (known == devices.end())
            known = devices.insert(service.name, {service.name, service.name, service, isPairing});
        if (known->isPairing != isPairing)
            known->otherEndpoint = known->endpoint;
        known->endpoint = service;
        known->isPairing = isPairing;
    }
    const std::vector<DiscoveredWirelessDevice> found(devices.cbegin(), devices.cend());
    const bool isNews = std::exchange(browsing_->isAvailable, results.isAvailable) !=
                        std::optional(results.isAvailable);
    // Who is called may end it.
    const std::weak_ptr current(browsing_);
    if (isNews && onAvailabilityChanged)
        onAvailabilityChanged(results.isAvailable);
    if (!current.expired() && onDevicesUpdated)
        onDevicesUpdated(found);
}

} // namespace tessary
