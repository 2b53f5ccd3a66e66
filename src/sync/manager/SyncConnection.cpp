#include "sync/manager/SyncConnection.h"

#include "base/threads/CancellationError.h"
#include "devices/files/PhoneFileSystems.h"

namespace tessary {

SyncConnector deviceConnector(PhoneFileSystems& files) {
    return [&files](const SyncPair& pair, const DeviceInfo& device, const std::stop_token& stop) {
        throwIfStopped(stop);
        if (device.platform == DevicePlatform::android)
            return files.open(device);
        if (pair.appBundleID == SyncPair::deviceStorage)
            return files.openMedia(device);
        AppInfo app;
        app.bundleIdentifier = pair.appBundleID;
        app.displayName = pair.appName;
        return files.openApp(device, app);
    };
}

} // namespace tessary
