#pragma once

#include "simulator/mtp/MTPResponderState.h"
#include "simulator/mtp/MTPResponderTransaction.h"

#include <map>

namespace tessary {

/// Edits in place, as Android's extension has them: a file is opened for them, written to where it
/// has bytes or at its end, and closed. What was written stays, whatever happens then. For the
/// phone's thread.
class MTPResponderEdits {
public:
    using Transaction = MTPResponderTransaction;

    explicit MTPResponderEdits(MTPResponderState& state) : state_(state) {}

    void beginEditObject(Transaction& transaction);
    void sendPartialObject(Transaction& transaction);
    void truncateObject(Transaction& transaction);
    void endEditObject(Transaction& transaction);

    /// Closes what was left open.
    void endAll() {
        edits_.clear();
    }

private:
    /// The file of an edit that was begun; generalError when there is none.
    [[nodiscard]] const FileHandle& editOf(std::uint32_t handle) const;

    MTPResponderState& state_;
    std::map<std::uint32_t, FileHandle> edits_;
};

} // namespace tessary
