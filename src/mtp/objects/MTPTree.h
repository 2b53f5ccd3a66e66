#pragma once

#include "mtp/client/MTPClient.h"
#include "mtp/objects/MTPKnownFolders.h"
#include "mtp/objects/MTPObjectReader.h"
#include "phone/records/FileItem.h"

#include <QHash>
#include <QSet>
#include <QString>

#include <chrono>
#include <cstdint>
#include <functional>
#include <mutex>
#include <optional>
#include <stop_token>
#include <vector>

namespace tessary {

/// The objects of one phone by their paths, in one session that is open from construction to
/// destruction. What a listing has read of a folder answers the questions that follow it: its
/// handles are asked again after a short while.
///
/// Used by one thread at a time. Throws MTPFailure for failures of the connection, Error
/// with PhoneError for paths that lead nowhere, CancellationError once `stop` asks for it.
class MTPTree {
public:
    static constexpr MTPPatience defaultPatience{std::chrono::seconds(5), std::chrono::seconds(60)};

    /// Called for each child, in the device's order.
    using ChildVisitor = std::function<void(const MTPObjectInfo&)>;
    using UnreadableVisitor = MTPObjectReader::UnreadableVisitor;

    /// Opens the session, unless `stop` ends that early. `bus` and `memory` outlive the tree;
    /// `memory` is kept up to date by it.
    MTPTree(USBBus& bus, const MTPDeviceAddress& address, MTPPhoneMemory& memory,
            MTPPatience patience, const std::stop_token& stop);
    ~MTPTree();
    MTPTree(const MTPTree&) = delete;
    MTPTree& operator=(const MTPTree&) = delete;

    [[nodiscard]] MTPClient& client() {
        return client_;
    }
    [[nodiscard]] MTPPhoneMemory& memory() {
        return memory_;
    }
    /// Another one for each session of this program: handles are good within one.
    [[nodiscard]] std::uint64_t serial() const {
        return serial_;
    }
    /// The storages that can be used, asked once a session; PhoneError::noStorage without any.
    [[nodiscard]] const std::vector<std::uint32_t>& storageIDs();

    /// The place of a path: on the first storage, or on the one that "/storage/<id>" names, by
    /// its number or, where there is one beside the first, by Android's name for it.
    [[nodiscard]] MTPLocation locate(const QString& path);

    /// What is at a path, as the phone describes it now. Blanks around the path count only when a
    /// name on the phone really has them.
    [[nodiscard]] std::optional<MTPFound> find(const QString& path, const std::stop_token& stop);
    /// The folder at a path; PhoneError::notFound or ::notAFolder when there is none.
    [[nodiscard]] MTPFound requireFolder(const QString& path, const std::stop_token& stop);
    /// What was listed as `item`, as the phone describes it now. PhoneError::notFound when nothing
    /// of its name is there, PhoneError::changed when it is not that any more.
    [[nodiscard]] MTPFound findItem(const FileItem& item, const std::stop_token& stop);
    /// The same for reading: as the phone described it in a listing that its handles still bear
    /// out, where there was one.
    [[nodiscard]] MTPFound findListed(const FileItem& item, const std::stop_token& stop);

    /// Reads a folder anew.
    void list(const MTPFound& folder, const ChildVisitor& visit,
              const UnreadableVisitor& unreadable, const std::stop_token& stop);
    /// What a folder holds, for an edit in it. Valid until the next call of another function.
    [[nodiscard]] const MTPFolderContents& contents(const MTPFound& folder,
                                                    const std::stop_token& stop);
    /// Whether the last answer of list() or contents() for the folder had this handle, or an edit
    /// has brought it since.
    [[nodiscard]] bool knows(const MTPFound& folder, std::uint32_t handle) const;
    /// The handles of a folder's children, as the device lists them now.
    [[nodiscard]] std::vector<std::uint32_t> childHandles(std::uint32_t storageID,
                                                          std::uint32_t folder) {
        return reader_.childHandles(storageID, folder);
    }

    /// The object of a handle, when it is the one called `name` in that folder of that storage. It
    /// is not asked for again when the phone's last answer was about it, a moment ago.
    [[nodiscard]] std::optional<MTPObjectInfo> confirm(std::uint32_t handle, const QString& name,
                                                       std::uint32_t storageID,
                                                       std::uint32_t folder);

    /// MTPClient::beginEdit() and ::endEdit(); an edit that was left open is ended first.
    void beginEdit(std::uint32_t handle);
    void endEdit(std::uint32_t handle);

    /// Something on the phone was changed by others: all that is known is to be read again.
    void doubt();
    /// Looks at what the phone has told on its own since the last time. True when somebody else
    /// has changed something: what that concerns is read again.
    [[nodiscard]] bool heedEvents();
    /// This session has made an object in a folder.
    void added(const MTPFound& folder, const MTPObjectInfo& info);
    /// This session has removed an object, with all in it.
    void removed(const MTPFound& object);

private:
    [[nodiscard]] std::optional<std::uint32_t> storageCalled(const QString& word);
    using Clock = std::chrono::steady_clock;
    /// An object as the phone has described it.
    struct Confirmed {
        MTPObjectInfo info;
        std::uint64_t asked = 0; ///< transactions until then
        Clock::time_point at;
    };

    [[nodiscard]] bool heed(const MTPEvent& event);
    [[nodiscard]] MTPObjectInfo infoOf(std::uint32_t handle);
    [[nodiscard]] bool wasConfirmed(std::uint32_t handle) const;
    [[nodiscard]] MTPFound findEntry(const FileItem& item, bool mustBeCurrent,
                                     const std::stop_token& stop);
    [[nodiscard]] std::optional<MTPObjectInfo>
    listedOf(const MTPFound& folder, std::uint32_t handle, const std::stop_token& stop);
    [[nodiscard]] std::optional<MTPFound> resolve(const MTPLocation& location, bool mustBeCurrent,
                                                  const std::stop_token& stop);
    [[nodiscard]] std::optional<MTPResolvedObject>
    resolveChild(const MTPLocation& folder, std::uint32_t folderHandle, const QString& name,
                 bool mustBeCurrent, const std::stop_token& stop);
    [[nodiscard]] std::optional<MTPFound> tryBoth(const QString& path, bool mustBeCurrent,
                                                  const std::stop_token& stop);
    void remember(const MTPLocation& location, const MTPObjectInfo& info);

    MTPPhoneMemory& memory_;
    const std::uint64_t serial_;
    MTPClient client_;
    std::optional<std::vector<std::uint32_t>> storageIDs_;
    MTPObjectReader reader_{client_, memory_};
    MTPKnownFolders folders_;
    QSet<std::uint32_t> edits_;                                ///< begun and not ended
    std::optional<Confirmed> confirmed_;                       ///< the last one
    QHash<std::uint32_t, Clock::time_point> confirmedFolders_; ///< by handle
    std::mutex eventMutex_;
    std::vector<MTPEvent> events_; ///< not heeded yet; guarded by eventMutex_
};

} // namespace tessary
