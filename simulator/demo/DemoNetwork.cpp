#include "simulator/demo/DemoNetwork.h"

#include "adb/protocol/WirelessADBDiscovery.h"

namespace tessary {

namespace {

bool isConnectable(const QString& type) {
    return type == WirelessADBDiscovery::connectType;
}

} // namespace

std::unique_ptr<ServiceBrowser> DemoNetwork::browse(const QString& type, Changed changed) {
    const QString name = isConnectable(type) ? QStringLiteral("adb-DEMO0001-vR7kQz")
                                             : QStringLiteral("adb-DEMO0002-hT2wLm");
    changed({true, {{name, type, QStringLiteral("local"), 0}}});
    return std::make_unique<ServiceBrowser>();
}

std::optional<ServiceAddress> DemoNetwork::resolve(const ServiceEndpoint& service,
                                                   const std::stop_token&) {
    return isConnectable(service.type) ? address_() : std::nullopt;
}

} // namespace tessary
