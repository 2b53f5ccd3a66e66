#include "cli/devices/DeviceFollower.h"

#include "base/threads/MainThread.h"

#include <condition_variable>
#include <deque>
#include <mutex>

namespace tessary {

struct DeviceFollower::State {
    // Only the main thread's:
    std::unique_ptr<DeviceManager> manager;
    std::optional<DeviceSnapshot> last;

    std::mutex mutex;
    std::condition_variable_any changed;
    std::deque<DeviceSnapshot> snapshots; ///< guarded by mutex
    bool isOver = false;                  ///< guarded by mutex

    /// On the main thread.
    void take(bool isSettled) {
        DeviceSnapshot now{manager->devices(), {}, manager->hasUSBConflict(), isSettled};
        for (const DeviceInfo& device : now.devices)
            if (auto trouble = manager->trouble(device.id()))
                now.troubles.insert(device.id(), *std::move(trouble));
        if (last == now)
            return;
        last = now;
        const std::scoped_lock lock(mutex);
        snapshots.push_back(std::move(now));
        changed.notify_all();
    }
};

DeviceFollower::DeviceFollower(Mode mode, DeviceSources sources, DeviceServices& services,
                               const std::vector<USBIds>& alsoAccept)
    : state_(std::make_shared<State>()) {
    MainThread::post([state = state_, mode, sources, &services, alsoAccept] {
        state->manager = std::make_unique<DeviceManager>(sources, services, alsoAccept);
        DeviceManager* manager = state->manager.get();
        // The state owns the manager and thus outlives its signals.
        State* const taker = state.get();
        const auto changed = [taker] { taker->take(false); };
        QObject::connect(manager, &DeviceManager::devicesChanged, manager, changed);
        QObject::connect(manager, &DeviceManager::troubleChanged, manager, changed);
        QObject::connect(manager, &DeviceManager::hasUSBConflictChanged, manager, changed);
        QObject::connect(manager, &DeviceManager::detailsSettled, manager,
                         [taker] { taker->take(true); });
        if (mode == Mode::once)
            manager->refreshDeviceList(true);
        else
            manager->startListening();
    });
}

DeviceFollower::~DeviceFollower() {
    MainThread::post([state = state_] {
        state->manager.reset();
        const std::scoped_lock lock(state->mutex);
        state->isOver = true;
        state->changed.notify_all();
    });
    // A main thread that is stuck keeps the state for itself.
    constexpr std::chrono::seconds patience(10);
    std::unique_lock lock(state_->mutex);
    state_->changed.wait_for(lock, patience, [this] { return state_->isOver; });
}

std::optional<DeviceSnapshot> DeviceFollower::next(const std::stop_token& stop,
                                                   std::chrono::milliseconds limit) {
    std::unique_lock lock(state_->mutex);
    if (!state_->changed.wait_for(lock, stop, limit,
                                  [this] { return !state_->snapshots.empty(); }) ||
        stop.stop_requested())
        return std::nullopt;
    DeviceSnapshot snapshot = std::move(state_->snapshots.front());
    state_->snapshots.pop_front();
    return snapshot;
}

} // namespace tessary
