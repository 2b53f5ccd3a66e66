#pragma once

#include "simulator/mtp/MTPResponderState.h"
#include "simulator/mtp/MTPResponderTransaction.h"

namespace tessary {

/// The operations of a session and of the device, and the order that a session asks for:
/// transaction ids rise within one; OpenSession, whatever its answer, starts the count anew, since
/// the host that sends it knows nothing of an earlier one. For the phone's thread.
class MTPResponderSession {
public:
    using Transaction = MTPResponderTransaction;

    explicit MTPResponderSession(MTPResponderState& state) : state_(state) {}

    [[nodiscard]] bool isOpen() const {
        return isOpen_;
    }
    void end() {
        isOpen_ = false;
    }
    /// MTPRefusal for an id that does not follow the last one.
    void checkTransactionID(const MTPCommand& command);

    void getDeviceInfo(Transaction& transaction);
    void openSession(Transaction& transaction);
    void getStorageIDs(Transaction& transaction);
    void getStorageInfo(Transaction& transaction);
    void getDevicePropDesc(Transaction& transaction);
    void getDevicePropValue(Transaction& transaction);

private:
    MTPResponderState& state_;
    bool isOpen_ = false;
    std::uint32_t lastTransactionID_ = 0;
};

} // namespace tessary
