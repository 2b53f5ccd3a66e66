#pragma once

#include "adb/protocol/ADBError.h"
#include "base/values/Bytes.h"
#include "platform/keys/KeyStore.h"
#include "platform/keys/SystemKeyStore.h"

#include <QString>

#include <memory>

struct evp_pkey_st;

namespace tessary {

/// Who asks a phone to be let in.
struct ADBHostIdentity {
    QString user; ///< login name
    QString host; ///< this computer's name; empty when it has none

    [[nodiscard]] static ADBHostIdentity ofThisComputer();
};

/// The RSA key by which phones know this computer. It lies in the key store under `keyTag`, is
/// made on first use, and is looked up anew each time, so that every program of this user signs
/// with the same one. Thread-safe; calls block as the key store does. Failures are
/// Error(ADBError).
class ADBAuthManager {
public:
    static constexpr QLatin1StringView keyTag{"com.kestrine.adb.privatekey"};

    struct FreeKey {
        void operator()(evp_pkey_st* key) const;
    };
    /// An OpenSSL key, private half included.
    using PrivateKey = std::unique_ptr<evp_pkey_st, FreeKey>;

    explicit ADBAuthManager(std::unique_ptr<KeyStore> store = makeSystemKeyStore(),
                            ADBHostIdentity identity = ADBHostIdentity::ofThisComputer());

    /// RSA, 2048 bits. What is stored is never replaced, even when it is no such key.
    [[nodiscard]] PrivateKey getOrCreatePrivateKey();

    /// The answer to AUTH with a token: its PKCS #1 v1.5 signature (256 bytes), with the token
    /// (20 bytes) taken for a SHA-1 digest as it is.
    [[nodiscard]] Bytes sign(ByteView token);

    /// What AUTH with the public key carries: base64 of the key's PKCS #1 RSAPublicKey in DER,
    /// a blank, "<user>@<host>" and one NUL.
    [[nodiscard]] Bytes getPublicKeyPayload();

    /// The same in the form that phones take: base64 of 524 bytes { u32 words of the modulus (64),
    /// u32 -1/n mod 2^32, the modulus n, R^2 mod n with R = 2^2048 (256 bytes each), u32 exponent
    /// }, all little-endian.
    [[nodiscard]] Bytes getPhonePublicKeyPayload();

private:
    [[nodiscard]] Bytes payloadOf(const QByteArray& key) const;

    const std::unique_ptr<KeyStore> store_;
    const ADBHostIdentity identity_;
};

} // namespace tessary
