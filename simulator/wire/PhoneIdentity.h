#pragma once

#include <QByteArray>
#include <QVariant>

#include <openssl/types.h>

#include <memory>

namespace tessary {

struct TlsContextFreer {
    void operator()(SSL_CTX* context) const;
};
using TlsContext = std::unique_ptr<SSL_CTX, TlsContextFreer>;

/// The keys and certificates of a virtual iPhone and of the host that is paired with it. The two
/// RSA keys are made once a process, at the first call (some tenths of a second). Thread-safe.
class PhoneIdentity {
public:
    /// Makes the keys now, so that no later call does.
    static void prepareKeys();

    /// PKCS #1, PEM: what lockdown tells as "DevicePublicKey".
    [[nodiscard]] static QByteArray devicePublicKey();

    /// A host's whole pair record: certificates, keys, "HostID" and "SystemBUID".
    [[nodiscard]] static QVariantMap pairRecord(const QString& hostID, const QString& systemBUID);

    /// TLS for sessions with the host of a pair record, which has to outlive the context: the phone
    /// shows its "DeviceCertificate", and takes only the record's certificates from the host. Null
    /// when the certificate is not for the phone's key.
    [[nodiscard]] static TlsContext tlsContext(const QVariantMap& pairRecord);
};

} // namespace tessary
