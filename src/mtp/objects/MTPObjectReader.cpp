#include "mtp/objects/MTPObjectReader.h"

#include "base/threads/CancellationError.h"
#include "mtp/objects/MTPFailures.h"
#include "mtp/protocol/MTPPropertyList.h"

#include <algorithm>

namespace tessary {

namespace {

/// Where some devices list the root of a storage that others list under 0xFFFFFFFF.
constexpr std::uint32_t alternativeRoot = 0;

} // namespace

bool MTPObjectReader::isIn(const MTPObjectInfo& info, std::uint32_t folder) {
    if (info.parentObject == folder || (isMTPRoot(folder) && isMTPRoot(info.parentObject)))
        return true;
    if (!parentsAreZero_ || info.parentObject != 0)
        return false;
    const auto listed = childHandles(info.storageID, folder);
    return std::find(listed.begin(), listed.end(), info.id) != listed.end();
}

MTPObjectInfo MTPObjectReader::ask(std::uint32_t handle) {
    using Sizes = MTPPhoneMemory::Sizes;
    constexpr std::uint32_t suspicious = 32U << 20; // few files are that large
    MTPObjectInfo info = client_.getObjectInfo(handle);
    if (info.isDirectory())
        return info;
    if (info.true64BitSize)
        memory_.sizes = Sizes::whole; // it says when 32 bits are not enough
    else if (memory_.sizes == Sizes::cut ||
             (memory_.sizes == Sizes::unproven && info.compressedSize >= suspicious))
        info.true64BitSize = client_.getObjectSize(handle);
    if (info.effectiveSize() >> 32 != 0 && info.compressedSize != 0xFFFFFFFF)
        memory_.sizes = Sizes::cut;
    return info;
}

std::vector<std::uint32_t> MTPObjectReader::childHandles(std::uint32_t storageID,
                                                         std::uint32_t folder) {
    if (folder != mtpRootHandle)
        return client_.getObjectHandles(storageID, folder);
    std::vector<std::uint32_t> handles;
    std::optional<MTPFailure> refusal;
    try {
        handles = client_.getObjectHandles(storageID, mtpRootHandle);
    } catch (const MTPFailure& error) {
        if (endsSession(error))
            throw;
        const Error meaning = phoneErrorOf(error, {});
        const bool hasOtherRoot =
            meaning.is(PhoneError::notFound) || meaning.is(PhoneError::notSupported) ||
            error.response() == static_cast<std::uint16_t>(MTPResponseCode::invalidParameter);
        if (!hasOtherRoot)
            refusal = error;
    }
    if (handles.empty())
        handles = client_.getObjectHandles(storageID, alternativeRoot);
    if (handles.empty() && refusal)
        throw *refusal; // which says nothing of an empty storage
    return handles;
}

bool MTPObjectReader::take(MTPKnownFolder& folder, const MTPObjectInfo& info,
                           const QSet<std::uint32_t>& listed, const Visitor& visit) {
    const bool isRoot = isMTPRoot(folder.contents.folder());
    // A device that lists its root under 0 may mean every object of the storage by it.
    if (isRoot && !isMTPRoot(info.parentObject) && listed.contains(info.parentObject))
        return true;
    parentsAreZero_ = parentsAreZero_ || (!isRoot && info.parentObject == 0);
    folder.contents.insert(info);
    return visit(info);
}

bool MTPObjectReader::readProperties(std::uint32_t storageID, MTPKnownFolder& folder,
                                     QSet<std::uint32_t>& wanted, const Visitor& visit,
                                     const std::stop_token& stop) {
    const QSet<std::uint32_t> listed = wanted;
    bool isMore = true;
    const auto visitUntilEnough = [&](const MTPObjectInfo& info) {
        return isMore = isMore && visit(info);
    };
    const std::uint32_t self = folder.contents.folder();
    MTPPropertyList list([&](MTPObjectInfo&& info) {
        // The root of every storage is listed at once, and a folder along with what it holds.
        const bool isElsewhere = info.storageID != 0 && info.storageID != storageID;
        if (isElsewhere || !wanted.remove(info.id))
            return;
        info.storageID = storageID;
        (void)take(folder, info, listed, visitUntilEnough);
    });
    MTPStreamOptions options;
    options.stop = stop;
    bool isWhole = false;
    try {
        client_.getObjectPropList(
            isMTPRoot(self) ? 0 : self,
            [&](ByteView bytes) {
                if (!list.add(bytes))
                    throw MTPFailure(MTPError::malformed,
                                     {QStringLiteral("a list of properties without an end")});
            },
            options);
        isWhole = list.finish();
    } catch (const MTPFailure& failure) {
        // A phone that fails at it would fail each time: it is not asked again.
        if (!failure.isDeviceGone())
            memory_.listsProperties = false;
        if (endsSession(failure) && !isBrokenData(failure))
            throw;
    }
    // What is missing is asked for one by one; a phone that leaves out more than it tells is asked
    // so from now on.
    memory_.listsProperties = isWhole && wanted.size() <= listed.size() / 2;
    return isMore;
}

void MTPObjectReader::readChildren(std::uint32_t storageID, MTPKnownFolder& folder,
                                   const Visitor& visit, const UnreadableVisitor& unreadable,
                                   const std::stop_token& stop) {
    constexpr qsizetype worthOneRequest = 3;
    const std::uint32_t self = folder.contents.folder();
    const auto checkedAt = std::chrono::steady_clock::now();
    const std::vector<std::uint32_t> handles = childHandles(storageID, self);
    QSet<std::uint32_t> listed(handles.begin(), handles.end());
    listed.remove(self);
    QSet<std::uint32_t> wanted;
    for (const std::uint32_t handle : listed)
        if (!folder.contents.knows(handle))
            wanted.insert(handle);
    const bool isWorth = wanted.size() >= worthOneRequest && wanted.size() > listed.size() / 2;
    if (memory_.listsProperties && isWorth &&
        !readProperties(storageID, folder, wanted, visit, stop) && !wanted.isEmpty())
        return;
    for (const std::uint32_t handle : handles) {
        throwIfStopped(stop);
        if (!wanted.remove(handle))
            continue;
        std::optional<MTPObjectInfo> info;
        try {
            info = ask(handle);
        } catch (const MTPFailure& error) {
            if (endsSession(error))
                throw;
            folder.contents.insertUnreadable(handle); // nobody knows its name, but it is there
            if (unreadable)
                unreadable(handle, error);
            continue;
        }
        if (!take(folder, *info, listed, visit))
            return;
    }
    folder.contents.keepOnly(listed);
    folder.isWhole = true;
    folder.checkedAt = checkedAt;
}

} // namespace tessary
