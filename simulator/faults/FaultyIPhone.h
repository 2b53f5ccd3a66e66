#pragma once

#include "simulator/faults/VirtualIPhoneFaults.h"
#include "simulator/faults/VirtualIPhoneLog.h"
#include "simulator/iphone/VirtualMux.h"
#include "simulator/wire/Guarded.h"

namespace tessary {

/// A virtual iPhone that does wrong what it is told to, and remembers what was asked of it.
/// Thread-safe.
class FaultyIPhone final : public VirtualIPhone {
public:
    explicit FaultyIPhone(VirtualIPhoneConfig config);

    /// May be changed at any time; each request sees it afresh.
    [[nodiscard]] Guarded<VirtualIPhoneFaults>& faults();
    [[nodiscard]] VirtualIPhoneLog& log();
    /// How often a request was made: "lockdown.StartSession", see VirtualIPhoneLog.
    [[nodiscard]] std::size_t requestCount(const QString& request) const;

private:
    class Hooks;
    FaultyIPhone(VirtualIPhoneConfig config, std::unique_ptr<Hooks> hooks);

    Hooks& hooks_; ///< the base's
};

/// A multiplexer that remembers what was asked of itself. Thread-safe.
class LoggingMux final : public VirtualMux {
public:
    explicit LoggingMux(const QString& socketPath);

    [[nodiscard]] VirtualIPhoneLog& log() {
        return *log_;
    }

private:
    LoggingMux(const QString& socketPath, std::shared_ptr<VirtualIPhoneLog> log);

    const std::shared_ptr<VirtualIPhoneLog> log_; ///< in use before this class is constructed
};

} // namespace tessary
