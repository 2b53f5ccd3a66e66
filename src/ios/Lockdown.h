#pragma once

#include "ios/Handles.h"

#include <QString>

#include <optional>

namespace tessary {

/// Bytes of a whole device.
struct StorageInfo {
    qint64 freeBytes = 0; ///< at most totalBytes
    qint64 totalBytes = 0;

    bool operator==(const StorageInfo&) const = default;
};

/// What a device tells of itself as a whole; no value for what it does not tell.
struct IPhoneFacts {
    std::optional<QString> name; ///< that its owner gave it
    std::optional<StorageInfo> storage;
    std::optional<int> battery; ///< percent

    bool operator==(const IPhoneFacts&) const = default;
};

/// The figures of a disk usage dictionary in any of its forms; no value without a capacity. What
/// does not fit into 63 bits is clamped. Pure.
[[nodiscard]] std::optional<StorageInfo> storageFromDiskUsage(plist_t diskUsage);

/// A session with the lockdown service of one device: the way to its values and services. All
/// calls block; one caller at a time. An answer is waited for for 30 seconds at most.
class Lockdown {
public:
    /// Finds the device and performs the handshake, which pairs first where it has to: whoever
    /// starts this has asked PairingQuestions. Up to five attempts with a pause after each
    /// failure but the last; a phone that waits for its user is not asked twice. Throws the last
    /// attempt's Error: PhoneError::notConnected, or what the refusal means, over
    /// IPhoneError::handshake.
    explicit Lockdown(const QString& udid);

    /// Starts a service. Throws what the refusal means, over IPhoneError::service.
    [[nodiscard]] LockdownService startService(const char* name);

    /// Whether it is locked with a passcode right now; false when it does not tell.
    [[nodiscard]] bool isLocked();
    [[nodiscard]] bool isAttached() const;
    [[nodiscard]] IPhoneFacts facts();
    /// Whether the device is reached over the network and not by cable.
    [[nodiscard]] bool usesNetwork() const;

    [[nodiscard]] idevice_t device() const {
        return device_.get();
    }

private:
    [[nodiscard]] PlistHandle valueAt(const char* domain, const char* key);

    const QByteArray udid_;
    // Freed in the reverse order.
    DeviceHandle device_;
    LockdownHandle client_;
};

} // namespace tessary
