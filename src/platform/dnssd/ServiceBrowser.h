#pragma once

#include <QString>

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <stop_token>
#include <vector>

namespace tessary {

/// A service that a machine on the local network announces by DNS-SD. A value; the texts are that
/// machine's: hostile.
struct ServiceEndpoint {
    QString name; ///< of the instance
    QString type; ///< "_adb-tls-connect._tcp"
    QString domain;
    std::uint32_t interfaceIndex = 0; ///< of this computer's network interfaces

    bool operator==(const ServiceEndpoint&) const = default;
};

/// Where a service is reached.
struct ServiceAddress {
    QString host; ///< an IP address in figures
    std::uint16_t port = 0;

    bool operator==(const ServiceAddress&) const = default;
};

/// What browsing has found so far.
struct ServiceResults {
    bool isAvailable = false;              ///< else nothing on this computer can browse now
    std::vector<ServiceEndpoint> services; ///< those announced at the moment

    bool operator==(const ServiceResults&) const = default;
};

/// A look for the services of one type, which ends with this, within a second.
class ServiceBrowser {
public:
    virtual ~ServiceBrowser() = default;
};

/// The services on the local network. Thread-safe.
class ServiceNetwork {
public:
    using Changed = std::function<void(const ServiceResults&)>;

    virtual ~ServiceNetwork() = default;

    /// Looks for services of this type for as long as the browser lives. `changed` is called on any
    /// thread, first with what can be told at once, then whenever the results differ, and not any
    /// more once the browser is gone. Browsing that has become impossible is tried again every few
    /// seconds.
    [[nodiscard]] virtual std::unique_ptr<ServiceBrowser> browse(const QString& type,
                                                                 Changed changed) = 0;
    /// Asks where a service is reached; blocks for a few seconds at most. No value when nobody
    /// answers. Throws CancellationError.
    [[nodiscard]] virtual std::optional<ServiceAddress> resolve(const ServiceEndpoint& service,
                                                                const std::stop_token& stop) = 0;
};

/// Over this computer's DNS-SD service, if it has one.
[[nodiscard]] std::shared_ptr<ServiceNetwork> makeSystemServiceNetwork();

} // namespace tessary
