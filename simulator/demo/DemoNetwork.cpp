#include "simulator/demo/DemoNetwork.h"

#include "adb/protocol/WirelessADBDiscovery.h"

namespace tessary {

namespace {

/// Reports one service, once.
class DemoBrowser final : public ServiceBrowser {
public:
    explicit DemoBrowser(ServiceEndpoint service) : service_(std::move(service)) {}

    void start(Changed changed) override {
        changed({true, {service_}});
    }
    void cancel() override {}

private:
    const ServiceEndpoint service_;
};

bool isConnectable(const QString& type) {
    return type == WirelessADBDiscovery::connectType;
}

} // namespace

std::unique_ptr<ServiceBrowser> DemoNetwork::browse(const QString& type) {
    const QString name = isConnectable(type) ? QStringLiteral("adb-DEMO0001-vR7kQz")
                                             : QStringLiteral("adb-DEMO0002-hT2wLm");
    return std::make_unique<DemoBrowser>(ServiceEndpoint{name, type, QStringLiteral("local"), 0});
}

std::optional<ServiceAddress> DemoNetwork::resolve(const ServiceEndpoint& service,
                                                   const std::stop_token&) {
    return isConnectable(service.type) ? address_() : std::nullopt;
}

} // namespace tessary
