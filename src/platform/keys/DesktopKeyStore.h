#pragma once

#include "platform/keys/KeyStore.h"

#include <chrono>
#include <memory>

namespace tessary {

/// The secret service of the desktop; where none answers, another store. A secret that the other
/// store holds already is taken from there: it stays the one that is used.
class DesktopKeyStore final : public KeyStore {
public:
    /// `service` names this program among those that use the secret service. `lockFolder` holds
    /// the file by which programs that add a secret at the same time take turns.
    DesktopKeyStore(QString service, std::unique_ptr<KeyStore> fallback, QString lockFolder);

    /// KeyStoreError also when the person does not unlock the service within a minute.
    [[nodiscard]] std::optional<QByteArray> find(const QString& tag) override;
    [[nodiscard]] QByteArray addIfMissing(const QString& tag, const QByteArray& secret) override;

private:
    const QString service_;
    const std::unique_ptr<KeyStore> fallback_;
    const QString lockFolder_;
};

} // namespace tessary
