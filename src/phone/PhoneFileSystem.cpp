#include "phone/PhoneFileSystem.h"

#include "base/text/PathNames.h"
#include "base/threads/CancellationError.h"
#include "phone/TreeLimits.h"

#include <QCryptographicHash>

#include <iterator>

namespace tessary {

namespace {

/// `left`: entries that the walk may still come across.
void removeWithContents(PhoneFileSystem& files, const FileItem& item, int depth, qint64& left,
                        const Call& call) {
    throwIfStopped(call.stop);
    if (item.isDirectory) {
        if (depth >= deepestFolder)
            throw Error(PhoneError::insideItself, {item.path});
        Listing content = listAll(files, item.path, call);
        left -= std::ssize(content.items);
        if (left < 0)
            throw Error(PhoneError::listingBroken, {item.path});
        for (const FileItem& child : content.items) {
            // A name with a "/" in it would lead out of the folder that the user saw.
            if (!isSafeName(child.name))
                throw Error(PhoneError::nameNotAllowed, {child.name});
            removeWithContents(files, child, depth + 1, left, call);
        }
        if (!content.unreadable.empty())
            throw content.unreadable.front().error;
    }
    files.remove(item, call);
}

} // namespace

void PhoneFileSystem::removeTree(const FileItem& item, const Call& call) {
    qint64 left = mostWalkedEntries;
    removeWithContents(*this, item, 0, left, call);
}

void PhoneFileSystem::setModified(const FileItem& file, const QDateTime&, const Call&) {
    throw Error(PhoneError::notSupported, {file.path});
}

FileItem PhoneFileSystem::append(const FileItem& begun, qint64, const NewFile&, const ByteSource&,
                                 const ByteProgress&, const Call&) {
    throw Error(PhoneError::notSupported, {begun.path});
}

ByteSource PhoneFileSystem::draw(const FileItem&, qint64, const Call&) {
    return {};
}

std::vector<std::optional<QByteArray>> PhoneFileSystem::readTogether(const std::vector<FileItem>&,
                                                                     const Call&) {
    throw Error(PhoneError::notSupported);
}

std::vector<std::optional<FileItem>>
PhoneFileSystem::writeTogether(const QString& folder, const std::vector<SmallFile>&,
                               const std::function<bool(std::size_t)>&, const ByteProgress&,
                               const Call&) {
    throw Error(PhoneError::notSupported, {folder});
}

std::optional<QByteArray> PhoneFileSystem::thumbnail(const FileItem&, qint64, const Call&) {
    return std::nullopt;
}

std::optional<QByteArray> PhoneFileSystem::hash(const FileItem&, const Call&) {
    return std::nullopt;
}

Listing listAll(PhoneFileSystem& files, const QString& folder, const Call& call) {
    Listing listing;
    files.list(folder,
               {[&](std::vector<FileItem>&& rows) {
                    if (listing.items.empty())
                        listing.items = std::move(rows);
                    else
                        std::move(rows.begin(), rows.end(), std::back_inserter(listing.items));
                },
                [&](UnreadableEntry&& entry) { listing.unreadable.push_back(std::move(entry)); }},
               call);
    return listing;
}

FileItem require(PhoneFileSystem& files, const QString& path, const Call& call) {
    if (auto item = files.find(path, call))
        return *std::move(item);
    throw Error(PhoneError::notFound, {path});
}

FileItem requireFolder(PhoneFileSystem& files, const QString& path, const Call& call) {
    FileItem item = require(files, path, call);
    if (!item.isDirectory)
        throw Error(PhoneError::notAFolder, {path});
    return item;
}

QString fileKey(const PhoneFileSystem& files, const FileItem& item) {
    const QStringList identity{
        files.identity(), item.id(), item.path, QString::number(item.size),
        item.modifiedDate ? QString::number(item.modifiedDate->toMSecsSinceEpoch()) : QString()};
    return QString::fromLatin1(
        QCryptographicHash::hash(identity.join(QChar::Null).toUtf8(), QCryptographicHash::Sha256)
            .toHex()
            .left(32));
}

} // namespace tessary
