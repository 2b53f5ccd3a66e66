#include "views/tabs/PhoneChoice.h"

#include <utility>

namespace tessary {

PhoneChoice::PhoneChoice(Parts parts, Chosen chosen) : parts_(parts), chosen_(std::move(chosen)) {
    // What has gone from the phone is not shown any more.
    connect(&parts_.import, &ImportViewModel::removalEnded, this, [this] {
        parts_.browser.folders().forgetAll();
        if (parts_.browser.state() == BrowserState::ready)
            parts_.browser.reload();
    });
}

std::optional<QString> PhoneChoice::appId() const {
    return app_ ? std::optional(app_->bundleIdentifier) : std::nullopt;
}

bool PhoneChoice::isImporting() const {
    const auto chosen = device();
    return parts_.import.state() != ImportViewModel::State::closed && chosen &&
           chosen->udid == parts_.import.device().udid;
}

/// The attached device that is the same phone, wherever it is plugged in.
std::optional<DeviceInfo> PhoneChoice::attached(const DeviceInfo& device) const {
    // An iPhone has another handle at each plugging.
    for (const DeviceInfo& other : parts_.app.deviceManager().devices())
        if (other.id() == device.id() ||
            (device.platform == DevicePlatform::iOS && other.udid == device.udid))
            return other;
    return std::nullopt;
}

bool PhoneChoice::isBrowsed(const DeviceInfo& device) const {
    const auto& active = parts_.browser.activeDevice();
    return active && active->udid == device.udid &&
           parts_.browser.state() != BrowserState::deviceLost;
}

void PhoneChoice::choose(const DeviceInfo* device) {
    isChoosingApp_ = false;
    if (device != nullptr) {
        const bool isShown = isBrowsed(*device);
        if (device->platform == DevicePlatform::iOS) {
            parts_.apps.setDevice(*device);
            if (!isShown)
                connectApp(lastApps_.value(device->udid, mediaFolder()), {});
        } else if (!isShown || parts_.browser.activeDevice()->id() != device->id()) {
            app_.reset();
            parts_.browser.connectAndroid(*device, {}); // where it was left
        }
    }
    Q_EMIT changed();
}

void PhoneChoice::follow() {
    parts_.browser.folders().keepOnly(parts_.app.deviceManager().devices());
    if (const auto active = parts_.browser.activeDevice())
        followBrowsed(*active);
    if (const auto listed = parts_.apps.device()) {
        if (const auto now = attached(*listed))
            parts_.apps.setDevice(*now);
        else
            parts_.apps.clear();
    }
}

void PhoneChoice::followBrowsed(const DeviceInfo& active) {
    FileBrowserViewModel& browser = parts_.browser;
    const auto now = attached(active);
    const bool isLost = browser.state() == BrowserState::deviceLost;
    if (!now) {
        if (!isLost)
            browser.loseDevice();
        return;
    }
    const bool wasLocked = !active.isDataAccessible();
    const bool hasOtherMode = active.protocolMode != now->protocolMode;
    const QString path = browser.isAtPhone() ? QString() : browser.currentPath();
    browser.updateDevice(*now);
    if (isLost && app_)
        browser.connect(now->udid, app_->bundleIdentifier, app_->displayName, *now, path);
    else if (isLost)
        browser.connectAndroid(*now, path);
    else if ((wasLocked || hasOtherMode) && now->isDataAccessible())
        browser.reload();
}

void PhoneChoice::openApp(const AppInfo& app, const QString& path) {
    connectApp(app, path);
    arrive();
}

void PhoneChoice::connectApp(const AppInfo& app, const QString& path) {
    const auto device = parts_.apps.device();
    if (!device)
        return;
    app_ = app;
    lastApps_.insert(device->udid, app);
    isChoosingApp_ = false;
    parts_.browser.connect(device->udid, app.bundleIdentifier, app.displayName, *device, path);
}

/// The user sees another page, which he went to.
void PhoneChoice::arrive() {
    Q_EMIT changed();
    Q_EMIT focusWanted();
}

void PhoneChoice::openMedia() {
    const auto chosen = device();
    if (!chosen || chosen->platform != DevicePlatform::iOS)
        return;
    leaveImport();
    if (app_ && isMediaFolder(app_->bundleIdentifier) && isBrowsed(*chosen)) {
        isChoosingApp_ = false;
        parts_.browser.navigateTo(parts_.browser.rootPath());
        arrive();
        return;
    }
    parts_.apps.setDevice(*chosen);
    openApp(mediaFolder(), QStringLiteral("/"));
}

void PhoneChoice::showApps() {
    const auto chosen = device();
    if (!chosen || chosen->platform != DevicePlatform::iOS)
        return;
    leaveImport();
    isChoosingApp_ = true;
    parts_.apps.setDevice(*chosen);
    arrive();
}

bool PhoneChoice::isAtPhone() const {
    return parts_.browser.isAtPhone() && !isChoosingApp_ && !isImporting() && device();
}

void PhoneChoice::showPhone() {
    leaveImport();
    isChoosingApp_ = false;
    parts_.browser.showPhone();
    arrive();
}

void PhoneChoice::browseFiles() {
    const auto chosen = device();
    if (chosen && chosen->platform == DevicePlatform::iOS) {
        openMedia();
        return;
    }
    parts_.browser.navigateTo(QStringLiteral("/"));
    Q_EMIT focusWanted();
}

void PhoneChoice::openFavorite(const DeviceFavorite& favorite) {
    const auto chosen = device();
    leaveImport();
    if (!chosen)
        return;
    if (!favorite.appBundleId) {
        parts_.browser.navigateTo(favorite.path);
    } else if (appId() == favorite.appBundleId && isBrowsed(*chosen)) {
        isChoosingApp_ = false;
        parts_.browser.navigateTo(favorite.path);
        Q_EMIT changed();
    } else {
        parts_.apps.setDevice(*chosen);
        openApp(
            {*favorite.appBundleId, favorite.appName.value_or(*favorite.appBundleId), true, false},
            favorite.path);
    }
}

void PhoneChoice::openImport() {
    const auto chosen = device();
    if (!chosen)
        return;
    PhoneFileSystems& phones = parts_.app.services().files();
    parts_.import.open(chosen->platform == DevicePlatform::iOS ? phones.openMedia(*chosen)
                                                               : phones.open(*chosen),
                       *chosen);
    arrive();
}

void PhoneChoice::leaveImport() {
    if (parts_.import.state() != ImportViewModel::State::closed)
        parts_.import.close();
}

} // namespace tessary
