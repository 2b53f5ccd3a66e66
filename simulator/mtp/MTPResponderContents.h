#pragma once

#include "simulator/mtp/MTPResponderState.h"
#include "simulator/mtp/MTPResponderTransaction.h"

#include <optional>

namespace tessary {

/// The operations that carry the content of whole objects, and parts of it to the host. For the
/// phone's thread.
class MTPResponderContents {
public:
    using Transaction = MTPResponderTransaction;

    explicit MTPResponderContents(MTPResponderState& state) : state_(state) {}

    void getObject(Transaction& transaction);
    /// The picture that a camera put into the head of a JPEG file.
    void getThumb(Transaction& transaction);
    void getPartialObject(Transaction& transaction);
    void getPartialObject64(Transaction& transaction);
    void sendObjectInfo(Transaction& transaction);
    void sendObject(Transaction& transaction);

    /// Forgets what SendObjectInfo announced; what it has made of it is removed unless it stays.
    void dropPending(bool keepsObject);

private:
    /// What SendObjectInfo announced.
    struct Pending {
        std::uint32_t handle = 0;
        std::uint32_t storageID = 0;
        std::uint32_t announcedSize = 0;      ///< 0xFFFFFFFF: any
        bool isOnDisk = false;                ///< there already, empty or to be replaced
        std::optional<std::int64_t> modified; ///< seconds since 1970
    };
    class Arrival;

    void sendRange(Transaction& transaction, std::uint64_t offset, std::uint32_t most);

    MTPResponderState& state_;
    std::optional<Pending> pending_;
};

} // namespace tessary
