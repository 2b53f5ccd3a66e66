#pragma once

#include "mtp/protocol/MTPCodes.h"
#include "simulator/mtp/MTPResponderHooks.h"

#include <QString>

#include <chrono>
#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <set>

namespace tessary {

/// Happens once, after `bytes` bytes (the 12 of the header included) of the `phase`th data phase
/// from when it was set, counted from 1 in its own direction. A packet travels whole or not at all.
struct VirtualByteFault {
    USBDirection direction = USBDirection::in;
    std::uint64_t bytes = 0;
    unsigned phase = 1;
};

/// A status that an operation is refused with.
struct VirtualErrorStatus {
    std::uint16_t code = static_cast<std::uint16_t>(MTPResponseCode::generalError);
    bool always = false; ///< else once
};

/// What a virtual Android phone does wrong, its packing included: parameters, all off at first.
/// Maps and sets are keyed by raw operation codes.
struct VirtualFaults : MTPPacking {
    std::optional<VirtualByteFault> unplug;
    std::optional<VirtualByteFault> stall;

    std::set<std::uint16_t> hang; ///< the operation is not answered at all
    std::map<std::uint16_t, std::chrono::milliseconds> delay; ///< before the data phase or answer
    std::chrono::milliseconds delayEach{0};                   ///< the same for every operation
    double megabytesPerSecond = 0;                            ///< of 10^6 bytes; 0 for no limit
    std::chrono::milliseconds sendObjectPause{0}; ///< between an object's data and the answer

    std::map<std::uint16_t, VirtualErrorStatus> errors;
    /// "Store full" once this many bytes of one object have arrived.
    std::optional<std::uint64_t> storeFullAfter;

    /// May replace the bytes of a container; no value leaves them. Runs on the phone's thread.
    std::function<std::optional<Bytes>(const VirtualAnswer&)> rewrite;

    bool garblesNext = false;    ///< changes a byte of the next content that moves, either way
    bool repeatsHandles = false; ///< handle lists name each object twice
    bool foldersHoldThemselves = false; ///< handle lists of a folder name the folder too
    /// Names on disk and what the phone calls these files. A name of 255 units has no terminator.
    std::map<QString, QString> nameOverrides;
};

} // namespace tessary
