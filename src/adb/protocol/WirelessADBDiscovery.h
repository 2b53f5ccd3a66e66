#pragma once

#include "platform/dnssd/ServiceBrowser.h"

#include <QString>

#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace tessary {

/// A phone with wireless debugging switched on, as it announces itself. A value.
struct DiscoveredWirelessDevice {
    QString id;   ///< the same as `name`
    QString name; ///< of the service instance
    ServiceEndpoint endpoint;
    bool isPairing = false; ///< waits to be paired; else it can be connected to
    /// Of the other kind of service, where both are announced under the name.
    std::optional<ServiceEndpoint> otherEndpoint{};

    bool operator==(const DiscoveredWirelessDevice&) const = default;
};

/// Finds phones with wireless debugging on the local network. Only finds them. Lives on the main
/// thread, which its callbacks are called on, and which never waits for the network.
class WirelessADBDiscovery {
public:
    static constexpr QLatin1StringView connectType{"_adb-tls-connect._tcp"};
    static constexpr QLatin1StringView pairingType{"_adb-tls-pairing._tcp"};

    explicit WirelessADBDiscovery(
        std::shared_ptr<ServiceNetwork> network = makeSystemServiceNetwork());
    /// stopBrowsing().
    ~WirelessADBDiscovery();
    WirelessADBDiscovery(const WirelessADBDiscovery&) = delete;
    WirelessADBDiscovery& operator=(const WirelessADBDiscovery&) = delete;

    /// No effect while browsing.
    void startBrowsing();
    /// Forgets what was found. No callback comes afterwards.
    void stopBrowsing();

    /// Called after every report of the network with everything found, in no order. A phone stays
    /// in the list while browsing goes on, even when it is gone.
    std::function<void(const std::vector<DiscoveredWirelessDevice>&)> onDevicesUpdated;
    /// Called when it becomes known, or differs from what it was, whether this computer can browse
    /// at all.
    std::function<void(bool isAvailable)> onAvailabilityChanged;

private:
    struct Browsing;

    [[nodiscard]] std::unique_ptr<ServiceBrowser> startBrowser(const QString& type, bool isPairing);
    void handleResults(const ServiceResults& results, bool isPairing);

    const std::shared_ptr<ServiceNetwork> network_;
    std::shared_ptr<Browsing> browsing_; ///< present while browsing
};

} // namespace tessary
