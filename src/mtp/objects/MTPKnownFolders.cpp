#include "mtp/objects/MTPKnownFolders.h"

#include "mtp/protocol/MTPCodes.h"

#include <algorithm>

namespace tessary {

MTPKnownFolder& MTPKnownFolders::at(std::uint32_t storageID, std::uint32_t folder) {
    constexpr qsizetype mostFolders = 16;
    const Key key(storageID, folder);
    if (!folders_.contains(key) && folders_.size() >= mostFolders)
        folders_.clear();
    MTPKnownFolder& one = folders_[key];
    const auto now = MTPKnownFolder::Clock::now();
    if (one.contents.folder() != folder || now - one.readAt > lifetime)
        one = {MTPFolderContents(folder), false, now, {}};
    return one;
}

const MTPKnownFolder* MTPKnownFolders::find(std::uint32_t storageID, std::uint32_t folder) const {
    const auto one = folders_.constFind({storageID, folder});
    return one == folders_.cend() ? nullptr : &*one;
}

void MTPKnownFolders::added(const MTPFound& folder, const MTPObjectInfo& info) {
    // A phone may give a new folder the handle of one that went without its saying so.
    if (info.isDirectory())
        forget(folder.location.storageID, info.id);
    const auto one = folders_.find({folder.location.storageID, folder.object.handle});
    if (one != folders_.end())
        one->contents.insert(info);
}

void MTPKnownFolders::removed(const MTPFound& object) {
    const std::uint32_t storageID = object.location.storageID;
    if (object.object.isDirectory())
        forget(storageID, object.object.handle);
    const auto folder = folders_.find({storageID, object.parent});
    if (folder != folders_.end())
        folder->contents.remove(object.object.handle);
}

bool MTPKnownFolders::heed(const MTPEvent& event) {
    const auto knowing =
        std::find_if(folders_.begin(), folders_.end(), [&](const MTPKnownFolder& folder) {
            return folder.contents.contains(event.parameter);
        });
    const bool isKnown = knowing != folders_.end();
    switch (static_cast<MTPEventCode>(event.code)) {
    case MTPEventCode::objectAdded:
        if (isKnown)
            return false; // an echo of what this session did
        for (MTPKnownFolder& folder : folders_)
            folder.checkedAt = {}; // the handles tell where it is
        return true;
    case MTPEventCode::objectRemoved:
        if (!isKnown)
            return false;
        knowing->contents.remove(event.parameter);
        // Last: no iterator is good any more after it.
        folders_.remove(Key(knowing.key().first, event.parameter));
        return true;
    case MTPEventCode::objectInfoChanged:
        if (isKnown)
            knowing->contents.remove(event.parameter); // it is asked again
        if (isKnown)
            knowing->checkedAt = {};
        return isKnown;
    default:
        return false;
    }
}

} // namespace tessary
