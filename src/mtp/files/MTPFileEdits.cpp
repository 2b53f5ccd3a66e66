#include "mtp/files/MTPFileEdits.h"

#include "base/text/PathNames.h"
#include "mtp/files/MTPFileItems.h"
#include "mtp/files/MTPFileWriter.h"
#include "mtp/objects/MTPFailures.h"

namespace tessary {

namespace {

/// The folder that an object lies in.
MTPFound folderOf(const MTPFound& found) {
    return {found.location.folder(), {found.parent, std::nullopt}};
}

} // namespace

/// What was listed as `item`; PhoneError::wholeStorage for what is no single object.
MTPFound MTPFileEdits::findOne(const FileItem& item) {
    MTPFound found = tree_.findItem(item, stop_);
    if (!found.object.info)
        throw Error(PhoneError::wholeStorage, {item.path});
    return found;
}

void MTPFileEdits::remove(const FileItem& item) {
    const MTPFound found = findOne(item);
    // Phones delete what is in a folder along with it: looked at right before.
    if (found.object.isDirectory() &&
        !tree_.childHandles(found.location.storageID, found.object.handle).empty())
        throw Error(PhoneError::folderNotEmpty, {item.path});
    tree_.client().deleteObject(found.object.handle);
    tree_.removed(found);
    edited_();
}

bool MTPFileEdits::removeTree(const FileItem& item) {
    const MTPFound found = findOne(item);
    try {
        tree_.client().deleteObject(found.object.handle);
    } catch (const MTPFailure& failure) {
        tree_.doubt(); // a part of it may be gone
        if (!found.object.isDirectory() || endsSession(failure))
            throw;
        return false;
    }
    tree_.removed(found);
    edited_();
    return true;
}

FileItem MTPFileEdits::rename(const FileItem& item, const QString& newName) {
    const MTPFound found = findOne(item);
    if (newName == item.name)
        return item;
    // Some phones would put the item in the place of the one that has this name.
    const MTPFound folder = folderOf(found);
    const std::uint32_t handle = found.object.handle;
    requireFreeMTPName(tree_.contents(folder, stop_), newName, handle);
    tree_.client().renameObject(handle, newName);
    tree_.removed(found);
    edited_();
    const auto renamed =
        tree_.confirm(handle, newName, folder.location.storageID, folder.object.handle);
    if (!renamed)
        throw Error(PhoneError::notDone, {item.path});
    tree_.added(folder, *renamed);
    return fileItemOf(*renamed, folder.location, isBelowStorage(item.path));
}

FileItem MTPFileEdits::move(const FileItem& item, const QString& newFolder) {
    const MTPFound found = findOne(item);
    const MTPFound target = tree_.requireFolder(newFolder, stop_);
    const std::uint32_t storageID = found.location.storageID;
    if (target.location.storageID != storageID)
        throw Error(PhoneError::otherStorage, {item.path});
    if (isAtOrBelow(target.location.path, found.location.path))
        throw Error(PhoneError::insideItself, {item.path});
    requireFreeMTPName(tree_.contents(target, stop_), item.name);
    try {
        tree_.client().moveObject(found.object.handle, storageID,
                                  target.location.isRoot() ? 0 : target.object.handle);
    } catch (const MTPFailure& failure) {
        // The object is there, and so is the folder: then this phone just cannot move.
        const Error error = phoneErrorOf(failure, item.path);
        if (error.is(PhoneError::notFound) || error.is(PhoneError::refused))
            throw Error(PhoneError::notSupported, {item.path}, *error.cause());
        throw;
    }
    tree_.removed(found);
    edited_();
    const auto moved =
        tree_.confirm(found.object.handle, item.name, storageID, target.object.handle);
    if (!moved)
        throw Error(PhoneError::notDone, {item.path});
    tree_.added(target, *moved);
    return fileItemOf(*moved, target.location, isBelowStorage(newFolder));
}

} // namespace tessary
