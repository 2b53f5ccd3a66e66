#include "preview/PhoneThumbnail.h"

#include "preview/PreviewKind.h"

#include <QtEndian>

#include <algorithm>

namespace tessary {

namespace {

constexpr qint64 largestThumbnail = 2'000'000; // bytes
constexpr int upright = 1;
constexpr quint16 orientationTag = 0x0112;
const QByteArray startOfImage("\xFF\xD8", 2);
const QByteArray exifName("Exif\0\0", 6);

/// The numbers of an Exif block, whose first bytes tell their order. Reads 0 beyond its end.
class ExifNumbers {
public:
    explicit ExifNumbers(const QByteArray& block)
        : block_(block), isLittle_(block.startsWith("II")) {}

    [[nodiscard]] quint16 u16(qint64 at) const {
        return number<quint16>(at);
    }
    [[nodiscard]] quint32 u32(qint64 at) const {
        return number<quint32>(at);
    }

private:
    template <typename T>
    [[nodiscard]] T number(qint64 at) const {
        if (at < 0 || at > block_.size() - static_cast<qint64>(sizeof(T)))
            return 0;
        const char* bytes = block_.constData() + at;
        return isLittle_ ? qFromLittleEndian<T>(bytes) : qFromBigEndian<T>(bytes);
    }

    const QByteArray block_;
    const bool isLittle_;
};

int orientationInExif(const QByteArray& block) {
    constexpr qint64 entrySize = 12;
    constexpr int largest = 8;
    const ExifNumbers exif(block);
    const qint64 folder = exif.u32(4);
    const int entries = exif.u16(folder);
    for (int n = 0; n < entries; ++n) {
        const qint64 entry = folder + 2 + n * entrySize;
        if (entry > block.size())
            break;
        if (exif.u16(entry) != orientationTag)
            continue;
        const int value = exif.u16(entry + 8);
        return value >= upright && value <= largest ? value : upright;
    }
    return upright;
}

} // namespace

bool mayHavePhoneThumbnail(const FileItem& item) {
    const PreviewKind kind = previewKindOf(item);
    const bool isOtherFilm = !item.isDirectory && item.fileExtension() == QLatin1StringView("avi");
    return item.size > 0 &&
           (kind == PreviewKind::picture || kind == PreviewKind::film || isOtherFilm);
}

int orientationOf(const QByteArray& beginningOfJPEG) {
    constexpr qint64 headerSize = 4; // 0xFF, what it is, and its length with these two bytes
    const QByteArray& bytes = beginningOfJPEG;
    if (!bytes.startsWith(startOfImage))
        return upright;
    for (qint64 at = startOfImage.size(); at + headerSize <= bytes.size();) {
        constexpr char exifSegment = '\xE1';
        const qint64 length = qFromBigEndian<quint16>(bytes.constData() + at + 2);
        if (bytes[at] != '\xFF' || length < 2)
            break;
        const QByteArray content = bytes.mid(at + headerSize, length - 2);
        if (bytes[at + 1] == exifSegment && content.startsWith(exifName))
            return orientationInExif(content.mid(exifName.size()));
        at += 2 + length;
    }
    return upright;
}

QByteArray withOrientation(const QByteArray& jpeg, int orientation) {
    if (orientation == upright || !jpeg.startsWith(startOfImage))
        return jpeg;
    // One folder with one entry: the tag, a 16-bit number, one of it.
    QByteArray segment("\xFF\xE1\x00\x22"
                       "Exif\0\0"
                       "MM\0\x2A\0\0\0\x08"
                       "\0\x01"
                       "\x01\x12\0\x03\0\0\0\x01\0\0\0\0"
                       "\0\0\0\0",
                       36);
    constexpr qsizetype valueAt = 29;
    segment[valueAt] = static_cast<char>(orientation);
    return startOfImage + segment + jpeg.mid(startOfImage.size());
}

std::optional<QByteArray> phoneThumbnail(PhoneFileSystem& files, const FileItem& item,
                                         const Call& call) {
    constexpr qint64 exifIsWithin = 8192; // bytes; its picture follows the folders
    const FileSystemCapabilities can = files.capabilities(call);
    if (!can.hasThumbnails || !mayHavePhoneThumbnail(item))
        return std::nullopt;
    auto picture = files.thumbnail(item, largestThumbnail, call);
    const bool isJPEG = picture && picture->startsWith(startOfImage) &&
                        item.fileExtension().startsWith(QLatin1StringView("jp"));
    if (!isJPEG || !can.readsRanges)
        return picture;
    QByteArray beginning;
    files.read(
        item, {0, std::min(exifIsWithin, item.size)},
        [&beginning](ByteView bytes) {
            beginning.append(reinterpret_cast<const char*>(bytes.data()),
                             static_cast<qsizetype>(bytes.size()));
        },
        call);
    return withOrientation(*picture, orientationOf(beginning));
}

} // namespace tessary
