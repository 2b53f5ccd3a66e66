#include "mtp/objects/MTPTree.h"

#include "base/text/PathNames.h"
#include "base/threads/CancellationError.h"
#include "mtp/objects/MTPFailures.h"
#include "mtp/protocol/MTPPropertyList.h"
#include "phone/DevicePath.h"

#include <QStringList>

#include <algorithm>
#include <atomic>

namespace tessary {

namespace {

/// Where some devices list the root of a storage that others list under 0xFFFFFFFF.
constexpr std::uint32_t alternativeRoot = 0;

/// Bounds of the memory that a run of many hours over huge trees may take.
constexpr qsizetype mostHints = 20'000;
constexpr qsizetype mostFolders = 16;

bool isRootHandle(std::uint32_t handle) {
    return handle == mtpRootHandle || handle == alternativeRoot;
}

std::uint64_t nextSerial() {
    static std::atomic<std::uint64_t> last = 0;
    return ++last;
}

/// An empty card slot is listed as a storage whose low half is 0.
bool isUsable(std::uint32_t storageID) {
    return (storageID & 0xFFFF) != 0;
}

} // namespace

MTPTree::MTPTree(std::unique_ptr<MTPTransportProtocol> transport, MTPPhoneMemory& memory,
                 MTPPatience patience, const std::stop_token& stop)
    : memory_(memory), serial_(nextSerial()), client_(std::move(transport), patience) {
    client_.setEventReceiver([this](const MTPEvent& event) {
        // A phone may tell without end: from some number on, all is to be doubted anyway.
        constexpr std::size_t most = 1000;
        const std::scoped_lock lock(eventMutex_);
        if (events_.size() < most)
            events_.push_back(event);
        else
            events_.back() = {static_cast<std::uint16_t>(MTPEventCode::deviceReset), 0};
    });
    client_.setStop(stop);
    client_.openSession(1);
}

MTPTree::~MTPTree() {
    client_.closeSession();
}

const std::vector<std::uint32_t>& MTPTree::storageIDs() {
    if (!storageIDs_) {
        std::vector<std::uint32_t> ids = client_.getStorageIDs();
        std::erase_if(ids, [](std::uint32_t id) { return !isUsable(id); });
        if (ids.empty())
            throw Error(PhoneError::noStorage);
        storageIDs_ = std::move(ids);
    }
    return *storageIDs_;
}

MTPLocation MTPTree::locate(const QString& path) {
    const std::vector<std::uint32_t>& storages = storageIDs();
    QStringList components = storageRelativePath(path).split(QLatin1Char('/'), Qt::SkipEmptyParts);
    MTPLocation location{storages.front(), {}, {}};
    if (components.size() >= 2 && components[0] == QLatin1StringView("storage")) {
        bool isNumber = false;
        const std::uint32_t wanted = components[1].toUInt(&isNumber);
        if (isNumber && std::find(storages.begin(), storages.end(), wanted) != storages.end()) {
            location.prefix = QStringLiteral("/storage/") + components[1];
            location.storageID = wanted;
            components.remove(0, 2);
        }
    }
    location.path = QLatin1Char('/') + components.join(QLatin1Char('/'));
    return location;
}

MTPTree::Known& MTPTree::known(std::uint32_t storageID, std::uint32_t folder) {
    const FolderKey key(storageID, folder);
    if (!folders_.contains(key) && folders_.size() >= mostFolders)
        folders_.clear();
    Known& one = folders_[key];
    if (one.contents.folder() != folder || Clock::now() - one.readAt > lifetime)
        one = {MTPFolderContents(folder), false, Clock::now(), {}};
    return one;
}

void MTPTree::doubt() {
    folders_.clear();
    confirmed_.reset();
}

void MTPTree::beginEdit(std::uint32_t handle) {
    if (edits_.contains(handle))
        endEdit(handle);
    client_.beginEdit(handle);
    edits_.insert(handle);
}

void MTPTree::endEdit(std::uint32_t handle) {
    edits_.remove(handle);
    client_.endEdit(handle);
}

bool MTPTree::heedEvents() {
    std::vector<MTPEvent> events;
    {
        const std::scoped_lock lock(eventMutex_);
        events.swap(events_);
    }
    bool isForeign = false;
    for (const MTPEvent& event : events)
        isForeign = heed(event) || isForeign;
    return isForeign;
}

bool MTPTree::heed(const MTPEvent& event) {
    if (confirmed_ && confirmed_->info.id == event.parameter)
        confirmed_.reset();
    confirmedFolders_.remove(event.parameter);
    const auto knowing = std::find_if(folders_.begin(), folders_.end(), [&](const Known& folder) {
        return folder.contents.contains(event.parameter);
    });
    const bool isKnown = knowing != folders_.end();
    switch (static_cast<MTPEventCode>(event.code)) {
    case MTPEventCode::objectAdded:
        if (isKnown)
            return false; // an echo of what this session did
        for (Known& folder : folders_)
            folder.checkedAt = {}; // the handles tell where it is
        return true;
    case MTPEventCode::objectRemoved:
        folders_.remove({isKnown ? knowing.key().first : 0, event.parameter});
        if (isKnown)
            knowing->contents.remove(event.parameter);
        return isKnown;
    case MTPEventCode::objectInfoChanged:
        if (isKnown)
            knowing->contents.remove(event.parameter); // it is asked again
        if (isKnown)
            knowing->checkedAt = {};
        return isKnown;
    case MTPEventCode::storeAdded:
    case MTPEventCode::storeRemoved:
    case MTPEventCode::deviceReset:
        storageIDs_.reset();
        doubt();
        return true;
    default:
        return false;
    }
}

bool MTPTree::knows(const MTPFound& folder, std::uint32_t handle) const {
    const auto one = folders_.constFind({folder.location.storageID, folder.object.handle});
    return one != folders_.cend() && one->contents.contains(handle);
}

void MTPTree::added(const MTPFound& folder, const MTPObjectInfo& info) {
    const auto one = folders_.find({folder.location.storageID, folder.object.handle});
    if (one != folders_.end())
        one->contents.insert(info);
    remember(folder.location.child(info.filename), info);
}

void MTPTree::removed(const MTPFound& object) {
    const std::uint32_t storageID = object.location.storageID;
    if (object.object.isDirectory()) {
        folders_.remove({storageID, object.object.handle});
        memory_.folders.remove({storageID, object.location.path});
    }
    const auto folder = folders_.find({storageID, object.parent});
    if (folder != folders_.end())
        folder->contents.remove(object.object.handle);
}

void MTPTree::remember(const MTPLocation& location, const MTPObjectInfo& info) {
    if (!info.isDirectory())
        return;
    if (memory_.folders.size() >= mostHints)
        memory_.folders.clear();
    memory_.folders.insert({location.storageID, location.path}, info.id);
}

bool MTPTree::isIn(const MTPObjectInfo& info, std::uint32_t folder) {
    if (info.parentObject == folder || (isRootHandle(folder) && isRootHandle(info.parentObject)))
        return true;
    if (!parentsAreZero_ || info.parentObject != 0)
        return false;
    const auto listed = childHandles(info.storageID, folder);
    return std::find(listed.begin(), listed.end(), info.id) != listed.end();
}

/// What the phone says of an object, with a size that can be believed.
MTPObjectInfo MTPTree::ask(std::uint32_t handle) {
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

MTPObjectInfo MTPTree::infoOf(std::uint32_t handle) {
    constexpr std::chrono::seconds moment{1};
    if (!confirmed_ || confirmed_->info.id != handle || confirmed_->asked != client_.asked() ||
        Clock::now() - confirmed_->at > moment) {
        MTPObjectInfo info = ask(handle);
        confirmed_ = {std::move(info), client_.asked(), Clock::now()};
        if (confirmed_->info.isDirectory()) {
            if (confirmedFolders_.size() >= mostHints)
                confirmedFolders_.clear();
            confirmedFolders_.insert(handle, confirmed_->at);
        }
    }
    return confirmed_->info;
}

/// Whether a folder was asked for a short while ago.
bool MTPTree::wasConfirmed(std::uint32_t handle) const {
    const auto at = confirmedFolders_.constFind(handle);
    return at != confirmedFolders_.cend() && Clock::now() - *at < freshness;
}

std::optional<MTPObjectInfo> MTPTree::confirm(std::uint32_t handle, const QString& name,
                                              std::uint32_t storageID, std::uint32_t folder) {
    try {
        MTPObjectInfo info = infoOf(handle);
        // The roots of two storages have one handle: only the storage tells their entries apart.
        if (info.filename == name && info.storageID == storageID && isIn(info, folder))
            return info;
    } catch (const MTPTransportError& error) {
        if (endsSession(error))
            throw;
    }
    return std::nullopt;
}

std::optional<MTPFound> MTPTree::resolve(const MTPLocation& location, bool mustBeCurrent,
                                         const std::stop_token& stop) {
    MTPFound found{location, {}};
    MTPLocation at{location.storageID, QStringLiteral("/"), location.prefix};
    const QStringList names = location.path.split(QLatin1Char('/'), Qt::SkipEmptyParts);
    for (qsizetype i = 0; i < names.size(); ++i) {
        if (!found.object.isDirectory())
            return std::nullopt;
        const bool isLast = i + 1 == names.size();
        found.parent = found.object.handle;
        auto child = resolveChild(at, found.parent, names[i], mustBeCurrent && isLast, stop);
        if (!child)
            return std::nullopt;
        found.object = *std::move(child);
        at = at.child(names[i]);
    }
    return found;
}

std::optional<MTPResolvedObject> MTPTree::resolveChild(const MTPLocation& folder,
                                                       std::uint32_t folderHandle,
                                                       const QString& name, bool mustBeCurrent,
                                                       const std::stop_token& stop) {
    const MTPLocation location = folder.child(name);
    Known& parent = known(folder.storageID, folderHandle);
    const auto found = [&](const MTPObjectInfo& info) {
        remember(location, info);
        return MTPResolvedObject{info.id, info};
    };
    const MTPObjectInfo* listed = parent.contents.find(name);
    if (listed && !mustBeCurrent && (parent.isFresh() || wasConfirmed(listed->id)))
        return found(*listed);
    const auto hint = memory_.folders.constFind({folder.storageID, location.path});
    for (const std::uint32_t handle :
         {listed ? listed->id : 0, hint == memory_.folders.cend() ? 0 : *hint})
        if (const auto info = handle == 0 ? std::nullopt
                                          : confirm(handle, name, folder.storageID, folderHandle)) {
            parent.contents.insert(*info);
            return found(*info);
        }
    if (listed)
        parent.contents.remove(listed->id); // it is not what it was
    else if (!mustBeCurrent && parent.isFreshWhole() && !parent.contents.hasNameOnly(name))
        return std::nullopt;
    std::optional<MTPObjectInfo> match;
    readChildren(
        folder.storageID, parent,
        [&](const MTPObjectInfo& info) {
            // What says that it lies elsewhere is not meant by a path in this folder.
            const bool saysItIs =
                info.parentObject == folderHandle || isRootHandle(info.parentObject);
            if (info.filename == name && saysItIs)
                match = info;
            return !match;
        },
        {}, stop);
    return match ? std::optional(found(*match)) : std::nullopt;
}

std::optional<MTPFound> MTPTree::tryBoth(const QString& path, bool mustBeCurrent,
                                         const std::stop_token& stop) {
    const QString trimmed = path.trimmed();
    for (const QString& candidate : {path, trimmed}) {
        if (auto found = resolve(locate(candidate), mustBeCurrent, stop))
            return found;
        if (candidate == trimmed)
            break;
    }
    return std::nullopt;
}

std::optional<MTPFound> MTPTree::find(const QString& path, const std::stop_token& stop) {
    return tryBoth(path, true, stop);
}

MTPFound MTPTree::requireFolder(const QString& path, const std::stop_token& stop) {
    auto found = tryBoth(path, false, stop);
    if (!found)
        throw Error(PhoneError::notFound, {path});
    if (!found->object.isDirectory())
        throw Error(PhoneError::notAFolder, {path});
    return *std::move(found);
}

MTPFound MTPTree::findItem(const FileItem& item, const std::stop_token& stop) {
    return findEntry(item, true, stop);
}

MTPFound MTPTree::findListed(const FileItem& item, const std::stop_token& stop) {
    return findEntry(item, false, stop);
}

/// What a whole listing of a folder said of an object that the phone still lists there.
std::optional<MTPObjectInfo> MTPTree::listedOf(const MTPFound& folder, std::uint32_t handle,
                                               const std::stop_token& stop) {
    Known& one = known(folder.location.storageID, folder.object.handle);
    if (!one.isWhole || !one.contents.knows(handle))
        return std::nullopt;
    return contents(folder, stop).info(handle);
}

MTPFound MTPTree::findEntry(const FileItem& item, bool mustBeCurrent, const std::stop_token& stop) {
    // A name may be empty or hold "/", so that the item's path alone does not tell the folder.
    const QString ending = QLatin1Char('/') + item.name;
    const bool isEntry = item.path.endsWith(ending) && (item.handle || !item.name.isEmpty());
    std::optional<MTPFound> found;
    if (!isEntry) {
        found = find(item.path, stop);
        const bool isStorage = found && !found->object.info; // which has no name of its own
        if (isStorage)
            return *std::move(found);
    } else {
        const MTPFound folder =
            requireFolder(item.path.chopped(ending.size()) + QLatin1Char('/'), stop);
        const std::uint32_t storageID = folder.location.storageID;
        const MTPLocation location = folder.location.child(item.name);
        if (item.handle && !mustBeCurrent)
            if (auto info = listedOf(folder, *item.handle, stop);
                info && info->filename == item.name)
                found = MTPFound{location, {info->id, info}, folder.object.handle};
        if (item.handle && !found)
            if (auto info = confirm(*item.handle, item.name, storageID, folder.object.handle))
                found = MTPFound{location, {info->id, info}, folder.object.handle};
        if (!found)
            if (auto object =
                    resolveChild(folder.location, folder.object.handle, item.name, true, stop))
                found = MTPFound{location, *std::move(object), folder.object.handle};
    }
    if (!found)
        throw Error(PhoneError::notFound, {item.path});
    const MTPObjectInfo& info = *found->object.info;
    bool isSame = info.filename == item.name && info.isDirectory() == item.isDirectory;
    // Another object took its path, unless the phone has given all of them new handles.
    if (isSame && item.handle && info.id != *item.handle && !item.isDirectory)
        isSame = static_cast<std::uint64_t>(item.size) == info.effectiveSize() &&
                 item.modifiedDate == info.dateModified;
    if (!isSame)
        throw Error(PhoneError::changed, {item.path});
    return *std::move(found);
}

std::vector<std::uint32_t> MTPTree::childHandles(std::uint32_t storageID, std::uint32_t folder) {
    if (folder != mtpRootHandle)
        return client_.getObjectHandles(storageID, folder);
    std::vector<std::uint32_t> handles;
    try {
        handles = client_.getObjectHandles(storageID, mtpRootHandle);
    } catch (const MTPTransportError& error) {
        if (endsSession(error))
            throw;
    }
    return handles.empty() ? client_.getObjectHandles(storageID, alternativeRoot) : handles;
}

bool MTPTree::take(Known& folder, const MTPObjectInfo& info, const QSet<std::uint32_t>& listed,
                   const std::function<bool(const MTPObjectInfo&)>& visit) {
    const bool isRoot = isRootHandle(folder.contents.folder());
    // A device that lists its root under 0 may mean every object of the storage by it.
    if (isRoot && !isRootHandle(info.parentObject) && listed.contains(info.parentObject))
        return true;
    parentsAreZero_ = parentsAreZero_ || (!isRoot && info.parentObject == 0);
    folder.contents.insert(info);
    return visit(info);
}

bool MTPTree::readProperties(std::uint32_t storageID, Known& folder, QSet<std::uint32_t>& wanted,
                             const std::function<bool(const MTPObjectInfo&)>& visit,
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
            isRootHandle(self) ? 0 : self, [&](ByteView bytes) { list.add(bytes); }, options);
        isWhole = list.finish();
    } catch (const MTPTransportError& failure) {
        if (endsSession(failure))
            throw;
    }
    // What is missing is asked for one by one; a phone that leaves out more than it tells is asked
    // so from now on.
    memory_.listsProperties = isWhole && wanted.size() <= listed.size() / 2;
    return isMore;
}

void MTPTree::readChildren(std::uint32_t storageID, Known& folder,
                           const std::function<bool(const MTPObjectInfo&)>& visit,
                           const UnreadableVisitor& unreadable, const std::stop_token& stop) {
    constexpr qsizetype worthOneRequest = 3;
    const std::uint32_t self = folder.contents.folder();
    const auto checkedAt = Clock::now();
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
        } catch (const MTPTransportError& error) {
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

void MTPTree::list(const MTPFound& folder, const ChildVisitor& visit,
                   const UnreadableVisitor& unreadable, const std::stop_token& stop) {
    const MTPLocation& at = folder.location;
    folders_.remove({at.storageID, folder.object.handle});
    readChildren(
        at.storageID, known(at.storageID, folder.object.handle),
        [&](const MTPObjectInfo& info) {
            remember(at.child(info.filename), info);
            visit(info);
            return true;
        },
        unreadable, stop);
}

const MTPFolderContents& MTPTree::contents(const MTPFound& folder, const std::stop_token& stop) {
    Known& one = known(folder.location.storageID, folder.object.handle);
    if (!one.isFreshWhole())
        readChildren(
            folder.location.storageID, one, [](const MTPObjectInfo&) { return true; }, {}, stop);
    return one.contents;
}

} // namespace tessary
