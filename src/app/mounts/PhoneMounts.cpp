#include "app/mounts/PhoneMounts.h"

#include "app/texts/DisplayNames.h"
#include "base/log/DiagnosticsLogger.h"
#include "base/threads/Background.h"

#include <algorithm>

namespace tessary {

namespace {

/// One tree a storage, called as the window calls it.
std::vector<FileTreeRoot> treesOf(const PhoneFileSystem& files, const DeviceInfo& device) {
    std::vector<FileTreeRoot> trees = mountedTrees(files, device.volumes);
    for (FileTreeRoot& tree : trees)
        tree.name = placeDisplayName(tree.name);
    return trees;
}

void noteFailure(const FileItem& item, const Error& error) {
    DiagnosticsLogger::shared().transfer.error("not read through a mount: %s: %s",
                                               {item.path, error.logText()});
}

} // namespace

PhoneMounts::PhoneMounts(DeviceManager& devices, PhoneFileSystems& phones, ShowFolder showFolder)
    : devices_(devices), phones_(phones), showFolder_(std::move(showFolder)) {
    connect(&devices, &DeviceManager::devicesChanged, this, &PhoneMounts::follow);
}

void PhoneMounts::open(const DeviceInfo& device, const std::optional<AppInfo>& app,
                       const QString& path) {
    const auto files = device.platform != DevicePlatform::iOS ? phones_.open(device)
                       : app                                  ? phones_.openApp(device, *app)
                                                              : phones_.openMedia(device);
    if (!files)
        return;
    const QString identity = files->identity();
    const auto known = mounted_.find(identity);
    if (known != mounted_.end()) {
        known->second.wanted = path;
        if (known->second.mount)
            show(known->second);
        return;
    }
    mounted_.insert({identity, {device, files, nullptr, path}});
    runInBackground(
        this,
        [files, trees = treesOf(*files, device)] {
            return std::shared_ptr<PhoneMount>(
                PhoneMount::mountByName(files, trees, files->displayName(), noteFailure));
        },
        [this, identity](BackgroundResult<std::shared_ptr<PhoneMount>> result) {
            take(identity, result.succeeded() ? result.take() : nullptr);
        });
}

/// One that is not wanted any more goes at once: nobody can have opened anything in it.
void PhoneMounts::take(const QString& identity, std::shared_ptr<PhoneMount> mount) {
    const auto wanted = mounted_.find(identity);
    if (wanted == mounted_.end())
        return;
    if (!mount) {
        const QString name = wanted->second.files->displayName();
        mounted_.erase(wanted);
        Q_EMIT failed(name);
        return;
    }
    wanted->second.mount = std::move(mount);
    show(wanted->second);
    Q_EMIT changed();
}

void PhoneMounts::show(const Mounted& mounted) const {
    showFolder_(mounted.wanted.isEmpty()
                    ? mounted.mount->path()
                    : mounted.mount->localPath(mounted.files->canonicalPath(mounted.wanted)));
}

bool PhoneMounts::isBeingRead() const {
    return std::ranges::any_of(mounted_, [](const auto& one) {
        return one.second.mount && one.second.mount->isBeingRead();
    });
}

bool PhoneMounts::isOpen(const QString& udid) const {
    return std::ranges::any_of(mounted_, [&](const auto& one) {
        return one.second.mount && one.second.device.udid == udid;
    });
}

void PhoneMounts::close(const QString& udid) {
    closeIf([&udid](const Mounted& one) { return one.device.udid == udid; });
}

/// The phones that are there have changed.
void PhoneMounts::follow() {
    closeIf([this](const Mounted& one) {
        return std::ranges::none_of(devices_.devices(), [&one](const DeviceInfo& device) {
            return device.id() == one.device.id() && device.protocolMode == one.device.protocolMode;
        });
    });
}

void PhoneMounts::closeIf(const std::function<bool(const Mounted&)>& isToGo) {
    std::vector<std::shared_ptr<PhoneMount>> gone;
    for (auto one = mounted_.begin(); one != mounted_.end();) {
        if (!isToGo(one->second)) {
            ++one;
            continue;
        }
        gone.push_back(std::move(one->second.mount));
        one = mounted_.erase(one);
    }
    if (gone.empty())
        return;
    // Their readers are let go, which may take a moment.
    runInBackground(
        this, [gone = std::move(gone)]() mutable { gone.clear(); }, [](BackgroundResult<void>) {});
    Q_EMIT changed();
}

void PhoneMounts::closeAll() {
    mounted_.clear();
}

} // namespace tessary
