#include "ios/Lockdown.h"

#include "base/text/ByteCount.h"
#include "ios/IPhoneError.h"
#include "ios/Multiplexer.h"
#include "ios/PlistValues.h"
#include "phone/PhoneError.h"

#include <algorithm>
#include <thread>

namespace tessary {

namespace {

constexpr auto lookupOptions =
    static_cast<idevice_options>(IDEVICE_LOOKUP_USBMUX | IDEVICE_LOOKUP_NETWORK);
constexpr const char* label = "Tessary";

std::uint64_t firstOf(plist_t dictionary, const char* key, const char* otherKey) {
    const auto value = unsignedAt(dictionary, key);
    return value ? *value : unsignedAt(dictionary, otherKey).value_or(0);
}

} // namespace

std::optional<StorageInfo> storageFromDiskUsage(plist_t diskUsage) {
    const qint64 total =
        clampedByteCount(firstOf(diskUsage, "TotalDiskCapacity", "TotalDataCapacity"));
    const qint64 free =
        clampedByteCount(firstOf(diskUsage, "AmountDataAvailable", "TotalDataAvailable"));
    if (total == 0)
        return std::nullopt;
    return StorageInfo{std::min(free, total), total};
}

Lockdown::Lockdown(const QString& udid) : udid_(udid.toUtf8()) {
    for (int attempt = 1;; ++attempt) {
        idevice_t device = nullptr;
        const bool isFound = idevice_new_with_options(&device, udid_.constData(), lookupOptions) ==
                             IDEVICE_E_SUCCESS;
        DeviceHandle owner(device);
        lockdownd_error_t status = LOCKDOWN_E_SUCCESS;
        if (isFound && device != nullptr) {
            lockdownd_client_t client = nullptr;
            status = lockdownd_client_new_with_handshake(device, &client, label);
            if (status == LOCKDOWN_E_SUCCESS && client != nullptr) {
                device_ = std::move(owner);
                client_.reset(client);
                return;
            }
        }
        const bool isLast = attempt == attempts || isFinalRefusal(status);
        if (isLast && owner)
            throw lockdownErrorOf(status, {IPhoneError::handshake, {static_cast<int>(status)}});
        if (isLast)
            throw Error(PhoneError::notConnected);
        owner.reset();
        std::this_thread::sleep_for(pauseBetweenAttempts);
    }
}

LockdownService Lockdown::startService(const char* name) {
    lockdownd_service_descriptor_t descriptor = nullptr;
    const lockdownd_error_t status = lockdownd_start_service(client(), name, &descriptor);
    LockdownService service(descriptor);
    if (status != LOCKDOWN_E_SUCCESS || !service)
        throw lockdownErrorOf(
            status, {IPhoneError::service, {QString::fromLatin1(name), static_cast<int>(status)}});
    return service;
}

PlistHandle Lockdown::valueAt(const char* domain, const char* key) {
    plist_t value = nullptr;
    const lockdownd_error_t status = lockdownd_get_value(client(), domain, key, &value);
    PlistHandle owner(value);
    return status == LOCKDOWN_E_SUCCESS ? std::move(owner) : nullptr;
}

std::optional<StorageInfo> Lockdown::getStorageInfo() {
    return storageFromDiskUsage(valueAt("com.apple.disk_usage", nullptr).get());
}

std::optional<int> Lockdown::batteryLevel() {
    constexpr std::uint64_t full = 100;
    const PlistHandle values = valueAt("com.apple.mobile.battery", nullptr);
    const auto percent = unsignedAt(values.get(), "BatteryCurrentCapacity");
    return percent && *percent <= full ? std::optional(static_cast<int>(*percent)) : std::nullopt;
}

bool Lockdown::isLocked() {
    const PlistHandle value = valueAt(nullptr, "PasswordProtected");
    std::uint8_t isTrue = 0;
    if (value && plist_get_node_type(value.get()) == PLIST_BOOLEAN)
        plist_get_bool_val(value.get(), &isTrue);
    return isTrue != 0;
}

std::optional<QString> Lockdown::deviceName() {
    char* name = nullptr;
    const lockdownd_error_t status = lockdownd_get_device_name(client(), &name);
    const LibraryText owner(name);
    if (status != LOCKDOWN_E_SUCCESS || name == nullptr || *name == '\0')
        return std::nullopt;
    return QString::fromUtf8(name);
}

bool Lockdown::isAttached() const {
    return attachmentOf(QString::fromUtf8(udid_)).has_value();
}

IPhoneFacts Lockdown::facts() {
    return {deviceName(), getStorageInfo(), batteryLevel()};
}

bool Lockdown::usesNetwork() const {
    return isOnNetwork(QString::fromUtf8(udid_));
}

} // namespace tessary
