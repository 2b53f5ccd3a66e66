#include "sync/manager/SyncConnection.h"

#include "ios/AFCClient.h"
#include "ios/LockdownSession.h"
#include "phone/BusyPhones.h"
#include "sync/old/run/AndroidSyncBackend.h"
#include "sync/old/run/IPhoneSyncBackend.h"

namespace tessary {

SyncConnector deviceConnector(DeviceFileService& files) {
    return [&files](const SyncPair& pair, const DeviceInfo& device,
                    const std::stop_token& stop) -> std::unique_ptr<SyncDeviceBackend> {
        if (device.platform == DevicePlatform::android)
            return std::make_unique<AndroidSyncBackend>(files, device, stop);
        const BusyPhones::Mark connecting(BusyPhones::shared(), device.udid);
        auto session = std::make_unique<LockdownSession>(device.udid, stop);
        return std::make_unique<IPhoneSyncBackend>(
            std::make_unique<AFCClient>(std::move(session), pair.appBundleID, stop), device.udid,
            stop);
    };
}

} // namespace tessary
