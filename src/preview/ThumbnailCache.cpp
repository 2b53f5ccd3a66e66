#include "preview/ThumbnailCache.h"

#include "base/local/FolderEntries.h"
#include "base/local/LocalError.h"
#include "base/local/TreeRemoval.h"
#include "base/local/Unfinished.h"
#include "phone/PartNames.h"

#include <QBuffer>
#include <QFile>
#include <QImageReader>

#include <algorithm>
#include <functional>
#include <vector>

#include <fcntl.h>
#include <sys/stat.h>

namespace tessary {

namespace {

constexpr int longestSide = 1024;         // pixels; what is larger was not made here
constexpr qint64 longestFile = 4'000'000; // bytes

QByteArray fileNameOf(const QString& key) {
    return key.toLatin1() + ".png";
}

/// Writes a file that is there whole or not at all.
bool writeWhole(int folder, const QByteArray& name, const QByteArray& content) {
    const QByteArray part = newPartName().toUtf8();
    const int opened =
        ::openat(folder, part.constData(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC,
                 S_IRUSR | S_IWUSR);
    if (opened < 0)
        return false;
    const Unfinished unfinished(folder, part);
    QFile file;
    bool isWritten = file.open(opened, QIODevice::WriteOnly, QFileDevice::AutoCloseHandle) &&
                     file.write(content) == content.size() && file.flush();
    file.close();
    isWritten = isWritten && ::renameat(folder, part.constData(), folder, name.constData()) == 0;
    if (!isWritten)
        (void)::unlinkat(folder, part.constData(), 0);
    return isWritten;
}

} // namespace

ThumbnailCache& ThumbnailCache::shared() {
    static ThumbnailCache& cache = *new ThumbnailCache(QStringLiteral("thumbnails"));
    return cache;
}

ThumbnailCache::ThumbnailCache(QString name, qint64 maxBytes)
    : name_(std::move(name)), maxBytes_(maxBytes) {}

/// -1 where there can be none.
int ThumbnailCache::folder() const {
    const std::scoped_lock lock(mutex_);
    try {
        if (!folder_)
            folder_ = std::make_unique<PrivateFolder>(PrivateFolder::Place::cache, name_);
    } catch (const Error&) {
        return -1;
    }
    return folder_->descriptor();
}

std::optional<QImage> ThumbnailCache::load(const QString& key) const {
    const int opened = ::openat(folder(), fileNameOf(key).constData(),
                                O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC);
    QFile file;
    if (opened < 0 || !file.open(opened, QIODevice::ReadOnly, QFileDevice::AutoCloseHandle) ||
        file.isSequential() || file.size() > longestFile)
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
    QByteArray png;
    QBuffer buffer(&png);
    buffer.open(QIODevice::WriteOnly);
    const int into = folder();
    if (into < 0 || !image.save(&buffer, "PNG") || !writeWhole(into, fileNameOf(key), png))
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

/// Also removes what a program that was killed was writing.
void ThumbnailCache::makeRoom() {
    struct Stored {
        QByteArray name;
        qint64 bytes;
        std::int64_t written; // ns
    };
    std::vector<Stored> stored;
    const int folder = folder_->descriptor();
    const FolderEntries entries = entriesOf(folder);
    while (const dirent* entry = entries ? ::readdir(entries.get()) : nullptr) {
        const QByteArray name(entry->d_name);
        struct stat facts {};
        if (name == "." || name == ".." ||
            ::fstatat(folder, name.constData(), &facts, AT_SYMLINK_NOFOLLOW) != 0)
            continue;
        constexpr std::int64_t perSecond = 1'000'000'000;
        if (name.endsWith(".png") && S_ISREG(facts.st_mode))
            stored.push_back(
                {name, facts.st_size, facts.st_mtim.tv_sec * perSecond + facts.st_mtim.tv_nsec});
        else if (isLeftAlone(facts))
            (void)removeTreeAt(folder, name);
    }
    std::ranges::sort(stored, std::greater(), &Stored::written);
    qint64 bytes = 0;
    for (const Stored& file : stored) {
        bytes += file.bytes;
        if (bytes > maxBytes_)
            (void)::unlinkat(folder, file.name.constData(), 0);
    }
}

} // namespace tessary
