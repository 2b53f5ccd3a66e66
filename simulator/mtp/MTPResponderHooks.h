#pragma once

#include "base/values/Bytes.h"
#include "mtp/protocol/MTPTypes.h"
#include "platform/usb/USBBus.h"

#include <QString>

#include <chrono>
#include <cstdint>
#include <optional>
#include <vector>

namespace tessary {

/// A command as it arrived; missing parameters read as 0.
struct MTPCommand {
    std::uint16_t operation = 0; ///< raw code
    std::uint32_t transactionID = 0;
    std::vector<std::uint32_t> parameters;

    [[nodiscard]] std::uint32_t parameter(std::size_t index) const {
        return index < parameters.size() ? parameters[index] : 0;
    }
};

/// One container on its way to the host, complete; of an object's content only the 12 header bytes.
struct VirtualAnswer {
    std::uint16_t operation = 0; ///< raw code of the command
    MTPContainerType type = MTPContainerType::response;
    Bytes container;
};

/// How a phone packs its answers into transfers; all off for one that keeps to the standard.
struct MTPPacking {
    bool headerInOwnTransfer = false;   ///< the data phase's header, then its payload
    bool dataAndResponseJoined = false; ///< both in one transfer
    bool omitsZeroPacket = false;       ///< after a data phase of whole packets
    bool extraZeroPacket = false;       ///< after every data phase that ends with a short packet
    bool extraByte = false;             ///< data phases are one byte longer than announced
    bool junkTransactionID = false;     ///< in responses
    /// Does not wait for the empty packet behind a host's data of whole packets: it halts the pipe.
    bool refusesZeroPacket = false;
};

/// Where a data phase ends before its time, in bytes (the 12 of the header included).
struct MTPPhaseLimits {
    std::optional<std::uint64_t> unplugAt;
    std::optional<std::uint64_t> stallAt;
};

/// What may step in while a responder works; this one never does, and a phone with it does
/// everything right. Called on the phone's thread, except where it says otherwise.
class MTPResponderHooks {
public:
    /// `megabytesPerSecond` (of 10^6 bytes) is the pace of data phases; 0 for no limit.
    explicit MTPResponderHooks(double megabytesPerSecond = 0) : pace_(megabytesPerSecond) {}
    virtual ~MTPResponderHooks() = default;
    MTPResponderHooks(const MTPResponderHooks&) = delete;
    MTPResponderHooks& operator=(const MTPResponderHooks&) = delete;

    virtual void commandArrived(const MTPCommand&) {}
    /// On the host's thread: a cancel request came; a halt was cleared where none was.
    virtual void cancelRequested() {}
    virtual void clearedNeedlessly() {}

    /// How long to wait before the data phase or the answer.
    [[nodiscard]] virtual std::chrono::milliseconds delay(std::uint16_t /*operation*/) {
        return {};
    }
    /// The operation is not answered at all.
    [[nodiscard]] virtual bool hangs(std::uint16_t /*operation*/) {
        return false;
    }
    /// A status that the operation is refused with.
    [[nodiscard]] virtual std::optional<std::uint16_t> refusal(std::uint16_t /*operation*/) {
        return std::nullopt;
    }

    [[nodiscard]] virtual double megabytesPerSecond() {
        return pace_;
    }
    [[nodiscard]] virtual MTPPacking packing() {
        return {};
    }
    /// A data phase begins.
    [[nodiscard]] virtual MTPPhaseLimits beginPhase(USBDirection) {
        return {};
    }
    /// Other bytes for a container; no value leaves them.
    [[nodiscard]] virtual std::optional<Bytes> rewrite(const VirtualAnswer&) {
        return std::nullopt;
    }

    /// What the phone calls a file, given its name on disk.
    [[nodiscard]] virtual QString shownName(const QString& name) {
        return name;
    }
    /// May change the handles that a list of `parent` holds.
    virtual void listing(std::uint32_t /*parent*/, std::vector<std::uint32_t>& /*handles*/) {}
    /// "Store full" once this many bytes of one object have arrived.
    [[nodiscard]] virtual std::optional<std::uint64_t> storeFullAfter() {
        return std::nullopt;
    }
    /// Asked of each piece of a file's content on its way, either direction; true changes a byte.
    [[nodiscard]] virtual bool garbles() {
        return false;
    }
    /// Between an object's data and the answer.
    [[nodiscard]] virtual std::chrono::milliseconds sendObjectPause() {
        return {};
    }

private:
    const double pace_;
};

} // namespace tessary
