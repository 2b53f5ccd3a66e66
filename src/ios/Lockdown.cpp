#include "ios/Lockdown.h"

#include "base/text/ByteCount.h"
#include "ios/IPhoneError.h"
#include "ios/Multiplexer.h"
#include "ios/PlistValues.h"
#include "phone/PhoneError.h"

#include <algorithm>
#include <chrono>
#include <thread>

namespace tessary {

namespace {

constexpr auto lookupOptions =
    static_cast<idevice_options>(IDEVICE_LOOKUP_USBMUX | IDEVICE_LOOKUP_NETWORK);
constexpr const char* label = "Tessary";
constexpr int attempts = 5;
constexpr std::chrono::milliseconds pauseBetweenAttempts{250};

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
    const lockdownd_error_t status = lockdownd_start_service(client_.get(), name, &descriptor);
    LockdownService service(descriptor);
    if (status != LOCKDOWN_E_SUCCESS || !service)
        throw lockdownErrorOf(
            status, {IPhoneError::service, {QString::fromLatin1(name), static_cast<int>(status)}});
    return service;
}

PlistHandle Lockdown::valueAt(const char* domain, const char* key) {
    plist_t value = nullptr;
    const lockdownd_error_t status = lockdownd_get_value(client_.get(), domain, key, &value);
    PlistHandle owner(value);
    return status == LOCKDOWN_E_SUCCESS ? std::move(owner) : nullptr;
}

bool Lockdown::isLocked() {
    const PlistHandle value = valueAt(nullptr, "PasswordProtected");
    std::uint8_t isTrue = 0;
    if (value && plist_get_node_type(value.get()) == PLIST_BOOLEAN)
        plist_get_bool_val(value.get(), &isTrue);
    return isTrue != 0;
}

bool Lockdown::isAttached() const {
    return attachmentOf(QString::fromUtf8(udid_)).has_value();
}

IPhoneFacts Lockdown::facts() {
    constexpr std::uint64_t fullBattery = 100;
    IPhoneFacts facts;
    char* name = nullptr;
    const lockdownd_error_t status = lockdownd_get_device_name(client_.get(), &name);
    const LibraryText owner(name);
    if (status == LOCKDOWN_E_SUCCESS && name != nullptr && *name != '\0')
        facts.name = QString::fromUtf8(name);
    facts.storage = storageFromDiskUsage(valueAt("com.apple.disk_usage", nullptr).get());
    const PlistHandle battery = valueAt("com.apple.mobile.battery", nullptr);
    const auto percent = unsignedAt(battery.get(), "BatteryCurrentCapacity");
    if (percent && *percent <= fullBattery)
        facts.battery = static_cast<int>(*percent);
    return facts;
}

bool Lockdown::usesNetwork() const {
    return isOnNetwork(QString::fromUtf8(udid_));
}

} // namespace tessary
