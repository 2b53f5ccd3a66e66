#include "mtp/files/MTPFileSystem.h"

#include "base/text/PathNames.h"
#include "mtp/files/MTPFileEdits.h"
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
        return rootItemOf(tree.client().getStorageInfo(found->location.storageID), found->location);
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
        link_.noteEdit();
        return fileItemOf(made, folder.location, isBelowStorage(file.folder));
    };
    try {
        return link_.inTurn(call, joinPath(file.folder, file.name), work);
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
        link_.noteEdit();
        return isMore;
    };
    while (link_.inTurn(call, path, step))
        continue;
    return writer.made();
}

FileItem MTPFileSystem::makeFolder(const QString& parent, const QString& name, const Call& call) {
    const auto work = [&](MTPTree& tree) {
        const MTPFound folder = tree.requireFolder(parent, call.stop);
        const MTPObjectInfo made = MTPFileWriter(tree, folder, call.stop).makeFolder(name);
        link_.noteEdit();
        return fileItemOf(made, folder.location, isBelowStorage(parent));
    };
    try {
        return link_.inTurn(call, joinPath(parent, name), work);
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
    link_.close(call);
    const auto made = find(joinPath(folder, name), call);
    const bool isIt = made && made->isDirectory == !size && (!size || made->size == *size);
    if (!isIt)
        throw failure;
    link_.queue()->noteEdit();
    return *made;
}

/// Runs `edit(MTPFileEdits&)` on an item.
template <typename Edit>
auto MTPFileSystem::editing(const FileItem& item, const Call& call, Edit edit) {
    return link_.inTurn(call, item.path, [&](MTPTree& tree) {
        MTPFileEdits edits(tree, call.stop, [this] { link_.noteEdit(); });
        return edit(edits);
    });
}

void MTPFileSystem::remove(const FileItem& item, const Call& call) {
    editing(item, call, [&](MTPFileEdits& edits) { edits.remove(item); });
}

void MTPFileSystem::removeTree(const FileItem& item, const Call& call) {
    const bool isDone =
        editing(item, call, [&](MTPFileEdits& edits) { return edits.removeTree(item); });
    if (!isDone)
        PhoneFileSystem::removeTree(item, call);
}

FileItem MTPFileSystem::rename(const FileItem& item, const QString& newName, TakenName taken,
                               const Call& call) {
    requireMTPName(newName);
    if (taken == TakenName::replaced)
        throw Error(PhoneError::notSupported, {item.path});
    return editing(item, call, [&](MTPFileEdits& edits) { return edits.rename(item, newName); });
}

FileItem MTPFileSystem::move(const FileItem& item, const QString& newFolder, const Call& call) {
    return editing(item, call, [&](MTPFileEdits& edits) { return edits.move(item, newFolder); });
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
