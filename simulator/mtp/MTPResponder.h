#pragma once

#include "simulator/mtp/MTPResponderContents.h"
#include "simulator/mtp/MTPResponderEdits.h"
#include "simulator/mtp/MTPResponderObjects.h"
#include "simulator/mtp/MTPResponderSession.h"

#include <span>
#include <thread>

namespace tessary {

/// The device's side of MTP, as strict as a real phone: session state, transaction ids, phases and
/// parameters are checked. Runs on a thread of its own from start() until the port is unplugged.
///
/// What cannot be a container of the phase that is due halts the pipe that the host uses.
class MTPResponder {
public:
    MTPResponder(MTPDeviceDescription description, std::vector<VirtualStorage> storages,
                 bool locked, int battery, VirtualBehaviour behaviour,
                 std::unique_ptr<MTPResponderHooks> hooks);
    /// The port must be unplugged by then.
    ~MTPResponder();
    MTPResponder(const MTPResponder&) = delete;
    MTPResponder& operator=(const MTPResponder&) = delete;

    /// Serves a new attachment; waits for the thread of the last one, which has been unplugged.
    void start(std::shared_ptr<VirtualUSBPort> port);
    /// Waits for the thread of an attachment that has been unplugged.
    void join();

    // Thread-safe: settings and records.

    [[nodiscard]] VirtualObjectStore& store() {
        return state_.store;
    }
    [[nodiscard]] MTPResponderHooks& hooks() {
        return *state_.hooks;
    }
    [[nodiscard]] Guarded<VirtualBehaviour>& behaviour() {
        return state_.behaviour;
    }
    /// Tells the host of something. Without an attachment nobody hears it.
    void sendEvent(std::uint16_t code, std::uint32_t parameter);
    [[nodiscard]] std::size_t unreadEvents() const;
    void setBattery(int percent) {
        state_.battery = percent;
    }

    // The host's side of the port.

    /// The still-image class's Cancel (0x21, 0x64: u16 0x4001, u32 transaction id) and
    /// GetDeviceStatus (0xA1, 0x67: u16 length 4, u16 0x2001 or 0x2019).
    USBCode control(VirtualUSBPort& port, const USBControlRequest& request,
                    std::span<std::byte> data, std::size_t& transferred);
    void haltCleared(bool needed);
    void unplugged();

private:
    using Transaction = MTPResponderTransaction;
    struct Operation;

    static std::span<const Operation> operations();
    static const Operation* operation(std::uint16_t code);
    template <auto group, auto method>
    static void run(MTPResponder& responder, Transaction& transaction);

    void serveAttachment(const std::shared_ptr<VirtualUSBPort>& port);
    void serve(MTPResponderLink& link, const MTPCommand& command);
    void perform(const Operation* operation, Transaction& transaction);
    void checkOrder(const Operation* operation, const Transaction& transaction);
    void closeSession();
    void endSession();

    MTPResponderState state_;
    MTPTransactionState transactions_;

    // Of the phone's thread
    MTPResponderSession session_{state_};
    MTPResponderObjects objects_{state_};
    MTPResponderContents contents_{state_};
    MTPResponderEdits edits_{state_};

    mutable std::mutex threadMutex_; ///< guards both
    std::weak_ptr<VirtualUSBPort> port_;
    std::jthread thread_;
};

} // namespace tessary
