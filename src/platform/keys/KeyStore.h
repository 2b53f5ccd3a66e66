#pragma once

#include <QByteArray>
#include <QString>

#include <memory>
#include <optional>
#include <stdexcept>

namespace tessary {

/// A key store that is there but cannot be used, with the reason for people.
class KeyStoreError : public std::runtime_error {
public:
    explicit KeyStoreError(const QString& reason) : std::runtime_error(reason.toStdString()) {}
};

/// Where this user's secrets lie, each under a tag (letters, digits, "." and "-"). Thread-safe;
/// calls block, for seconds when a person is asked to unlock the store, and are not made on the
/// main thread. Failures are KeyStoreError.
class KeyStore {
public:
    virtual ~KeyStore() = default;

    /// The secret under a tag, if there is one.
    [[nodiscard]] virtual std::optional<QByteArray> find(const QString& tag) = 0;

    /// Stores a secret under a tag that has none, and returns what is stored there then. Of
    /// several programs that do so at the same time all get the same secret.
    [[nodiscard]] virtual QByteArray addIfMissing(const QString& tag, const QByteArray& secret) = 0;
};

/// The secret service of this user's desktop. Where none answers, files in the folder
/// "tessary/keys" of the user's data ($XDG_DATA_HOME, or ~/.local/share).
[[nodiscard]] std::unique_ptr<KeyStore> makeSystemKeyStore();

} // namespace tessary
