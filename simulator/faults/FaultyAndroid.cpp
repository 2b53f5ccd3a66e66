#include "simulator/faults/FaultyAndroid.h"

#include "simulator/mtp/MTPResponderHooks.h"

#include <atomic>

#include <utility>

namespace tessary {

class FaultyAndroid::Hooks final : public MTPResponderHooks {
public:
    Guarded<VirtualFaults> faults;
    VirtualRequestLog log;
    std::atomic<std::size_t> cancelRequests = 0;
    std::atomic<std::size_t> needlessHaltClears = 0;

    void commandArrived(const MTPCommand& command) override {
        log.add({command.operation, command.transactionID, command.parameters,
                 std::chrono::steady_clock::now()});
    }
    void cancelRequested() override {
        ++cancelRequests;
    }
    void clearedNeedlessly() override {
        ++needlessHaltClears;
    }

    std::chrono::milliseconds delay(std::uint16_t operation) override {
        return faults.update([operation](const VirtualFaults& now) {
            const auto found = now.delay.find(operation);
            return found == now.delay.end() ? now.delayEach : now.delayEach + found->second;
        });
    }
    bool hangs(std::uint16_t operation) override {
        return faults.update(
            [operation](const VirtualFaults& now) { return now.hang.contains(operation); });
    }
    std::optional<std::uint16_t> refusal(std::uint16_t operation) override {
        return faults.update([operation](VirtualFaults& now) -> std::optional<std::uint16_t> {
            const auto found = now.errors.find(operation);
            if (found == now.errors.end())
                return std::nullopt;
            const std::uint16_t status = found->second.code;
            if (!found->second.always)
                now.errors.erase(found);
            return status;
        });
    }

    bool garbles() override {
        return faults.update(
            [](VirtualFaults& now) { return std::exchange(now.garblesNext, false); });
    }
    double megabytesPerSecond() override {
        return faults.update([](const VirtualFaults& now) { return now.megabytesPerSecond; });
    }
    MTPPacking packing() override {
        return faults.update([](const VirtualFaults& now) -> MTPPacking { return now; });
    }
    MTPPhaseLimits beginPhase(USBDirection direction) override {
        return faults.update([direction](VirtualFaults& now) {
            return MTPPhaseLimits{due(now.unplug, direction), due(now.stall, direction)};
        });
    }
    std::optional<Bytes> rewrite(const VirtualAnswer& answer) override {
        // Called without the lock: it may change the faults.
        const auto hook = faults.update([](const VirtualFaults& now) { return now.rewrite; });
        return hook ? hook(answer) : std::nullopt;
    }

    QString shownName(const QString& name) override {
        return faults.update([&name](const VirtualFaults& now) {
            const auto found = now.nameOverrides.find(name);
            return found == now.nameOverrides.end() ? name : found->second;
        });
    }
    void listing(std::uint32_t parent, std::vector<std::uint32_t>& handles) override {
        faults.update([&](const VirtualFaults& now) {
            if (now.foldersHoldThemselves && parent != 0 && parent != mtpRootHandle)
                handles.push_back(parent);
            if (now.repeatsHandles)
                handles.insert(handles.end(), handles.begin(), handles.end());
        });
    }
    std::optional<std::uint64_t> storeFullAfter() override {
        return faults.update([](const VirtualFaults& now) { return now.storeFullAfter; });
    }
    std::chrono::milliseconds sendObjectPause() override {
        return faults.update([](const VirtualFaults& now) { return now.sendObjectPause; });
    }

private:
    /// Where the phase that begins is hit, when it is the one that the fault waits for.
    static std::optional<std::uint64_t> due(std::optional<VirtualByteFault>& fault,
                                            USBDirection direction) {
        if (!fault || fault->direction != direction || --fault->phase > 0)
            return std::nullopt;
        const std::uint64_t at = fault->bytes;
        fault.reset();
        return at;
    }
};

FaultyAndroid::FaultyAndroid(VirtualAndroidConfig config)
    : FaultyAndroid(std::move(config), std::make_unique<Hooks>()) {}

FaultyAndroid::FaultyAndroid(VirtualAndroidConfig config, std::unique_ptr<Hooks> hooks)
    : VirtualAndroid(std::move(config), std::move(hooks)),
      hooks_(static_cast<Hooks&>(this->hooks())) {}

Guarded<VirtualFaults>& FaultyAndroid::faults() {
    return hooks_.faults;
}

std::vector<VirtualRequest> FaultyAndroid::requestLog() const {
    return hooks_.log.requests();
}

std::size_t FaultyAndroid::requestCount() const {
    return hooks_.log.count();
}

std::size_t FaultyAndroid::requestCount(MTPOperationCode operation) const {
    return hooks_.log.count(static_cast<std::uint16_t>(operation));
}

void FaultyAndroid::clearRequestLog() {
    hooks_.log.clear();
}

std::size_t FaultyAndroid::cancelRequests() const {
    return hooks_.cancelRequests;
}

std::size_t FaultyAndroid::needlessHaltClears() const {
    return hooks_.needlessHaltClears;
}

} // namespace tessary
