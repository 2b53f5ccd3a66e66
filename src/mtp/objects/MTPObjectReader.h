#pragma once

#include "mtp/client/MTPClient.h"
#include "mtp/objects/MTPKnownFolders.h"
#include "mtp/objects/MTPPhoneMemory.h"

#include <functional>

namespace tessary {

/// Asks the phone of one session what objects and folders are, in as few requests as it answers
/// truly. Used by one thread at a time; throws as MTPClient does.
class MTPObjectReader {
public:
    /// Called for each child; false when no more is wanted.
    using Visitor = std::function<bool(const MTPObjectInfo&)>;
    /// Called for a child that is there and whose facts cannot be read.
    using UnreadableVisitor = std::function<void(std::uint32_t handle, const MTPFailure&)>;

    /// Both outlive it; `memory` is kept up to date.
    MTPObjectReader(MTPClient& client, MTPPhoneMemory& memory) : client_(client), memory_(memory) {}

    /// What the phone says of an object, with a size that can be believed.
    [[nodiscard]] MTPObjectInfo ask(std::uint32_t handle);
    /// Whether an object lies in a folder of its storage.
    [[nodiscard]] bool isIn(const MTPObjectInfo& info, std::uint32_t folder);
    /// The handles of a folder's children, as the device lists them now.
    [[nodiscard]] std::vector<std::uint32_t> childHandles(std::uint32_t storageID,
                                                          std::uint32_t folder);
    /// Reads the children whose facts `folder` does not have, until `visit` says false.
    void readChildren(std::uint32_t storageID, MTPKnownFolder& folder, const Visitor& visit,
                      const UnreadableVisitor& unreadable, const std::stop_token& stop);

private:
    /// Reads the facts of a whole folder's `wanted` handles in one request, to its end whatever
    /// `visit` says, and takes those that came out of it. Returns what `visit` said last.
    [[nodiscard]] bool readProperties(std::uint32_t storageID, MTPKnownFolder& folder,
                                      QSet<std::uint32_t>& wanted, const Visitor& visit,
                                      const std::stop_token& stop);
    /// Keeps what was read of a child, and hands it on. Returns what `visit` says.
    [[nodiscard]] bool take(MTPKnownFolder& folder, const MTPObjectInfo& info,
                            const QSet<std::uint32_t>& listed, const Visitor& visit);

    MTPClient& client_;
    MTPPhoneMemory& memory_;
    bool parentsAreZero_ = false; ///< the phone says so of whatever lies in folders
};

/// Whether a handle stands for the root of a storage, as a folder or as a parent.
[[nodiscard]] constexpr bool isMTPRoot(std::uint32_t handle) {
    return handle == mtpRootHandle || handle == 0;
}

} // namespace tessary
