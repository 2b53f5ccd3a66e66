#include "mtp/files/MTPFileSystem.h"

#include "base/log/DiagnosticsLogger.h"
#include "base/text/ByteCount.h"
#include "base/text/PathNames.h"
#include "base/threads/CancellationError.h"
#include "mtp/client/MTPUSBTransport.h"
#include "mtp/files/MTPFileItems.h"
#include "mtp/files/MTPFileWriter.h"
#include "mtp/objects/MTPFailures.h"
#include "phone/DevicePath.h"

#include <QStringList>

#include <algorithm>
#include <type_traits>

namespace tessary {

namespace {

const QString& mainRoot() {
    static const QString path = QStringLiteral("/sdcard");
    return path;
}

/// The "<id>" of a path below "/storage/<id>"; empty for the first storage. Takes what
/// storageRelativePath() gives.
QString storageIDOf(const QString& relative) {
    const QStringList components = relative.split(QLatin1Char('/'), Qt::SkipEmptyParts);
    if (components.size() < 2 || components[0] != QLatin1StringView("storage"))
        return {};
    bool isNumber = false;
    components[1].toUInt(&isNumber);
    return isNumber ? components[1] : QString();
}

MTPDeviceAddress addressOf(const PhoneIdentity& phone) {
    return {phone.vendorId, phone.productId, phone.serialNumber, phone.usbLocation};
}

void requireOneItem(const MTPFound& found, const FileItem& item) {
    if (!found.object.info)
        throw Error(PhoneError::wholeStorage, {item.path});
}

/// The folder that an object lies in.
MTPFound folderOf(const MTPFound& found) {
    return {found.location.folder(), {found.parent, std::nullopt}};
}

} // namespace

MTPFileSystem::MTPFileSystem(USBBus& bus, PhoneIdentity phone, std::shared_ptr<PhoneQueue> queue,
                             MTPPatience patience)
    : bus_(bus),
      phone_(std::move(phone)),
      queue_(std::move(queue)),
      patience_(patience),
      watch_(bus.watch([this](const USBEvent& event) {
          if (event.kind == USBEvent::Kind::detached)
              detached_ = event.entry.id;
      })) {}

MTPFileSystem::~MTPFileSystem() {
    queue_->forget(this);
}

QString MTPFileSystem::identity() const {
    // Only a serial number tells two phones of one model apart wherever they are plugged in.
    return QStringLiteral("mtp:") + (phone_.serialNumber.isEmpty() ? phone_.key() : phone_.udid);
}

QString MTPFileSystem::displayName() const {
    return phone_.name;
}

FileTreeRoot MTPFileSystem::rootOf(const QString& path) const {
    const QString id = storageIDOf(storageRelativePath(path));
    if (id.isEmpty())
        return {mainRoot(), QStringLiteral("Internal Storage")};
    const std::scoped_lock lock(mutex_);
    const QString name = volumes_.value(id).name;
    return {QStringLiteral("/storage/") + id,
            name.isEmpty() ? QStringLiteral("Storage %1").arg(id) : name};
}

QString MTPFileSystem::canonicalPath(const QString& path) const {
    const QString relative = QLatin1Char('/') + storageRelativePath(path)
                                                    .split(QLatin1Char('/'), Qt::SkipEmptyParts)
                                                    .join(QLatin1Char('/'));
    if (relative.size() == 1)
        return mainRoot();
    return storageIDOf(relative).isEmpty() ? mainRoot() + relative : relative;
}

std::shared_ptr<PhoneQueue> MTPFileSystem::queue() const {
    return queue_;
}

/// Runs `work(tree)` in the session that is open, or in a new one. The caller has the turn.
template <typename Work>
std::invoke_result_t<Work, MTPTree&> MTPFileSystem::inSession(const std::stop_token& stop,
                                                              const QString& path, Work work) {
    if (tree_ && detached_ == attachment_)
        closeSession();
    const bool isReused = tree_ != nullptr;
    std::uint64_t answered = 0;
    try {
        if (!tree_)
            openSession(stop);
        answered = tree_->client().answered();
        tree_->client().setStop(stop);
        if (const std::uint64_t edits = queue_->edits(); edits != edits_) {
            tree_->doubt();
            edits_ = edits;
        }
        if (tree_->heedEvents())
            noteEdit();
        if constexpr (std::is_void_v<std::invoke_result_t<Work, MTPTree&>>) {
            work(*tree_);
            brokenInRow_ = 0;
            return;
        } else {
            auto result = work(*tree_);
            brokenInRow_ = 0;
            return result;
        }
    } catch (const MTPTransportError& failure) {
        // The cable may have been out and in again since the last call: nothing is done yet then.
        const bool isStale =
            isReused && failure.isDeviceGone() && tree_->client().answered() == answered;
        Error error = translated(failure, path);
        // One object that cannot be had does not end a copy; two in a row are the phone's fault.
        const bool isOne = tree_ && isBrokenData(failure) && ++brokenInRow_ < 2;
        if (isOne)
            error = Error(PhoneError::refused, {path}, *error.cause());
        else if (endsSession(failure))
            closeSession();
        if (!isStale)
            throw error;
    } catch (const Error& error) {
        // Some phones show their storages to a new session only.
        if (error.is(PhoneError::noStorage))
            closeSession();
        throw;
    }
    return inSession(stop, path, std::move(work));
}

/// The same once nobody else uses the phone.
template <typename Work>
std::invoke_result_t<Work, MTPTree&> MTPFileSystem::inTurn(const Call& call, const QString& path,
                                                           Work work) {
    const PhoneQueue::Turn turn = queue_->take(call);
    throwIfStopped(call.stop);
    return inSession(call.stop, path, std::move(work));
}

void MTPFileSystem::openSession(const std::stop_token& stop) {
    const auto entry = findMTPDevice(bus_, addressOf(phone_));
    if (const std::uint64_t id = entry ? entry->id : 0; id != attachment_) {
        attachment_ = id;
        deviceInfo_.reset();
        partialReads_.reset();
        hasBattery_ = true;
    }
    tree_ = std::make_unique<MTPTree>(std::make_unique<MTPUSBTransport>(bus_, addressOf(phone_)),
                                      memory_, patience_, stop);
    if (!deviceInfo_)
        memory_.listsProperties = deviceInfo().announces(MTPOperationCode::getObjectPropList);
    queue_->closeWhenIdle(this, [this] { closeSession(); });
}

void MTPFileSystem::closeSession() {
    tree_.reset();
}

Error MTPFileSystem::translated(const MTPTransportError& failure, const QString& path) {
    const Error error = phoneErrorOf(failure, path);
    if (error.is(PhoneError::held))
        return {PhoneError::held, {programsHolding().join(QStringLiteral(", "))}, *error.cause()};
    // After a pulled cable some calls fail with codes of no meaning.
    if (error.is(PhoneError::brokenOff)) {
        const auto entry = findMTPDevice(bus_, addressOf(phone_));
        if (!entry || entry->id != attachment_)
            return {PhoneError::unplugged, {path}, *error.cause()};
    }
    return error;
}

const MTPDeviceInfo& MTPFileSystem::deviceInfo() {
    if (!deviceInfo_)
        deviceInfo_ = tree_->client().getDeviceInfo();
    return *deviceInfo_;
}

MTPPartialReads& MTPFileSystem::partialReads() {
    if (!partialReads_) {
        const MTPDeviceInfo& device = deviceInfo();
        partialReads_ =
            device.announces(MTPOperationCode::androidGetPartialObject64) ? MTPPartialReads::wide
            : device.announces(MTPOperationCode::getPartialObject)        ? MTPPartialReads::narrow
                                                                          : MTPPartialReads::none;
    }
    return *partialReads_;
}

void MTPFileSystem::noteEdit() {
    queue_->noteEdit();
    edits_ = queue_->edits();
}

FileSystemCapabilities MTPFileSystem::capabilities(const Call& call) {
    return inTurn(call, {}, [&](MTPTree&) {
        const MTPDeviceInfo& device = deviceInfo();
        FileSystemCapabilities can;
        can.renames = device.announces(MTPOperationCode::setObjectPropValue);
        can.moves = device.announces(MTPOperationCode::moveObject);
        can.readsRanges = partialReads() != MTPPartialReads::none;
        can.appends = memory_.editsObjects &&
                      device.announces(MTPOperationCode::androidBeginEditObject) &&
                      device.announces(MTPOperationCode::androidSendPartialObject) &&
                      device.announces(MTPOperationCode::androidEndEditObject);
        can.appendsFrom = MTPPieceWriter::smallestFile;
        can.hasThumbnails = device.announces(MTPOperationCode::getThumb);
        can.writes = device.announces(MTPOperationCode::sendObject);
        return can;
    });
}

NameRules MTPFileSystem::nameRules(const QString& folder) {
    NameRules rules;
    rules.ignoresCase = true;
    rules.ignoresUnicodeForm = true;
    constexpr int mostUnits = 254;
    rules.longestUTF16 = mostUnits;
    const std::scoped_lock lock(mutex_);
    // Memory cards are formatted so that cameras can read them.
    rules.forbidsFATCharacters = volumes_.value(storageIDOf(storageRelativePath(folder))).isSDCard;
    return rules;
}

void MTPFileSystem::list(const QString& folder, const ListingReceiver& receiver, const Call& call) {
    constexpr std::size_t mostRows = 256;
    constexpr std::chrono::milliseconds patience{100};
    const bool below = isBelowStorage(folder);
    std::vector<FileItem> rows;
    auto handedOver = std::chrono::steady_clock::now();
    const auto handOver = [&] {
        if (!rows.empty())
            receiver.rows(std::exchange(rows, {}));
        handedOver = std::chrono::steady_clock::now();
    };
    const auto read = [&](MTPTree& tree) {
        const MTPFound found = tree.requireFolder(folder, call.stop);
        tree.list(
            found,
            [&](const MTPObjectInfo& info) {
                rows.push_back(fileItemOf(info, found.location, below));
                if (rows.size() >= mostRows ||
                    std::chrono::steady_clock::now() - handedOver >= patience)
                    handOver();
            },
            [&](std::uint32_t handle, const MTPTransportError& failure) {
                const QString path =
                    found.location.child(QStringLiteral("(object %1)").arg(handle)).shownPath();
                UnreadableEntry entry{path, phoneErrorOf(failure, path)};
                if (receiver.unreadable)
                    receiver.unreadable(std::move(entry));
                else
                    DiagnosticsLogger::shared().mtp.standard("An entry cannot be read: %s",
                                                             {entry.error.logText()});
            },
            call.stop);
    };
    try {
        inTurn(call, folder, read);
    } catch (const Error& error) {
        if (error.is(PhoneError::unreadable))
            throw Error(PhoneError::listingBroken, {folder}, error);
        throw;
    }
    handOver();
}

std::optional<FileItem> MTPFileSystem::find(const QString& path, const Call& call) {
    return inTurn(call, path, [&](MTPTree& tree) -> std::optional<FileItem> {
        const auto found = tree.find(path, call.stop);
        if (!found)
            return std::nullopt;
        if (found->object.info)
            return fileItemOf(*found->object.info, found->location.folder());
        return rootItemOf(tree.client().getStorageInfo(found->location.storageID), found->location);
    });
}

qint64 MTPFileSystem::read(const FileItem& file, ByteRange range, const ByteSink& sink,
                           const Call& call) {
    MTPFileReader reader(file, range, sink, call.stop);
    bool isMore = true;
    while (isMore)
        isMore = inTurn(call, file.path,
                        [&](MTPTree& tree) { return reader.step(tree, partialReads()); });
    return reader.received();
}

FileItem MTPFileSystem::write(const NewFile& file, const ByteSource& content,
                              const ByteProgress& progress, const Call& call) {
    if (file.staysWhenBroken && file.size >= MTPPieceWriter::smallestFile &&
        capabilities(call).appends)
        return writeInPieces(MTPPieceWriter(file, content, progress, call.stop),
                             joinPath(file.folder, file.name), call);
    const auto work = [&](MTPTree& tree) {
        const MTPFound folder = tree.requireFolder(file.folder, call.stop);
        MTPFileWriter writer(tree, folder, call.stop);
        const MTPObjectInfo made = writer.writeFile(file, content, progress);
        noteEdit();
        return fileItemOf(made, folder.location, isBelowStorage(file.folder));
    };
    try {
        return inTurn(call, joinPath(file.folder, file.name), work);
    } catch (const Error& error) {
        if (!error.is(PhoneError::notDone))
            throw;
        return findInNewSession(file.folder, file.name, file.size, error, call);
    }
}

FileItem MTPFileSystem::append(const FileItem& begun, qint64 keptBytes, const NewFile& whole,
                               const ByteSource& content, const ByteProgress& progress,
                               const Call& call) {
    if (!capabilities(call).appends)
        throw Error(PhoneError::notSupported, {begun.path});
    return writeInPieces(MTPPieceWriter(begun, keptBytes, whole, content, progress, call.stop),
                         begun.path, call);
}

FileItem MTPFileSystem::writeInPieces(MTPPieceWriter writer, const QString& path,
                                      const Call& call) {
    const auto step = [&](MTPTree& tree) {
        const bool isMore = writer.step(tree);
        noteEdit();
        return isMore;
    };
    while (inTurn(call, path, step))
        continue;
    return writer.made();
}

FileItem MTPFileSystem::makeFolder(const QString& parent, const QString& name, const Call& call) {
    const auto work = [&](MTPTree& tree) {
        const MTPFound folder = tree.requireFolder(parent, call.stop);
        const MTPObjectInfo made = MTPFileWriter(tree, folder, call.stop).makeFolder(name);
        noteEdit();
        return fileItemOf(made, folder.location, isBelowStorage(parent));
    };
    try {
        return inTurn(call, joinPath(parent, name), work);
    } catch (const Error& error) {
        if (!error.is(PhoneError::notDone))
            throw;
        return findInNewSession(parent, name, std::nullopt, error, call);
    }
}

/// What the phone said that it has made and does not show: some show it to a new session only. A
/// file has a size. Throws `failure` when it is not there either.
FileItem MTPFileSystem::findInNewSession(const QString& folder, const QString& name,
                                         std::optional<qint64> size, const Error& failure,
                                         const Call& call) {
    {
        const PhoneQueue::Turn turn = queue_->take(call);
        closeSession();
    }
    const auto made = find(joinPath(folder, name), call);
    const bool isIt = made && made->isDirectory == !size && (!size || made->size == *size);
    if (!isIt)
        throw failure;
    queue_->noteEdit();
    return *made;
}

void MTPFileSystem::remove(const FileItem& item, const Call& call) {
    inTurn(call, item.path, [&](MTPTree& tree) {
        const MTPFound found = tree.findItem(item, call.stop);
        requireOneItem(found, item);
        // Phones delete what is in a folder along with it: looked at right before.
        if (found.object.isDirectory() &&
            !tree.childHandles(found.location.storageID, found.object.handle).empty())
            throw Error(PhoneError::folderNotEmpty, {item.path});
        tree.client().deleteObject(found.object.handle);
        tree.removed(found);
        noteEdit();
    });
}

void MTPFileSystem::removeTree(const FileItem& item, const Call& call) {
    const bool isDone = inTurn(call, item.path, [&](MTPTree& tree) {
        const MTPFound found = tree.findItem(item, call.stop);
        requireOneItem(found, item);
        try {
            tree.client().deleteObject(found.object.handle);
        } catch (const MTPTransportError& failure) {
            tree.doubt(); // a part of it may be gone
            if (!found.object.isDirectory() || endsSession(failure))
                throw;
            return false;
        }
        tree.removed(found);
        noteEdit();
        return true;
    });
    if (!isDone)
        PhoneFileSystem::removeTree(item, call);
}

FileItem MTPFileSystem::rename(const FileItem& item, const QString& newName, TakenName taken,
                               const Call& call) {
    requireMTPName(newName);
    if (taken == TakenName::replaced)
        throw Error(PhoneError::notSupported, {item.path});
    return inTurn(call, item.path, [&](MTPTree& tree) {
        MTPFound found = tree.findItem(item, call.stop);
        requireOneItem(found, item);
        if (newName == item.name)
            return item;
        // Some phones would put the item in the place of the one that has this name.
        const MTPFound folder = folderOf(found);
        const std::uint32_t handle = found.object.handle;
        requireFreeMTPName(tree.contents(folder, call.stop), newName, handle);
        tree.client().renameObject(handle, newName);
        tree.removed(found);
        noteEdit();
        const auto renamed =
            tree.confirm(handle, newName, folder.location.storageID, folder.object.handle);
        if (!renamed)
            throw Error(PhoneError::notDone, {item.path});
        tree.added(folder, *renamed);
        return fileItemOf(*renamed, folder.location, isBelowStorage(item.path));
    });
}

FileItem MTPFileSystem::move(const FileItem& item, const QString& newFolder, const Call& call) {
    return inTurn(call, item.path, [&](MTPTree& tree) {
        const MTPFound found = tree.findItem(item, call.stop);
        requireOneItem(found, item);
        const MTPFound target = tree.requireFolder(newFolder, call.stop);
        const std::uint32_t storageID = found.location.storageID;
        if (target.location.storageID != storageID)
            throw Error(PhoneError::otherStorage, {item.path});
        const QString inside = found.location.path + QLatin1Char('/');
        if (target.location.path == found.location.path || target.location.path.startsWith(inside))
            throw Error(PhoneError::insideItself, {item.path});
        requireFreeMTPName(tree.contents(target, call.stop), item.name);
        try {
            tree.client().moveObject(found.object.handle, storageID,
                                     target.location.isRoot() ? 0 : target.object.handle);
        } catch (const MTPTransportError& failure) {
            // The object is there, and so is the folder: then this phone just cannot move.
            const Error error = phoneErrorOf(failure, item.path);
            if (error.is(PhoneError::notFound) || error.is(PhoneError::refused))
                throw Error(PhoneError::notSupported, {item.path}, *error.cause());
            throw;
        }
        tree.removed(found);
        noteEdit();
        const auto moved =
            tree.confirm(found.object.handle, item.name, storageID, target.object.handle);
        if (!moved)
            throw Error(PhoneError::notDone, {item.path});
        tree.added(target, *moved);
        return fileItemOf(*moved, target.location, isBelowStorage(newFolder));
    });
}

std::optional<QByteArray> MTPFileSystem::thumbnail(const FileItem& file, qint64 maxBytes,
                                                   const Call& call) {
    struct TooLarge {};
    return inTurn(call, file.path, [&](MTPTree& tree) -> std::optional<QByteArray> {
        if (!deviceInfo().announces(MTPOperationCode::getThumb))
            return std::nullopt;
        const MTPFound found = tree.findListed(file, call.stop);
        if (found.object.isDirectory())
            return std::nullopt;
        QByteArray picture;
        const auto take = [&](ByteView bytes) {
            if (picture.size() + static_cast<qint64>(bytes.size()) > maxBytes)
                throw TooLarge();
            picture.append(reinterpret_cast<const char*>(bytes.data()),
                           static_cast<qsizetype>(bytes.size()));
        };
        MTPStreamOptions options;
        options.stop = call.stop;
        try {
            tree.client().getThumb(found.object.handle, take, options);
        } catch (const TooLarge&) {
            return std::nullopt;
        } catch (const MTPTransportError& failure) {
            // Of most files there is none, and phones have many words for that.
            if (endsSession(failure))
                throw;
            return std::nullopt;
        }
        return picture.isEmpty() ? std::nullopt : std::optional(picture);
    });
}

std::optional<std::uint64_t> MTPFileSystem::freeBytes(const QString& folder, const Call& call) {
    return inTurn(call, folder, [&](MTPTree& tree) -> std::optional<std::uint64_t> {
        return volumeOf(tree.client().getStorageInfo(tree.locate(folder).storageID)).freeBytes;
    });
}

std::optional<LiveDeviceInfo> MTPFileSystem::liveInfo() {
    const auto turn = queue_->tryTake();
    if (!turn)
        return std::nullopt;
    LiveDeviceInfo info;
    try {
        inSession({}, {}, [&](MTPTree&) { info.volumes = readVolumes(); });
    } catch (const Error& error) {
        if (endsEverything(error))
            throw;
        DiagnosticsLogger::shared().mtp.standard("Storages cannot be read: %s", {error.logText()});
    }
    // A phone that does not answer this one question is as good as any other.
    try {
        if (hasBattery_)
            inSession({}, {}, [&](MTPTree&) { info.battery = readBattery(); });
    } catch (const Error& error) {
        hasBattery_ = false;
        DiagnosticsLogger::shared().mtp.standard("The battery cannot be read: %s",
                                                 {error.logText()});
    }
    return info;
}

/// Those that tell of themselves; none while the phone is locked.
std::vector<StorageVolume> MTPFileSystem::readVolumes() {
    std::vector<StorageVolume> read;
    for (const std::uint32_t id : tree_->storageIDs())
        try {
            read.push_back(volumeOf(tree_->client().getStorageInfo(id)));
        } catch (const MTPTransportError& failure) {
            if (endsSession(failure))
                throw;
        }
    const std::scoped_lock lock(mutex_);
    for (const StorageVolume& volume : read)
        volumes_.insert(volume.id, volume);
    return read;
}

std::optional<int> MTPFileSystem::readBattery() {
    constexpr int fullBattery = 100;
    const auto battery = tree_->client().getBatteryLevel();
    hasBattery_ = battery && *battery <= fullBattery;
    return hasBattery_ ? battery : std::nullopt;
}

QStringList MTPFileSystem::programsHolding() {
    const auto entry = findMTPDevice(bus_, addressOf(phone_));
    return entry ? bus_.programsHolding(entry->id) : QStringList();
}

} // namespace tessary
