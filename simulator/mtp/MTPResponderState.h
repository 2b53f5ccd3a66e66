#pragma once

#include "simulator/mtp/MTPResponderDatasets.h"
#include "simulator/mtp/MTPResponderHooks.h"
#include "simulator/mtp/VirtualBehaviour.h"
#include "simulator/storage/VirtualObjectStore.h"
#include "simulator/wire/Guarded.h"

#include <atomic>
#include <memory>
#include <set>

namespace tessary {

/// The phone that all operations of a responder work on.
struct MTPResponderState {
    // Thread-safe: settings and records
    MTPDeviceDescription description; ///< constant
    VirtualObjectStore store;
    const std::unique_ptr<MTPResponderHooks> hooks;
    Guarded<VirtualBehaviour> behaviour;
    std::atomic<int> battery; ///< percent

    // Of the phone's thread
    std::set<std::uint32_t> hidden = {}; ///< handles that show in the next session only

    /// What the phone calls an object.
    [[nodiscard]] QString shownName(const VirtualObject& object) {
        return hooks->shownName(QString::fromStdString(object.name));
    }
};

} // namespace tessary
