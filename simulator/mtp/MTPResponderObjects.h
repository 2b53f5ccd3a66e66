#pragma once

#include "simulator/mtp/MTPResponderState.h"
#include "simulator/mtp/MTPResponderTransaction.h"

namespace tessary {

/// The operations on objects as entries of folders: lists, facts, names, moves, deletions. For the
/// phone's thread.
class MTPResponderObjects {
public:
    using Transaction = MTPResponderTransaction;

    explicit MTPResponderObjects(MTPResponderState& state) : state_(state) {}

    void getNumObjects(Transaction& transaction);
    void getObjectHandles(Transaction& transaction);
    void getObjectInfo(Transaction& transaction);
    void deleteObject(Transaction& transaction);
    void moveObject(Transaction& transaction);
    void getObjectPropsSupported(Transaction& transaction);
    void getObjectPropValue(Transaction& transaction);
    void setObjectPropValue(Transaction& transaction);
    /// All properties of a folder's children, and of the folder; handle 0 stands for every root.
    void getObjectPropList(Transaction& transaction);

private:
    [[nodiscard]] std::vector<std::uint32_t> listedHandles(Transaction& transaction);

    MTPResponderState& state_;
};

} // namespace tessary
