#include "simulator/faults/FaultyADBD.h"

#include "simulator/adbd/ADBDHooks.h"

#include <algorithm>

#include <utility>

namespace tessary {

class FaultyADBD::Hooks final : public ADBDHooks {
public:
    Guarded<ADBDFaults> faults;
    Guarded<std::vector<QByteArray>> log;
    Guarded<std::vector<QByteArray>> requests;
    Guarded<std::vector<QByteArray>> violations;

    void serviceAsked(const QByteArray& name) override {
        log.update([&name](auto& all) { all.push_back(name); });
    }
    void requestAsked(const QByteArray& what) override {
        requests.update([&what](auto& all) { all.push_back(what); });
    }
    void lineRefused(const QByteArray& line) override {
        violations.update([&line](auto& all) { all.push_back(line); });
    }

    std::optional<QByteArray> rewrite(const QByteArray& line) override {
        // Called without the lock: it may change the faults.
        const auto hook = faults.update([](const ADBDFaults& now) { return now.rewrite; });
        return hook ? hook(line) : std::nullopt;
    }
    bool passes(std::size_t bytes) override {
        return faults.update([bytes](ADBDFaults& now) {
            if (!now.dropAfter)
                return true;
            if (*now.dropAfter > bytes) {
                *now.dropAfter -= bytes;
                return true;
            }
            now.dropAfter.reset();
            return false;
        });
    }

    bool isReadOnly() override {
        return faults.update([](const ADBDFaults& now) { return now.readOnly; });
    }
    std::size_t roomFor(std::uint64_t at, std::size_t bytes) override {
        const auto limit = faults.update([](const ADBDFaults& now) { return now.storeFullAfter; });
        return limit ? std::min<std::size_t>(bytes, *limit - std::min(*limit, at)) : bytes;
    }
    std::int64_t sizeLie() override {
        return faults.update([](const ADBDFaults& now) { return now.sizeLie; });
    }
    std::vector<QByteArray> extraNames() override {
        return faults.update([](const ADBDFaults& now) { return now.extraNames; });
    }
    bool garbles() override {
        return faults.update([](ADBDFaults& now) { return std::exchange(now.garblesNext, false); });
    }
    double megabytesPerSecond() override {
        return faults.update([](const ADBDFaults& now) { return now.megabytesPerSecond; });
    }
};

FaultyADBD::FaultyADBD(ADBDConfig config)
    : FaultyADBD(std::move(config), std::make_unique<Hooks>()) {}

FaultyADBD::FaultyADBD(ADBDConfig config, std::unique_ptr<Hooks> hooks)
    : VirtualADBD(std::move(config), std::move(hooks)),
      hooks_(static_cast<Hooks&>(this->hooks())) {}

Guarded<ADBDFaults>& FaultyADBD::faults() {
    return hooks_.faults;
}

std::vector<QByteArray> FaultyADBD::log() const {
    return hooks_.log.get();
}

void FaultyADBD::clearLog() {
    hooks_.log.set({});
    hooks_.requests.set({});
}

std::vector<QByteArray> FaultyADBD::requests() const {
    return hooks_.requests.get();
}

std::vector<QByteArray> FaultyADBD::violations() const {
    return hooks_.violations.get();
}

} // namespace tessary
