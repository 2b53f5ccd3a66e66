// What a browser is connected to, and what becomes of that when phones come and go.

#include "base/threads/EndInBackground.h"
#include "browser/model/FileBrowserViewModel.h"

#include <utility>

namespace tessary {

namespace {

const QString& noAppName() {
    static const QString name = QStringLiteral("Documents");
    return name;
}

} // namespace

void FileBrowserViewModel::stopAll() {
    ++loadNumber_;
    stopLoad_.request_stop();
    cancelPreview();
    cancelEdits();
    reloadTimer_.stop();
}

void FileBrowserViewModel::connectAndroid(const DeviceInfo& device, const QString& initialPath) {
    open(openAndroid_(device), device, initialPath);
}

void FileBrowserViewModel::connect(const QString& udid, const QString& bundleId,
                                   const QString& appName, const DeviceInfo& device,
                                   const QString& targetPath) {
    DeviceInfo phone = device;
    phone.udid = udid;
    const AppInfo app{bundleId, appName.isEmpty() ? bundleId : appName, true, false};
    open(openApp_(phone, app), phone, targetPath);
    isConnecting_ = true;
    appName_ = app.displayName;
    Q_EMIT connectionChanged();
}

void FileBrowserViewModel::open(std::shared_ptr<FileAccess> files,
                                const std::optional<DeviceInfo>& device,
                                const QString& initialPath) {
    cancelPreview();
    reloadTimer_.stop();
    std::swap(files_, files);
    endInBackground(this, std::move(files)); // saying goodbye to a phone takes its time
    activeDevice_ = device;
    appName_ = noAppName();
    isConnecting_ = false;
    history_ = {};
    knownFolders_.clear();
    folders_.open(*files_, device ? device->id() : QString());
    Q_EMIT connectionChanged();
    const QString path = files_->canonicalPath(initialPath);
    history_.record(path);
    Q_EMIT historyChanged();
    show(path);
}

void FileBrowserViewModel::loseDevice() {
    if (!files_)
        return;
    stopAll();
    folders_.forget(*files_);
    setState(BrowserState::deviceLost, false);
    setError(ErrorAdvice{QStringLiteral("The phone was unplugged."),
                         activeDevice_ && activeDevice_->platform == DevicePlatform::iOS
                             ? QStringLiteral("Plug the phone in again and unlock it.")
                             : QStringLiteral("Plug the phone in again, unlock it and choose File "
                                              "transfer on it.")},
             true);
}

void FileBrowserViewModel::updateDevice(const DeviceInfo& device) {
    if (!activeDevice_ || activeDevice_->udid != device.udid || *activeDevice_ == device)
        return;
    const bool isBack = state_ == BrowserState::deviceLost;
    const bool isUnlocked = !activeDevice_->isDataAccessible() && device.isDataAccessible();
    if (activeDevice_->protocolMode != device.protocolMode)
        folders_.forget(*files_);
    folders_.open(*files_, device.id());
    activeDevice_ = device;
    // The connection to an app is opened anew by itself, wherever the phone is plugged in.
    if (device.platform == DevicePlatform::android)
        files_ = openAndroid_(device);
    const BrowserRoot root = files_->rootOf(currentPath_);
    if (!breadcrumbs_.empty() && breadcrumbs_.front().name != root.name) {
        breadcrumbs_.front().name = root.name;
        Q_EMIT pathChanged();
    }
    Q_EMIT connectionChanged();
    if (isBack || isUnlocked)
        reload();
}

} // namespace tessary
