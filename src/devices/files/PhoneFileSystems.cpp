#include "devices/files/PhoneFileSystems.h"

#include <algorithm>
#include <utility>

namespace tessary {

PhoneFileSystems::PhoneFileSystems(Ways ways) : ways_(std::move(ways)) {}

std::shared_ptr<PhoneFileSystem> PhoneFileSystems::once(
    const QString& way, const PhoneIdentity& phone,
    const std::function<std::shared_ptr<PhoneFileSystem>(const std::shared_ptr<PhoneQueue>&)>&
        make) {
    const QString key = way + QLatin1Char(' ') + phone.key();
    std::shared_ptr<PhoneFileSystem> old; // ends without the lock
    const std::scoped_lock lock(mutex_);
    const auto known = opened_.constFind(key);
    // An iPhone that was plugged in anew does not take up its old connection.
    if (known != opened_.cend() && known->phone.attachment == phone.attachment)
        return known->files;
    if (known != opened_.cend())
        old = known->files;
    auto files = make(queues_.of(phone));
    if (files)
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

void PhoneFileSystems::keepOnly(const std::vector<PhoneIdentity>& attached) {
    std::vector<Opened> gone; // ends without the lock
    const std::scoped_lock lock(mutex_);
    for (auto one = opened_.begin(); one != opened_.end();) {
        const bool isThere =
            std::any_of(attached.begin(), attached.end(), [&](const PhoneIdentity& phone) {
                return phone.key() == one->phone.key() && phone.attachment == one->phone.attachment;
            });
        if (isThere) {
            ++one;
        } else {
            gone.push_back(std::move(*one));
            one = opened_.erase(one);
        }
    }
}

} // namespace tessary
