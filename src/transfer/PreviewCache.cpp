#include "transfer/PreviewCache.h"

#include "base/local/PartFile.h"
#include "base/values/TessaryError.h"
#include "phone/DevicePath.h"

#include <QCryptographicHash>
#include <QDateTime>
#include <QDir>
#include <QDirIterator>
#include <QFileInfo>
#include <QStandardPaths>

#include <algorithm>
#include <vector>

namespace tessary {

namespace {

/// A name under which the copy can lie here: the file's own when it fits, else one with its
/// extension.
QString localNameOf(const FileItem& item) {
    constexpr qsizetype longest = 200; // in UTF-8; file systems hold 255
    if (isSafeName(item.name) && QFile::encodeName(item.name).size() <= longest)
        return item.name;
    const QString extension = item.fileExtension();
    constexpr qsizetype longestExtension = 16;
    const bool isUsable =
        !extension.isEmpty() && extension.size() <= longestExtension && isSafeName(extension);
    return isUsable ? QStringLiteral("preview.") + extension : QStringLiteral("preview");
}

/// Marks a copy as used now.
void touch(const QString& path) {
    QFile file(path);
    if (file.open(QIODevice::ReadWrite | QIODevice::ExistingOnly))
        (void)file.setFileTime(QDateTime::currentDateTime(), QFileDevice::FileModificationTime);
}

} // namespace

PreviewCache& PreviewCache::shared() {
    static PreviewCache& cache =
        *new PreviewCache(QStandardPaths::writableLocation(QStandardPaths::GenericCacheLocation) +
                          QStringLiteral("/TessaryCache"));
    return cache;
}

PreviewCache::PreviewCache(QString folder, qint64 maxBytes)
    : folder_(std::move(folder)), maxBytes_(maxBytes) {}

QString PreviewCache::pathOf(const FileAccess& files, const FileItem& item) const {
    const QStringList identity{
        files.identity(), item.id(), item.path, QString::number(item.size),
        item.modifiedDate ? item.modifiedDate->toUTC().toString(Qt::ISODateWithMs) : QString()};
    const QByteArray key =
        QCryptographicHash::hash(identity.join(QChar::Null).toUtf8(), QCryptographicHash::Sha256)
            .toHex()
            .left(32);
    return joinPath(joinPath(folder_, QString::fromLatin1(key)), localNameOf(item));
}

std::optional<QString> PreviewCache::find(const FileAccess& files, const FileItem& item) const {
    const QString path = pathOf(files, item);
    if (!QFileInfo(path).isFile())
        return std::nullopt;
    touch(path);
    return path;
}

QString PreviewCache::fetch(FileAccess& files, const FileItem& item,
                            const FileProgressCallback& progress, const std::stop_token& stop) {
    if (item.isDirectory)
        throw TessaryError::fileIOError(QStringLiteral("A folder has no preview."));
    if (const auto known = find(files, item))
        return *known;
    if (item.size > maxBytes_ / 2)
        throw TessaryError::fileIOError(
            QStringLiteral("\"%1\" is too large for a preview. Copy it to this computer first.")
                .arg(item.name));
    const QString path = pathOf(files, item);
    constexpr auto ownerOnly =
        QFileDevice::ReadOwner | QFileDevice::WriteOwner | QFileDevice::ExeOwner;
    if (!QDir().mkpath(parentPath(path)) || !QFile::setPermissions(folder_, ownerOnly))
        throw TessaryError::fileIOError(
            QStringLiteral("Cannot create the folder %1 on this computer.").arg(folder_));
    files.downloadFile(item, path, progress, stop);
    touch(path); // the download gave it the device's date
    makeRoom(path);
    return path;
}

/// Removes the copies that were not used for longest until the rest fits.
void PreviewCache::makeRoom(const QString& keep) {
    struct Copy {
        QFileInfo info;
        QDateTime used;
    };
    const std::scoped_lock lock(mutex_);
    std::vector<Copy> copies;
    qint64 bytes = 0;
    QDirIterator walk(folder_, QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
    while (walk.hasNext()) {
        walk.next();
        const QFileInfo info = walk.fileInfo();
        bytes += info.size();
        const bool isUnderWay = info.fileName().startsWith(PartFile::namePrefix) &&
                                info.lastModified().secsTo(QDateTime::currentDateTime()) < 3600;
        if (info.filePath() != keep && !isUnderWay)
            copies.push_back({info, info.lastModified()});
    }
    std::sort(copies.begin(), copies.end(),
              [](const Copy& a, const Copy& b) { return a.used < b.used; });
    for (const Copy& copy : copies) {
        if (bytes <= maxBytes_)
            break;
        if (!QFile::remove(copy.info.filePath()))
            continue;
        bytes -= copy.info.size();
        QDir().rmdir(copy.info.path());
    }
}

} // namespace tessary
