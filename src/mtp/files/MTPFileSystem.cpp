#include "mtp/files/MTPFileSystem.h"

#include "base/text/PathNames.h"
#include "mtp/files/MTPFileItems.h"
#include "mtp/files/MTPFileReader.h"
#include "mtp/files/MTPFileWriter.h"
#include "mtp/files/MTPListing.h"
#include "mtp/files/MTPPieceWriter.h"
#include "mtp/objects/MTPFailures.h"
#include "phone/DevicePath.h"

#include <QStringList>

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

/// The small picture that the phone has of a file, encoded. No value without one, or for one of
/// more than `maxBytes`. Throws what ends the session.
std::optional<QByteArray> readThumbnail(MTPTree& tree, const FileItem& file, qint64 maxBytes,
                                        const std::stop_token& stop) {
    struct TooLarge {};
    const MTPFound found = tree.findListed(file, stop);
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
    options.stop = stop;
    try {
        tree.client().getThumb(found.object.handle, take, options);
    } catch (const TooLarge&) {
        return std::nullopt;
    } catch (const MTPFailure& failure) {
        // Of most files there is none, and phones have many words for that.
        if (endsSession(failure))
            throw;
        return std::nullopt;
    }
    return picture.isEmpty() ? std::nullopt : std::optional(picture);
}

/// The folder that an object lies in.
MTPFound folderOf(const MTPFound& found) {
    return {found.location.folder(), {found.parent, std::nullopt}};
}

/// What was listed as `item`; PhoneError::wholeStorage for what is no single object.
MTPFound findOne(MTPTree& tree, const FileItem& item, const std::stop_token& stop) {
    MTPFound found = tree.findItem(item, stop);
    if (!found.object.info)
        throw Error(PhoneError::wholeStorage, {item.path});
    return found;
}

} // namespace

MTPFileSystem::MTPFileSystem(USBBus& bus, PhoneIdentity phone, std::shared_ptr<PhoneQueue> queue,
                             MTPPatience patience)
    : phone_(std::move(phone)), link_(bus, phone_, std::move(queue), patience) {}

QString MTPFileSystem::identity() const {
    // Only a serial number tells two phones of one model apart wherever they are plugged in.
    return QStringLiteral("mtp:") + (phone_.serialNumber.isEmpty() ? phone_.key() : phone_.udid);
}

QString MTPFileSystem::displayName() const {
    return phoneName(phone_, *queue());
}

FileTreeRoot MTPFileSystem::rootOf(const QString& path) const {
    const QString id = storageIDOf(storageRelativePath(path));
    if (id.isEmpty())
        return {mainRoot(), QStringLiteral("Internal Storage")};
    const QString name = status_.volume(id).name;
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
    return link_.queue();
}

FileSystemCapabilities MTPFileSystem::capabilities(const Call& call) {
    return link_.inTurn(call, {}, [&](MTPTree&) {
        const MTPDeviceInfo& device = link_.deviceInfo();
        FileSystemCapabilities can;
        can.renames = device.announces(MTPOperationCode::setObjectPropValue);
        can.moves = device.announces(MTPOperationCode::moveObject);
        can.readsRanges = link_.partialReads() != MTPPartialReads::none;
        can.appends = link_.memory().editsObjects &&
                      device.announces(MTPOperationCode::androidBeginEditObject) &&
                      device.announces(MTPOperationCode::androidSendPartialObject) &&
                      device.announces(MTPOperationCode::androidEndEditObject);
        can.appendsFrom = MTPPieceWriter::smallestFile;
        can.hasThumbnails = device.announces(MTPOperationCode::getThumb);
        can.writes = device.announces(MTPOperationCode::sendObject);
        return can;
    });
}

NameRules MTPFileSystem::nameRules(const QString& folder, const Call& call) {
    NameRules rules;
    rules.ignoresCase = true;
    rules.ignoresUnicodeForm = true;
    constexpr int mostUnits = 254;
    rules.longestUTF16 = mostUnits;
    // Memory cards are formatted so that cameras can read them.
    const QString id = storageIDOf(storageRelativePath(folder));
    if (!id.isEmpty() && status_.volume(id).id != id)
        link_.inTurn(call, folder, [&](MTPTree& tree) { (void)status_.readVolumes(tree); });
    rules.forbidsFATCharacters = status_.volume(id).isSDCard;
    return rules;
}

void MTPFileSystem::list(const QString& folder, const ListingReceiver& receiver, const Call& call) {
    MTPListing listing(folder, receiver);
    try {
        link_.inTurn(call, folder, [&](MTPTree& tree) { listing.read(tree, call.stop); });
    } catch (const Error& error) {
        if (error.is(PhoneError::unreadable))
            throw Error(PhoneError::listingBroken, {folder}, error);
        throw;
    }
    listing.handOver();
}

std::optional<FileItem> MTPFileSystem::find(const QString& path, const Call& call) {
    return link_.inTurn(call, path, [&](MTPTree& tree) -> std::optional<FileItem> {
        const auto found = tree.find(path, call.stop);
        if (!found)
            return std::nullopt;
        if (found->object.info)
            return fileItemOf(*found->object.info, found->location.folder());
        // The root of a storage, as a folder called after it.
        const MTPStorageInfo storage = tree.client().getStorageInfo(found->location.storageID);
        return FileItem(storage.storageDescription, found->location.shownPath(), true, 0,
                        std::nullopt);
    });
}

qint64 MTPFileSystem::read(const FileItem& file, ByteRange range, const ByteSink& sink,
                           const Call& call) {
    MTPFileReader reader(file, range, sink, call.stop);
    bool isMore = true;
    while (isMore)
        isMore = link_.inTurn(call, file.path, [&](MTPTree& tree) {
            return reader.step(tree, link_.partialReads());
        });
    return reader.received();
}

/// Runs `make(MTPFileWriter&)`, which makes a file or folder of this name. A file has a size.
template <typename Make>
FileItem MTPFileSystem::making(const QString& folder, const QString& name,
                               std::optional<qint64> size, const Call& call, Make make) {
    try {
        return link_.inTurn(call, joinPath(folder, name), [&](MTPTree& tree) {
            const MTPFound at = tree.requireFolder(folder, call.stop);
            MTPFileWriter writer(tree, at, call.stop);
            const MTPObjectInfo made = make(writer);
            link_.noteEdit();
            return fileItemOf(made, at.location, isBelowStorage(folder));
        });
    } catch (const Error& error) {
        if (!error.is(PhoneError::notDone))
            throw;
        return findInNewSession(folder, name, size, error, call);
    }
}

FileItem MTPFileSystem::write(const NewFile& file, const ByteSource& content,
                              const ByteProgress& progress, const Call& call) {
    if (file.staysWhenBroken && file.size >= MTPPieceWriter::smallestFile &&
        capabilities(call).appends)
        return writeInPieces(MTPPieceWriter(file, content, progress, call.stop),
                             joinPath(file.folder, file.name), call);
    return making(file.folder, file.name, file.size, call,
                  [&](MTPFileWriter& writer) { return writer.writeFile(file, content, progress); });
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
        link_.noteEdit();
        return isMore;
    };
    while (link_.inTurn(call, path, step))
        continue;
    return writer.made();
}

FileItem MTPFileSystem::makeFolder(const QString& parent, const QString& name, const Call& call) {
    return making(parent, name, std::nullopt, call,
                  [&](MTPFileWriter& writer) { return writer.makeFolder(name); });
}

/// What the phone said that it has made and does not show: some show it to a new session only.
/// Throws `failure` when it is not there either.
FileItem MTPFileSystem::findInNewSession(const QString& folder, const QString& name,
                                         std::optional<qint64> size, const Error& failure,
                                         const Call& call) {
    link_.close(call);
    const auto made = find(joinPath(folder, name), call);
    const bool isIt = made && made->isDirectory == !size && (!size || made->size == *size);
    if (!isIt)
        throw failure;
    link_.queue()->noteEdit();
    return *made;
}

void MTPFileSystem::remove(const FileItem& item, const Call& call) {
    link_.inTurn(call, item.path, [&](MTPTree& tree) {
        const MTPFound found = findOne(tree, item, call.stop);
        // Phones delete what is in a folder along with it: looked at right before.
        if (found.object.isDirectory() &&
            !tree.childHandles(found.location.storageID, found.object.handle).empty())
            throw Error(PhoneError::folderNotEmpty, {item.path});
        tree.client().deleteObject(found.object.handle);
        tree.removed(found);
        link_.noteEdit();
    });
}

void MTPFileSystem::removeTree(const FileItem& item, const Call& call) {
    const bool isDone = link_.inTurn(call, item.path, [&](MTPTree& tree) {
        const MTPFound found = findOne(tree, item, call.stop);
        try {
            tree.client().deleteObject(found.object.handle);
        } catch (const MTPFailure& failure) {
            tree.doubt(); // a part of it may be gone
            if (!found.object.isDirectory() || endsSession(failure))
                throw;
            return false;
        }
        tree.removed(found);
        link_.noteEdit();
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
    return link_.inTurn(call, item.path, [&](MTPTree& tree) {
        const MTPFound found = findOne(tree, item, call.stop);
        if (newName == item.name)
            return item;
        // Some phones would put the item in the place of the one that has this name.
        const MTPFound folder = folderOf(found);
        const std::uint32_t handle = found.object.handle;
        requireFreeMTPName(tree.contents(folder, call.stop), newName, handle);
        tree.client().renameObject(handle, newName);
        tree.removed(found);
        link_.noteEdit();
        const auto renamed =
            tree.confirm(handle, newName, folder.location.storageID, folder.object.handle);
        if (!renamed)
            throw Error(PhoneError::notDone, {item.path});
        tree.added(folder, *renamed);
        return fileItemOf(*renamed, folder.location, isBelowStorage(item.path));
    });
}

FileItem MTPFileSystem::move(const FileItem& item, const QString& newFolder, const Call& call) {
    return link_.inTurn(call, item.path, [&](MTPTree& tree) {
        const MTPFound found = findOne(tree, item, call.stop);
        const MTPFound target = tree.requireFolder(newFolder, call.stop);
        const std::uint32_t storageID = found.location.storageID;
        if (target.location.storageID != storageID)
            throw Error(PhoneError::otherStorage, {item.path});
        if (isAtOrBelow(target.location.path, found.location.path))
            throw Error(PhoneError::insideItself, {item.path});
        requireFreeMTPName(tree.contents(target, call.stop), item.name);
        try {
            tree.client().moveObject(found.object.handle, storageID,
                                     target.location.isRoot() ? 0 : target.object.handle);
        } catch (const MTPFailure& failure) {
            // The object is there, and so is the folder: then this phone just cannot move.
            const Error error = phoneErrorOf(failure, item.path);
            if (error.is(PhoneError::notFound) || error.is(PhoneError::refused))
                throw Error(PhoneError::notSupported, {item.path}, *error.cause());
            throw;
        }
        tree.removed(found);
        link_.noteEdit();
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
    return link_.inTurn(call, file.path, [&](MTPTree& tree) -> std::optional<QByteArray> {
        if (!link_.deviceInfo().announces(MTPOperationCode::getThumb))
            return std::nullopt;
        return readThumbnail(tree, file, maxBytes, call.stop);
    });
}

std::optional<std::uint64_t> MTPFileSystem::freeBytes(const QString& folder, const Call& call) {
    return link_.inTurn(call, folder, [&](MTPTree& tree) -> std::optional<std::uint64_t> {
        return volumeOf(tree.client().getStorageInfo(tree.locate(folder).storageID)).freeBytes;
    });
}

std::optional<LiveDeviceInfo> MTPFileSystem::liveInfo(const std::stop_token& stop) {
    const auto turn = link_.queue()->tryTake();
    return turn ? std::optional(status_.read(link_, stop)) : std::nullopt;
}

QStringList MTPFileSystem::programsHolding() {
    return link_.programsHolding();
}

} // namespace tessary
