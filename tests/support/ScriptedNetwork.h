#pragma once

#include "adb/protocol/WirelessADBDiscovery.h"
#include "platform/dnssd/ServiceBrowser.h"

#include <map>
#include <thread>

namespace tessary {

/// A network whose reports a test makes up.
class ScriptedNetwork : public ServiceNetwork {
public:
    std::unique_ptr<ServiceBrowser> browse(const QString& type, Changed changed) override {
        struct Browser : ServiceBrowser {
            explicit Browser(Changed& slot) : slot_(slot) {}
            ~Browser() override {
                slot_ = nullptr;
            }
            Changed& slot_;
        };
        browsers_[type] = std::move(changed);
        return std::make_unique<Browser>(browsers_[type]);
    }
    std::optional<ServiceAddress> resolve(const ServiceEndpoint&, const std::stop_token&) override {
        return address;
    }
    void report(QLatin1StringView type, const char* names, bool isAvailable = true) {
        ServiceResults results{isAvailable, {}};
        for (const QString& name :
             QString::fromLatin1(names).split(QLatin1Char(','), Qt::SkipEmptyParts))
            results.services.push_back({name, type, QStringLiteral("local"), 2});
        std::thread([&] { browsers_[type](results); }).join();
    }

    std::optional<ServiceAddress> address; ///< of every service

private:
    std::map<QString, Changed> browsers_;
};

} // namespace tessary
