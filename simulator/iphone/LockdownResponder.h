#pragma once

#include "simulator/iphone/VirtualIPhone.h"

namespace tessary {

/// Lockdown on a virtual iPhone: values, pairing, sessions, services. One connection.
class LockdownResponder {
public:
    LockdownResponder(VirtualIPhone& phone, PhoneStream& stream);

    /// Until one side ends it.
    void run();

private:
    /// The answer's own keys, beside "Request"; "Error" in it refuses.
    [[nodiscard]] QVariantMap handle(const QString& name, const QVariantMap& request);
    [[nodiscard]] QVariantMap queryType(const QVariantMap& request);
    [[nodiscard]] QVariantMap getValue(const QVariantMap& request);
    [[nodiscard]] QVariantMap setValue(const QVariantMap& request);
    [[nodiscard]] QVariantMap pair(const QVariantMap& request);
    [[nodiscard]] QVariantMap validatePair(const QVariantMap& request);
    [[nodiscard]] QVariantMap unpair(const QVariantMap& request);
    [[nodiscard]] QVariantMap startSession(const QVariantMap& request);
    [[nodiscard]] QVariantMap stopSession(const QVariantMap& request);
    [[nodiscard]] QVariantMap startService(const QVariantMap& request);
    [[nodiscard]] QVariantMap goodbye(const QVariantMap& request);

    /// Switches TLS on or off after the answer, as sessions begin and end.
    [[nodiscard]] bool switchTls();

    VirtualIPhone& phone_;
    PhoneStream& stream_;
    QString sessionID_; ///< empty: no session
    QVariantMap host_;  ///< whose session it is
    bool hasTls_ = false;
    bool ends_ = false; ///< after the answer under way, or instead of it
};

} // namespace tessary
