#pragma once

#include "simulator/mtp/MTPResponderDatasets.h"
#include "simulator/mtp/MTPResponderLink.h"
#include "simulator/mtp/VirtualBehaviour.h"
#include "simulator/mtp/VirtualObjectStore.h"
#include "simulator/wire/Guarded.h"

#include <atomic>
#include <map>
#include <set>
#include <thread>

namespace tessary {

/// The device's side of MTP, as strict as a real phone: session state, transaction ids, phases and
/// parameters are checked. Runs on a thread of its own from start() until the port is unplugged.
///
/// Transaction ids must rise within a session; OpenSession, whatever its answer, starts the count
/// anew, since the host that sends it knows nothing of an earlier one. What cannot be a container
/// of the phase that is due halts the pipe that the host uses.
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
        return store_;
    }
    [[nodiscard]] MTPResponderHooks& hooks() {
        return *hooks_;
    }
    [[nodiscard]] Guarded<VirtualBehaviour>& behaviour() {
        return behaviour_;
    }
    /// Tells the host of something. Without an attachment nobody hears it.
    void sendEvent(std::uint16_t code, std::uint32_t parameter);
    void setBattery(int percent) {
        battery_ = percent;
    }

    // The host's side of the port.

    /// The still-image class's Cancel (0x21, 0x64: u16 0x4001, u32 transaction id) and
    /// GetDeviceStatus (0xA1, 0x67: u16 length 4, u16 0x2001 or 0x2019).
    USBCode control(VirtualUSBPort& port, const USBControlRequest& request,
                    std::span<std::byte> data, std::size_t& transferred);
    void haltCleared(bool needed);
    void unplugged();

private:
    struct Operation;
    /// A transaction under way; operations add the parameters of their answer.
    struct Transaction {
        const MTPCommand& command;
        MTPResponderLink& link;
        VirtualBehaviour behaviour;
        std::vector<std::uint32_t> answer;
    };
    /// What SendObjectInfo announced.
    struct Pending {
        std::uint32_t handle = 0;
        std::uint32_t storageID = 0;
        std::uint32_t announcedSize = 0;      ///< 0xFFFFFFFF: any
        bool isOnDisk = false;                ///< there already, empty or to be replaced
        std::optional<std::int64_t> modified; ///< seconds since 1970
    };
    class Arrival;

    static std::span<const Operation> operations();
    static const Operation* operation(std::uint16_t code);

    void run(const std::shared_ptr<VirtualUSBPort>& port);
    void serve(MTPResponderLink& link, const MTPCommand& command);
    void perform(const Operation* operation, Transaction& transaction);
    void checkOrder(const Operation* operation, const Transaction& transaction);
    void checkTransactionID(const Operation* operation, std::uint32_t id);
    void endSession();
    [[nodiscard]] Bytes receiveDataset(Transaction& transaction);
    [[nodiscard]] QString shownName(const VirtualObject& object);

    // Session and device
    void getDeviceInfo(Transaction& transaction);
    void openSession(Transaction& transaction);
    void closeSession(Transaction& transaction);
    void getStorageIDs(Transaction& transaction);
    void getStorageInfo(Transaction& transaction);
    void getDevicePropDesc(Transaction& transaction);
    void getDevicePropValue(Transaction& transaction);

    // Objects
    [[nodiscard]] std::vector<std::uint32_t> listedHandles(Transaction& transaction);
    void getNumObjects(Transaction& transaction);
    void getObjectHandles(Transaction& transaction);
    void getObjectInfo(Transaction& transaction);
    void deleteObject(Transaction& transaction);
    void moveObject(Transaction& transaction);
    void getObjectPropsSupported(Transaction& transaction);
    void getObjectPropValue(Transaction& transaction);
    void setObjectPropValue(Transaction& transaction);
    void getObjectPropList(Transaction& transaction);

    // Contents
    void getObject(Transaction& transaction);
    /// The picture that a camera put into the head of a JPEG file.
    void getThumb(Transaction& transaction);
    void getPartialObject(Transaction& transaction);
    void getPartialObject64(Transaction& transaction);
    void sendRange(Transaction& transaction, std::uint64_t offset, std::uint32_t most);
    void sendObjectInfo(Transaction& transaction);
    void sendObject(Transaction& transaction);
    void dropPending(bool keepsObject);

    // Edits in place
    /// The file of an edit that was begun; generalError when there is none.
    [[nodiscard]] const FileHandle& editOf(std::uint32_t handle) const;
    void beginEditObject(Transaction& transaction);
    void sendPartialObject(Transaction& transaction);
    void truncateObject(Transaction& transaction);
    void endEditObject(Transaction& transaction);

    MTPDeviceDescription description_;
    VirtualObjectStore store_;
    const std::unique_ptr<MTPResponderHooks> hooks_;
    Guarded<VirtualBehaviour> behaviour_;
    MTPTransactionState state_;
    std::atomic<int> battery_;

    // Of the phone's thread
    bool sessionOpen_ = false;
    std::uint32_t lastTransactionID_ = 0;
    std::optional<Pending> pending_;
    std::set<std::uint32_t> hidden_; ///< until the next session
    std::map<std::uint32_t, FileHandle> edits_;

    std::mutex threadMutex_; ///< guards both
    std::weak_ptr<VirtualUSBPort> port_;
    std::jthread thread_;
};

} // namespace tessary
