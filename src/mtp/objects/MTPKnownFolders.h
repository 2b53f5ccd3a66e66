#pragma once

#include "mtp/objects/MTPFolderContents.h"
#include "mtp/objects/MTPLocation.h"

#include <chrono>

namespace tessary {

/// What has been read of a folder, and when.
struct MTPKnownFolder {
    using Clock = std::chrono::steady_clock;
    /// How long its handles are believed.
    static constexpr std::chrono::seconds freshness{2};

    MTPFolderContents contents;
    bool isWhole = false;        ///< all that the folder holds is in `contents`
    Clock::time_point readAt;    ///< when the first of it was read
    Clock::time_point checkedAt; ///< when its handles were last asked for

    /// What is in it is so.
    [[nodiscard]] bool isFresh() const {
        return Clock::now() - readAt < freshness || isFreshWhole();
    }
    /// What is not in it is not there either.
    [[nodiscard]] bool isFreshWhole() const {
        return isWhole && Clock::now() - checkedAt < freshness;
    }
};

/// The last few folders of a session that were read, kept up to date by what this session does and
/// by what the phone tells on its own. Used by one thread at a time.
class MTPKnownFolders {
public:
    /// After which everything is read again.
    static constexpr std::chrono::seconds lifetime{60};

    /// A folder, of which nothing may be known yet. Valid until the next call of this.
    [[nodiscard]] MTPKnownFolder& at(std::uint32_t storageID, std::uint32_t folder);
    /// Null when nothing is known of it.
    [[nodiscard]] const MTPKnownFolder* find(std::uint32_t storageID, std::uint32_t folder) const;

    void clear() {
        folders_.clear();
    }
    void forget(std::uint32_t storageID, std::uint32_t folder) {
        folders_.remove({storageID, folder});
    }
    void added(const MTPFound& folder, const MTPObjectInfo& info);
    void removed(const MTPFound& object);
    /// The phone tells that an object came, went or changed. True unless that is an echo of what
    /// this session did, or of no consequence.
    [[nodiscard]] bool heed(const MTPEvent& event);

private:
    using Key = std::pair<std::uint32_t, std::uint32_t>; ///< storage, handle

    QHash<Key, MTPKnownFolder> folders_;
};

} // namespace tessary
