#pragma once

#include "platform/dnssd/ServiceBrowser.h"

#include <functional>

namespace tessary {

/// A local network on which two phones announce wireless debugging: one that can be connected to,
/// and one that waits to be paired and never answers.
class DemoNetwork final : public ServiceNetwork {
public:
    /// Where the first is reached, if it is; asked on any thread.
    using Address = std::function<std::optional<ServiceAddress>()>;

    explicit DemoNetwork(Address address) : address_(std::move(address)) {}

    [[nodiscard]] std::unique_ptr<ServiceBrowser> browse(const QString& type,
                                                         Changed changed) override;
    [[nodiscard]] std::optional<ServiceAddress> resolve(const ServiceEndpoint& service,
                                                        const std::stop_token& stop) override;

private:
    const Address address_;
};

} // namespace tessary
