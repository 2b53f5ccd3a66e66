#include "devices/files/PhoneFileSystems.h"

#include "base/threads/EndInBackground.h"

#include <utility>

namespace tessary {

PhoneFileSystems::PhoneFileSystems(Ways ways) : ways_(std::move(ways)) {}

std::shared_ptr<PhoneFileSystem> PhoneFileSystems::once(
    const QString& way, const PhoneIdentity& phone,
    const std::function<std::shared_ptr<PhoneFileSystem>(const std::shared_ptr<PhoneQueue>&)>&
        make) {
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
    const PhoneIdentity phone = identityOf(device);
    if (device.protocolMode == ProtocolMode::adbTurbo)
        if (auto files = once(QStringLiteral("adb"), phone,
                              [&](const auto& queue) { return ways_.adb(phone, queue); }))
            return files;
    return once(QStringLiteral("mtp"), phone,
                [&](const auto& queue) { return ways_.mtp(phone, queue); });
}

std::shared_ptr<PhoneFileSystem> PhoneFileSystems::openApp(const DeviceInfo& device,
                                                           const AppInfo& app) {
    if (isMediaFolder(app.bundleIdentifier))
        return openMedia(device);
    const PhoneIdentity phone = identityOf(device);
    return once(QStringLiteral("app ") + app.bundleIdentifier, phone,
                [&](const auto& queue) { return ways_.app(phone, app, queue); });
}

std::shared_ptr<PhoneFileSystem> PhoneFileSystems::openMedia(const DeviceInfo& device) {
    const PhoneIdentity phone = identityOf(device);
    return once(QStringLiteral("media"), phone,
                [&](const auto& queue) { return ways_.media(phone, queue); });
}

bool PhoneFileSystems::usesADB(const DeviceInfo& device) {
    const PhoneIdentity phone = identityOf(device);
    return device.protocolMode == ProtocolMode::adbTurbo &&
           once(QStringLiteral("adb"), phone,
                [&](const auto& queue) { return ways_.adb(phone, queue); }) != nullptr;
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
