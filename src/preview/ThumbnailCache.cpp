#include "preview/ThumbnailCache.h"

#include <QBuffer>
#include <QCryptographicHash>
#include <QDir>
#include <QImageReader>
#include <QSaveFile>
#include <QStandardPaths>

namespace tessary {

namespace {

constexpr int longestSide = 1024;         // pixels; what is larger was not made here
constexpr qint64 longestFile = 4'000'000; // bytes

} // namespace

ThumbnailCache& ThumbnailCache::shared() {
    static ThumbnailCache& cache =
        *new ThumbnailCache(QStandardPaths::writableLocation(QStandardPaths::GenericCacheLocation) +
                            QStringLiteral("/TessaryThumbnails"));
    return cache;
}

ThumbnailCache::ThumbnailCache(QString folder, qint64 maxBytes)
    : folder_(std::move(folder)), maxBytes_(maxBytes) {}

QString ThumbnailCache::key(const PhoneFileSystem& files, const FileItem& item) {
    const QStringList identity{
        files.identity(), item.id(), item.path, QString::number(item.size),
        item.modifiedDate ? QString::number(item.modifiedDate->toMSecsSinceEpoch()) : QString()};
    return QString::fromLatin1(
        QCryptographicHash::hash(identity.join(QChar::Null).toUtf8(), QCryptographicHash::Sha256)
            .toHex()
            .left(32));
}

QString ThumbnailCache::pathOf(const QString& key) const {
    return QStringLiteral("%1/%2.png").arg(folder_, key);
}

std::optional<QImage> ThumbnailCache::load(const QString& key) const {
    QFile file(pathOf(key));
    if (!file.open(QIODevice::ReadOnly) || file.size() > longestFile)
        return std::nullopt;
    QImageReader reader(&file, "png");
    const QSize size = reader.size();
    if (size.isEmpty() || size.width() > longestSide || size.height() > longestSide)
        return std::nullopt;
    QImage image = reader.read();
    if (image.isNull())
        return std::nullopt;
    return image;
}

void ThumbnailCache::store(const QString& key, const QImage& image) {
    constexpr auto ownerOnly =
        QFileDevice::ReadOwner | QFileDevice::WriteOwner | QFileDevice::ExeOwner;
    if (!QDir().mkpath(folder_) || !QFile::setPermissions(folder_, ownerOnly))
        return;
    QByteArray png;
    QBuffer buffer(&png);
    buffer.open(QIODevice::WriteOnly);
    QSaveFile file(pathOf(key));
    if (!image.save(&buffer, "PNG") || !file.open(QIODevice::WriteOnly) ||
        file.write(png) != png.size() || !file.commit())
        return;
    const std::scoped_lock lock(mutex_);
    storedSinceCount_ += png.size();
    // The folder is counted at first, and whenever much has come to it.
    constexpr qint64 slices = 10;
    if (isCounted_ && storedSinceCount_ < maxBytes_ / slices)
        return;
    isCounted_ = true;
    storedSinceCount_ = 0;
    makeRoom();
}

void ThumbnailCache::makeRoom() {
    const QFileInfoList files = QDir(folder_).entryInfoList({QStringLiteral("*.png")}, QDir::Files,
                                                            QDir::Time); // newest first
    qint64 bytes = 0;
    for (const QFileInfo& file : files) {
        bytes += file.size();
        if (bytes > maxBytes_)
            (void)QFile::remove(file.filePath());
    }
}

} // namespace tessary
