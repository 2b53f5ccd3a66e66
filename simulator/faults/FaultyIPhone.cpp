#include "simulator/faults/FaultyIPhone.h"

#include <utility>

namespace tessary {

class FaultyIPhone::Hooks final : public VirtualIPhoneHooks {
public:
    Guarded<VirtualIPhoneFaults> faults;
    VirtualIPhoneLog log;

    void requested(const QString& request, const QString& detail, std::uint64_t number) override {
        log.add({request, detail, number, std::chrono::steady_clock::now()});
    }
    std::optional<std::chrono::milliseconds> delay(const QString& request) override {
        return faults.update(
            [&request](const VirtualIPhoneFaults& now) -> std::optional<std::chrono::milliseconds> {
                if (now.hang.contains(request))
                    return std::nullopt;
                const auto found = now.delay.find(request);
                return found == now.delay.end() ? now.delayEach : now.delayEach + found->second;
            });
    }
    std::optional<VirtualCut> cutAt(const QString& request, bool afterwards) override {
        return faults.update([&](VirtualIPhoneFaults& now) -> std::optional<VirtualCut> {
            auto& fault = now.requestFault;
            if (!fault || fault->request != request || fault->afterwards != afterwards ||
                --fault->nth > 0)
                return std::nullopt;
            const VirtualCut cut = fault->cut;
            fault.reset();
            return cut;
        });
    }
    std::size_t allowed(VirtualDirection direction, std::size_t bytes,
                        std::optional<VirtualCut>& cut) override {
        return faults.update([&](VirtualIPhoneFaults& now) {
            auto& fault = now.byteFault;
            if (!fault || fault->direction != direction)
                return bytes;
            if (fault->bytes > bytes) {
                fault->bytes -= bytes;
                return bytes;
            }
            const auto left = static_cast<std::size_t>(fault->bytes);
            cut = fault->cut;
            fault.reset();
            return left;
        });
    }

    std::optional<VirtualRawAnswer> rawAnswer(const QString& request) override {
        return faults.update(
            [&request](const VirtualIPhoneFaults& now) -> std::optional<VirtualRawAnswer> {
                const auto found = now.rawAnswers.find(request);
                return found == now.rawAnswers.end() ? std::nullopt : std::optional(found->second);
            });
    }

    std::optional<QString> handshakeError() override {
        return faults.update([](VirtualIPhoneFaults& now) -> std::optional<QString> {
            if (now.handshakesToFail == 0)
                return std::nullopt;
            --now.handshakesToFail;
            return now.handshakeError;
        });
    }
    std::uint64_t status(const QString& request) override {
        return faults.update([&request](VirtualIPhoneFaults& now) -> std::uint64_t {
            const auto found = now.statuses.find(request);
            if (found == now.statuses.end())
                return 0;
            if (found->second.before > 0) {
                --found->second.before;
                return 0;
            }
            const VirtualAFCStatus fault = found->second;
            if (!fault.always)
                now.statuses.erase(found);
            return fault.status;
        });
    }

    void listing(std::vector<std::string>& names) override {
        const auto overrides =
            faults.update([](const VirtualIPhoneFaults& now) { return now.nameOverrides; });
        for (std::string& name : names) {
            const auto found = overrides.find(QString::fromStdString(name));
            if (found != overrides.end())
                name = found->second.toStdString();
        }
    }
    QStringList fileInfo(const QString& path, QStringList pairs) override {
        // Called without the lock: it may change the faults.
        const auto rewrite =
            faults.update([](const VirtualIPhoneFaults& now) { return now.rewriteFileInfo; });
        return rewrite ? rewrite(path, pairs) : pairs;
    }
    std::uint64_t longestRead() override {
        return faults.update([](const VirtualIPhoneFaults& now) { return now.longestRead; });
    }
    std::optional<std::uint64_t> storeFullAfter() override {
        return faults.update([](const VirtualIPhoneFaults& now) { return now.storeFullAfter; });
    }
    bool garbles() override {
        return faults.update(
            [](VirtualIPhoneFaults& now) { return std::exchange(now.garblesNext, false); });
    }
    double megabytesPerSecond() override {
        return faults.update([](const VirtualIPhoneFaults& now) { return now.megabytesPerSecond; });
    }
};

FaultyIPhone::FaultyIPhone(VirtualIPhoneConfig config)
    : FaultyIPhone(std::move(config), std::make_unique<Hooks>()) {}

FaultyIPhone::FaultyIPhone(VirtualIPhoneConfig config, std::unique_ptr<Hooks> hooks)
    : VirtualIPhone(std::move(config), std::move(hooks)),
      hooks_(static_cast<Hooks&>(this->hooks())) {}

Guarded<VirtualIPhoneFaults>& FaultyIPhone::faults() {
    return hooks_.faults;
}

VirtualIPhoneLog& FaultyIPhone::log() {
    return hooks_.log;
}

std::size_t FaultyIPhone::requestCount(const QString& request) const {
    return hooks_.log.count(request);
}

LoggingMux::LoggingMux(const QString& socketPath)
    : LoggingMux(socketPath, std::make_shared<VirtualIPhoneLog>()) {}

LoggingMux::LoggingMux(const QString& socketPath, std::shared_ptr<VirtualIPhoneLog> log)
    : VirtualMux(socketPath,
                 [log](const QString& request, const QString& record, std::uint64_t deviceID) {
                     log->add({request, record, deviceID, std::chrono::steady_clock::now()});
                 }),
      log_(std::move(log)) {}

} // namespace tessary
