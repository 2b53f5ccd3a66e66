#include "transfer/import/Photo.h"

#include "base/text/ByteCount.h"
#include "base/text/PathNames.h"

#include <QRegularExpression>

#include <algorithm>
#include <array>

namespace tessary {

namespace {

/// What the files of one photo have in common in their names.
QString stemOf(const QString& name) {
    const qsizetype dot = name.lastIndexOf(u'.');
    QString stem = name.left(dot > 0 ? dot : name.size()).toLower();
    // IMG_E0001 is the edited IMG_0001, and IMG_O0001 says how it was edited.
    static const QRegularExpression edited(QStringLiteral("^img_[eo](\\d{4,})$"));
    if (const auto match = edited.match(stem); match.hasMatch())
        return QStringLiteral("img_") + match.captured(1);
    // PXL_20260101_120000000.RAW-01.COVER.jpg stands beside ….RAW-02.ORIGINAL.dng.
    if (stem.startsWith(QStringLiteral("pxl_")))
        stem = stem.section(u'.', 0, 0);
    return stem;
}

bool isEdited(const QString& name) {
    return name.startsWith(QStringLiteral("IMG_E"), Qt::CaseInsensitive);
}

/// The one to show first: what the owner made of it, before what it was made of.
int rankOf(const FileItem& item) {
    const int kind = static_cast<int>(mediaKindOf(item.name).value_or(MediaKind::companion));
    return 2 * kind + (isEdited(item.name) ? 0 : 1);
}

} // namespace

std::optional<MediaKind> mediaKindOf(const QString& name) {
    const qsizetype dot = name.lastIndexOf(u'.');
    const QString extension = dot < 0 ? QString() : name.mid(dot + 1).toLower();
    if (isRawPicture(extension))
        return MediaKind::raw;
    const FileCategory category = fileCategoryForExtension(extension);
    if (category == FileCategory::image)
        return MediaKind::picture;
    if (category == FileCategory::video)
        return MediaKind::video;
    constexpr std::array companions{"aae", "xmp", "thm", "srt"};
    const bool isCompanion = std::ranges::any_of(
        companions, [&](const char* one) { return extension == QLatin1StringView(one); });
    return isCompanion ? std::optional(MediaKind::companion) : std::nullopt;
}

std::optional<QDateTime> Photo::taken() const {
    std::optional<QDateTime> first;
    for (const FileItem& file : files)
        if (file.modifiedDate && (!first || *file.modifiedDate < *first))
            first = file.modifiedDate;
    return first;
}

std::optional<QDate> Photo::day() const {
    const auto date = taken();
    return date ? std::optional(date->toLocalTime().date()) : std::nullopt;
}

qint64 Photo::bytes() const {
    qint64 sum = 0;
    for (const FileItem& file : files)
        sum = addByteCounts(sum, std::max<qint64>(file.size, 0));
    return sum;
}

bool Photo::isVideo() const {
    return mediaKindOf(files.front().name) == MediaKind::video;
}

std::vector<Photo> photosOf(const std::vector<FileItem>& files) {
    QHash<QString, std::size_t> places; ///< by folder and stem
    std::vector<Photo> photos;
    for (const FileItem& file : files) {
        if (file.isDirectory || !mediaKindOf(file.name))
            continue;
        const QString key = joinPath(parentPath(file.path), stemOf(file.name));
        const auto known = places.constFind(key);
        if (known == places.constEnd()) {
            places.insert(key, photos.size());
            photos.push_back({{file}});
        } else {
            photos[*known].files.push_back(file);
        }
    }
    for (Photo& photo : photos)
        std::stable_sort(photo.files.begin(), photo.files.end(),
                         [](const FileItem& a, const FileItem& b) {
                             return std::pair(rankOf(a), a.name) < std::pair(rankOf(b), b.name);
                         });
    std::erase_if(photos, [](const Photo& photo) {
        return mediaKindOf(photo.files.front().name) == MediaKind::companion;
    });
    std::stable_sort(photos.begin(), photos.end(), [](const Photo& a, const Photo& b) {
        const auto one = a.taken();
        const auto other = b.taken();
        if (one != other)
            return one && (!other || *one > *other);
        return a.id() < b.id();
    });
    return photos;
}

} // namespace tessary
