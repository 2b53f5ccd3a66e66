#include "sync/manager/SyncConnection.h"

#include "devices/files/DeviceServices.h"
#include "ios/AFCClient.h"
#include "ios/LockdownSession.h"
#include "phone/BusyPhones.h"
#include "phone/PhoneQueue.h"
#include "sync/old/run/AndroidSyncBackend.h"
#include "sync/old/run/IPhoneSyncBackend.h"

namespace tessary {

namespace {

/// A turn that lasts until what is connected after it is gone.
struct HeldTurn {
    explicit HeldTurn(PhoneQueue::Turn turn) : held(std::move(turn)) {}
    PhoneQueue::Turn held;
};

template <typename Backend>
class BackendInTurn final : private HeldTurn, public Backend {
public:
    template <typename... Args>
    explicit BackendInTurn(PhoneQueue::Turn turn, Args&&... args)
        : HeldTurn(std::move(turn)), Backend(std::forward<Args>(args)...) {}
};

} // namespace

SyncConnector deviceConnector(DeviceServices& services) {
    return [&services](const SyncPair& pair, const DeviceInfo& device,
                       const std::stop_token& stop) -> std::unique_ptr<SyncDeviceBackend> {
        const auto queue = services.files().queueOf(device);
        PhoneQueue::Turn turn = queue->take({stop, Urgency::copy});
        queue->closeConnections();
        if (device.platform == DevicePlatform::android)
            return std::make_unique<BackendInTurn<AndroidSyncBackend>>(
                std::move(turn), services.syncFiles(), device, stop);
        const BusyPhones::Mark connecting(BusyPhones::shared(), device.udid);
        auto session = std::make_unique<LockdownSession>(device.udid, stop);
        return std::make_unique<BackendInTurn<IPhoneSyncBackend>>(
            std::move(turn),
            std::make_unique<AFCClient>(std::move(session), pair.appBundleID, stop), device.udid,
            stop);
    };
}

} // namespace tessary
