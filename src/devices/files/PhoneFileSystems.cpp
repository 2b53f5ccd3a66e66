#include "devices/files/PhoneFileSystems.h"

#include "adb/files/ADBFileSystem.h"
#include "base/threads/EndInBackground.h"
#include "ios/files/AFCFileSystem.h"
#include "mtp/files/MTPFileSystem.h"

#include <utility>

namespace tessary {

std::shared_ptr<PhoneFileSystem>
PhoneFileSystems::once(const QString& way, const PhoneIdentity& phone, const Make& make) {
    const QString key = way + QLatin1Char(' ') + phone.key();
    const std::scoped_lock lock(mutex_);
    const auto queue = queues_.of(phone); // which learns the name, too
    const auto known = opened_.constFind(key);
    // An iPhone that was plugged in anew does not take up its old connection.
    if (known != opened_.cend() && known->phone.attachment == phone.attachment)
        return known->files;
    // Its connection may take a while to close.
    if (known != opened_.cend())
        endInBackground(opened_.take(key).files);
    auto files = make(queue);
    if (!files)
        return files;
    limit();
    opened_.insert(key, {phone, files});
    return files;
}

std::shared_ptr<PhoneFileSystem> PhoneFileSystems::open(const DeviceInfo& device) {
    if (auto files = openADB(device))
        return files;
    const PhoneIdentity phone = identityOf(device);
    return once(QStringLiteral("mtp"), phone, [&](const auto& queue) {
        return std::make_shared<MTPFileSystem>(bus_, phone, queue);
    });
}

/// Null where adb is not to be used, or this machine has no such way.
std::shared_ptr<PhoneFileSystem> PhoneFileSystems::openADB(const DeviceInfo& device) {
    if (device.protocolMode != ProtocolMode::adbTurbo)
        return nullptr;
    const PhoneIdentity phone = identityOf(device);
    return once(QStringLiteral("adb"), phone,
                [&](const auto& queue) -> std::shared_ptr<PhoneFileSystem> {
                    if (!adb_.canReach(phone))
                        return nullptr;
                    return std::make_shared<ADBFileSystem>(phone, queue, adb_.connectionTo(phone));
                });
}

std::shared_ptr<PhoneFileSystem> PhoneFileSystems::openApp(const DeviceInfo& device,
                                                           const AppInfo& app) {
    return isMediaFolder(app.bundleIdentifier) ? openMedia(device) : openAFC(device, app);
}

std::shared_ptr<PhoneFileSystem> PhoneFileSystems::openMedia(const DeviceInfo& device) {
    return openAFC(device, std::nullopt);
}

/// Without an app the photos and videos.
std::shared_ptr<PhoneFileSystem> PhoneFileSystems::openAFC(const DeviceInfo& device,
                                                           const std::optional<AppInfo>& app) {
    const PhoneIdentity phone = identityOf(device);
    const QString way =
        app ? QStringLiteral("app ") + app->bundleIdentifier : QStringLiteral("media");
    return once(way, phone, [&](const auto& queue) {
        return std::make_shared<AFCFileSystem>(phone, app, queue);
    });
}

/// Lets go of what nobody uses once there are many: a phone in another port is another one.
void PhoneFileSystems::limit() {
    constexpr qsizetype most = 32;
    if (opened_.size() <= most)
        return;
    opened_.removeIf([](QHash<QString, Opened>::iterator one) {
        const bool isUnused = one->files.use_count() == 1;
        if (isUnused)
            endInBackground(std::move(one->files));
        return isUnused;
    });
}

} // namespace tessary
