#pragma once

#include "simulator/iphone/VirtualIPhone.h"

namespace tessary {

/// The notification proxy on a virtual iPhone, as far as tools need it: it takes what they want to
/// hear of, and nothing ever happens.
class NotificationProxyResponder {
public:
    static inline const QString service = QStringLiteral("com.apple.mobile.notification_proxy");

    NotificationProxyResponder(VirtualIPhone& phone, PhoneStream& stream)
        : phone_(phone), stream_(stream) {}

    /// Until one side ends it.
    void run() {
        while (const auto request = stream_.readMessage()) {
            const QString command = (*request)[QStringLiteral("Command")].toString();
            if (!phone_.begin(stream_, QStringLiteral("notificationProxy.") + command,
                              (*request)[QStringLiteral("Name")].toString()))
                return;
            if (command != QStringLiteral("Shutdown"))
                continue;
            (void)stream_.writeMessage({{QStringLiteral("Command"), QStringLiteral("ProxyDeath")}});
            return;
        }
    }

private:
    VirtualIPhone& phone_;
    PhoneStream& stream_;
};

} // namespace tessary
