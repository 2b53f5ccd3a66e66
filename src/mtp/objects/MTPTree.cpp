#include "mtp/objects/MTPTree.h"

#include "mtp/objects/MTPFailures.h"
#include "phone/DevicePath.h"

#include <QRegularExpression>
#include <QStringList>

#include <algorithm>
#include <atomic>

namespace tessary {

namespace {

/// Bound of the memory that a run of many hours over huge trees may take.
constexpr qsizetype mostHints = 20'000;

std::uint64_t nextSerial() {
    static std::atomic<std::uint64_t> last = 0;
    return ++last;
}

/// An empty card slot is listed as a storage whose low half is 0.
bool isUsable(std::uint32_t storageID) {
    return (storageID & 0xFFFF) != 0;
}

} // namespace

MTPTree::MTPTree(USBBus& bus, const MTPDeviceAddress& address, MTPPhoneMemory& memory,
                 MTPPatience patience, const std::stop_token& stop)
    : memory_(memory), serial_(nextSerial()), client_(bus, address, patience) {
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

/// The storage that "/storage/<word>" means: its number, or the name that Android gives a card or
/// stick, which MTP does not tell. With one of these there is no doubt.
std::optional<std::uint32_t> MTPTree::storageCalled(const QString& word) {
    const std::vector<std::uint32_t>& storages = storageIDs();
    bool isNumber = false;
    const std::uint32_t number = word.toUInt(&isNumber);
    if (isNumber && std::find(storages.begin(), storages.end(), number) != storages.end())
        return number;
    static const QRegularExpression ofVolume(QStringLiteral("^[0-9A-F]{4}-[0-9A-F]{4}$"));
    return storages.size() == 2 && ofVolume.match(word).hasMatch() ? std::optional(storages[1])
                                                                   : std::nullopt;
}

MTPLocation MTPTree::locate(const QString& path) {
    const std::vector<std::uint32_t>& storages = storageIDs();
    QStringList components = storageRelativePath(path).split(QLatin1Char('/'), Qt::SkipEmptyParts);
    MTPLocation location{storages.front(), {}, {}};
    if (components.size() >= 2 && components[0] == QLatin1StringView("storage")) {
        if (const auto wanted = storageCalled(components[1])) {
            location.prefix = QStringLiteral("/storage/%1").arg(*wanted);
            location.storageID = *wanted;
            components.remove(0, 2);
        }
    }
    location.path = QLatin1Char('/') + components.join(QLatin1Char('/'));
    return location;
}

void MTPTree::doubt() {
    folders_.clear();
    confirmed_.reset();
}

void MTPTree::beginEdit(std::uint32_t handle) {
    if (edits_.contains(handle))
        endEdit(handle);
    try {
        client_.beginEdit(handle);
    } catch (const MTPFailure& failure) {
        if (!failure.response() || endsSession(failure))
            throw;
        // On some phones an edit outlives the session that broke off in it.
        try {
            client_.endEdit(handle);
        } catch (const MTPFailure& none) {
            if (!none.response() || endsSession(none))
                throw;
            throw failure; // there was none
        }
        client_.beginEdit(handle);
    }
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
    switch (static_cast<MTPEventCode>(event.code)) {
    case MTPEventCode::storeAdded:
    case MTPEventCode::storeRemoved:
    case MTPEventCode::deviceReset:
        storageIDs_.reset();
        doubt();
        return true;
    default:
        return folders_.heed(event);
    }
}

bool MTPTree::knows(const MTPFound& folder, std::uint32_t handle) const {
    const MTPKnownFolder* one = folders_.find(folder.location.storageID, folder.object.handle);
    return one && one->contents.contains(handle);
}

void MTPTree::added(const MTPFound& folder, const MTPObjectInfo& info) {
    folders_.added(folder, info);
    remember(folder.location.child(info.filename), info);
}

void MTPTree::removed(const MTPFound& object) {
    folders_.removed(object);
    if (object.object.isDirectory())
        memory_.folders.remove({object.location.storageID, object.location.path});
}

void MTPTree::remember(const MTPLocation& location, const MTPObjectInfo& info) {
    if (!info.isDirectory())
        return;
    if (memory_.folders.size() >= mostHints)
        memory_.folders.clear();
    memory_.folders.insert({location.storageID, location.path}, info.id);
}

MTPObjectInfo MTPTree::infoOf(std::uint32_t handle) {
    constexpr std::chrono::seconds moment{1};
    if (!confirmed_ || confirmed_->info.id != handle || confirmed_->asked != client_.asked() ||
        Clock::now() - confirmed_->at > moment) {
        MTPObjectInfo info = reader_.ask(handle);
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
    return at != confirmedFolders_.cend() && Clock::now() - *at < MTPKnownFolder::freshness;
}

std::optional<MTPObjectInfo> MTPTree::confirm(std::uint32_t handle, const QString& name,
                                              std::uint32_t storageID, std::uint32_t folder) {
    try {
        MTPObjectInfo info = infoOf(handle);
        // The roots of two storages have one handle: only the storage tells their entries apart.
        if (info.filename == name && info.storageID == storageID && reader_.isIn(info, folder))
            return info;
    } catch (const MTPFailure& error) {
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
    MTPKnownFolder& parent = folders_.at(folder.storageID, folderHandle);
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
    else if (!mustBeCurrent && parent.isFreshWhole())
        return std::nullopt;
    std::optional<MTPObjectInfo> match;
    reader_.readChildren(
        folder.storageID, parent,
        [&](const MTPObjectInfo& info) {
            // What says that it lies elsewhere is not meant by a path in this folder.
            const bool saysItIs = info.parentObject == folderHandle || isMTPRoot(info.parentObject);
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
        found = tryBoth(path, true, stop); // it may have been made a moment ago, by others
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
    MTPKnownFolder& one = folders_.at(folder.location.storageID, folder.object.handle);
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

void MTPTree::list(const MTPFound& folder, const ChildVisitor& visit,
                   const UnreadableVisitor& unreadable, const std::stop_token& stop) {
    const MTPLocation& at = folder.location;
    folders_.forget(at.storageID, folder.object.handle);
    reader_.readChildren(
        at.storageID, folders_.at(at.storageID, folder.object.handle),
        [&](const MTPObjectInfo& info) {
            remember(at.child(info.filename), info);
            visit(info);
            return true;
        },
        unreadable, stop);
}

const MTPFolderContents& MTPTree::contents(const MTPFound& folder, const std::stop_token& stop) {
    MTPKnownFolder& one = folders_.at(folder.location.storageID, folder.object.handle);
    if (!one.isFreshWhole())
        reader_.readChildren(
            folder.location.storageID, one, [](const MTPObjectInfo&) { return true; }, {}, stop);
    return one.contents;
}

} // namespace tessary
