#pragma once

#include "adb/protocol/ADBError.h"
#include "adb/protocol/ADBHostKey.h"
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

/// The key in the key store under `keyTag`. It is made on first use and looked up anew each time,
/// so that every program of this user signs with the same one.
class ADBAuthManager final : public ADBHostKey {
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

    /// The key store hears no stop.
    [[nodiscard]] Bytes sign(ByteView token, const std::stop_token& stop) override;
    [[nodiscard]] Bytes getPhonePublicKeyPayload(const std::stop_token& stop) override;

private:
    const std::unique_ptr<KeyStore> store_;
    const ADBHostIdentity identity_;
};

} // namespace tessary
