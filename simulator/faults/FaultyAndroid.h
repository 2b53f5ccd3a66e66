#pragma once

#include "simulator/faults/VirtualFaults.h"
#include "simulator/faults/VirtualRequestLog.h"
#include "simulator/mtp/VirtualAndroid.h"
#include "simulator/wire/Guarded.h"

namespace tessary {

/// A virtual Android phone that does wrong what it is told to, and remembers what was asked of it.
/// Thread-safe.
class FaultyAndroid final : public VirtualAndroid {
public:
    explicit FaultyAndroid(VirtualAndroidConfig config);

    /// May be changed at any time; a transaction under way sees it from its next step on.
    [[nodiscard]] Guarded<VirtualFaults>& faults();

    [[nodiscard]] std::vector<VirtualRequest> requestLog() const;
    [[nodiscard]] std::size_t requestCount() const;
    [[nodiscard]] std::size_t requestCount(MTPOperationCode operation) const;
    void clearRequestLog();
    /// How many cancel requests came, and how many halts were cleared without need.
    [[nodiscard]] std::size_t cancelRequests() const;
    [[nodiscard]] std::size_t needlessHaltClears() const;

private:
    class Hooks;
    FaultyAndroid(VirtualAndroidConfig config, std::unique_ptr<Hooks> hooks);

    Hooks& hooks_; ///< the base's
};

} // namespace tessary
