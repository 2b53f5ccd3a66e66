#pragma once

#include "simulator/iphone/VirtualIPhone.h"

namespace tessary {

/// The installation proxy on a virtual iPhone: "Browse", answered in several pieces, and "Lookup".
class InstallationProxyResponder {
public:
    static inline const QString service = QStringLiteral("com.apple.mobile.installation_proxy");

    InstallationProxyResponder(VirtualIPhone& phone, PhoneStream& stream);

    /// Until one side ends it.
    void run();

    /// Makes an app's folders where they are missing.
    static void createContainer(const VirtualIPhoneApp& app);

private:
    [[nodiscard]] bool browse(const QString& logged, const QVariantMap& options);
    [[nodiscard]] bool lookUp(const QString& logged, const QVariantMap& options);
    [[nodiscard]] bool answer(const QString& logged, const QVariantMap& message);
    /// The apps that the options ask for, each with the attributes that they ask for.
    [[nodiscard]] QVariantList apps(const QVariantMap& options) const;

    VirtualIPhone& phone_;
    PhoneStream& stream_;
};

} // namespace tessary
