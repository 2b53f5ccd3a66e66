#include "ios/LockdownSession.h"

#include "base/text/ByteCount.h"
#include "base/threads/CancellationError.h"
#include "base/values/TessaryError.h"
#include "ios/PlistValues.h"

#include <usbmuxd.h>

#include <algorithm>
#include <condition_variable>
#include <csignal>
#include <mutex>

namespace tessary {

namespace {

constexpr auto lookupOptions =
    static_cast<idevice_options>(IDEVICE_LOOKUP_USBMUX | IDEVICE_LOOKUP_NETWORK);
constexpr const char* label = "Tessary";

std::uint64_t firstOf(plist_t dictionary, const char* key, const char* otherKey) {
    const auto value = unsignedAt(dictionary, key);
    return value ? *value : unsignedAt(dictionary, otherKey).value_or(0);
}

/// The library writes to connections that may be gone, which by default ends the program. Whoever
/// has chosen otherwise keeps the choice.
void ignoreBrokenPipes() {
    static const bool done = [] {
        struct sigaction current {};
        if (sigaction(SIGPIPE, nullptr, &current) == 0 && current.sa_handler == SIG_DFL)
            std::signal(SIGPIPE, SIG_IGN);
        return true;
    }();
    (void)done;
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

LockdownSession::LockdownSession(const QString& udid, const std::stop_token& stop,
                                 const Pause& pause)
    : udid_(udid.toUtf8()) {
    ignoreBrokenPipes();
    for (int attempt = 1;; ++attempt) {
        throwIfStopped(stop);
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
        if (attempt == attempts && owner)
            throw TessaryError::lockdownFailed(
                QStringLiteral("Handshake failed: %1").arg(static_cast<int>(status)));
        if (attempt == attempts)
            throw TessaryError::deviceNotFound(udid);
        owner.reset();
        pause(pauseBetweenAttempts, stop);
    }
}

LockdownService LockdownSession::startService(const char* name) {
    lockdownd_service_descriptor_t descriptor = nullptr;
    const lockdownd_error_t status = lockdownd_start_service(client(), name, &descriptor);
    LockdownService service(descriptor);
    if (status != LOCKDOWN_E_SUCCESS || !service)
        throw TessaryError::serviceStartFailed(QStringLiteral("%1 failed: %2")
                                                   .arg(QString::fromLatin1(name))
                                                   .arg(static_cast<int>(status)));
    return service;
}

std::optional<StorageInfo> LockdownSession::getStorageInfo() {
    plist_t value = nullptr;
    const lockdownd_error_t status =
        lockdownd_get_value(client(), "com.apple.disk_usage", nullptr, &value);
    const PlistHandle owner(value);
    return status == LOCKDOWN_E_SUCCESS ? storageFromDiskUsage(value) : std::nullopt;
}

std::optional<QString> LockdownSession::deviceName() {
    char* name = nullptr;
    const lockdownd_error_t status = lockdownd_get_device_name(client(), &name);
    const LibraryText owner(name);
    if (status != LOCKDOWN_E_SUCCESS || name == nullptr || *name == '\0')
        return std::nullopt;
    return QString::fromUtf8(name);
}

bool LockdownSession::usesNetwork() const {
    usbmuxd_device_info_t info{};
    constexpr auto options =
        static_cast<usbmux_lookup_options>(DEVICE_LOOKUP_USBMUX | DEVICE_LOOKUP_NETWORK);
    return usbmuxd_get_device(udid_.constData(), &info, options) > 0 &&
           info.conn_type == CONNECTION_TYPE_NETWORK;
}

void LockdownSession::waitFor(std::chrono::milliseconds time, const std::stop_token& stop) {
    std::mutex mutex;
    std::condition_variable_any never;
    std::unique_lock lock(mutex);
    never.wait_for(lock, stop, time, [] { return false; });
}

} // namespace tessary
