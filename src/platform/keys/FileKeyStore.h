#pragma once

#include "platform/keys/KeyStore.h"

namespace tessary {

/// Each secret in a file of its own that only its user can read. A file appears whole or not at
/// all, and never replaces another.
class FileKeyStore final : public KeyStore {
public:
    /// `folder` is made when it is needed; nobody else may look into it.
    explicit FileKeyStore(QString folder) : folder_(std::move(folder)) {}

    /// A file that others may read or that belongs to another user is refused: what is in it is no
    /// secret.
    [[nodiscard]] std::optional<QByteArray> find(const QString& tag) override;
    [[nodiscard]] QByteArray addIfMissing(const QString& tag, const QByteArray& secret) override;

private:
    [[nodiscard]] QString pathOf(const QString& tag) const;

    const QString folder_;
};

} // namespace tessary
