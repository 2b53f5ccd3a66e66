#pragma once

#include "adb/protocol/ADBError.h"
#include "adb/protocol/ADBHostKey.h"
#include "platform/desktop/HostInfo.h"
#include "platform/keys/KeyStore.h"

#include <QString>

#include <memory>

namespace tessary {

/// The key in the key store under `keyTag`: RSA, 2048 bits. It is made on first use and looked up
/// anew each time, so that every program of this user signs with the same one. What is stored is
/// never replaced, even when it is no such key.
class ADBAuthManager final : public ADBHostKey {
public:
    static constexpr QLatin1StringView keyTag{"com.kestrine.adb.privatekey"};

    /// `user` and `host` are who asks a phone to be let in; a computer may have no name.
    explicit ADBAuthManager(std::unique_ptr<KeyStore> store = makeSystemKeyStore(),
                            QString user = loginName(), QString host = computerName())
        : store_(std::move(store)), user_(std::move(user)), host_(std::move(host)) {}

    /// The key store hears no stop.
    [[nodiscard]] Bytes sign(ByteView token, const std::stop_token& stop) override;
    [[nodiscard]] Bytes getPhonePublicKeyPayload(const std::stop_token& stop) override;

private:
    const std::unique_ptr<KeyStore> store_;
    const QString user_;
    const QString host_;
};

} // namespace tessary
