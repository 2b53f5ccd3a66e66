#include "phone/records/FileCategory.h"

#include <QHash>
#include <QStringList>

#include <array>

namespace tessary {

namespace {

using View = QLatin1StringView;

struct CategoryRow {
    FileCategory category;
    View rawValue;
    View iconName;
    View extensions; ///< separated by blanks
};

constexpr std::array<CategoryRow, 9> categoryTable{{
    {FileCategory::folder, View("Folder"), View("folder"), View("")},
    {FileCategory::image, View("Image"), View("image-x-generic"),
     View("jpg jpeg jpe png gif heic heif hif webp avif jxl tif tiff bmp")},
    {FileCategory::video, View("Video"), View("video-x-generic"),
     View("mp4 mov m4v 3gp 3g2 mkv webm avi mpg mpeg mts m2ts insv flv")},
    {FileCategory::audio, View("Audio"), View("audio-x-generic"),
     View("mp3 aac wav m4a flac ogg opus")},
    {FileCategory::document, View("Document"), View("x-office-document"),
     View("pdf doc docx txt rtf md xls xlsx ppt pptx log")},
    {FileCategory::archive, View("Archive"), View("package-x-generic"),
     View("zip tar gz 7z rar bz2 xz")},
    {FileCategory::apk, View("APK Package"), View("application-vnd.android.package-archive"),
     View("apk xapk apks")},
    {FileCategory::code, View("Source Code"), View("text-x-script"),
     View("swift kt java py c cpp h js ts json xml html css")},
    {FileCategory::other, View("File"), View("text-x-generic"), View("")},
}};

/// What cameras saw, before anybody made a picture of it: images too.
constexpr View rawPictures("dng raw cr2 cr3 nef arw orf rw2 raf pef srw gpr");

QStringList words(View row) {
    return QString(row).split(QLatin1Char(' '), Qt::SkipEmptyParts);
}

const CategoryRow& row(FileCategory category) {
    return categoryTable[static_cast<std::size_t>(category)];
}

QHash<QString, FileCategory> extensionIndex() {
    QHash<QString, FileCategory> index;
    for (const CategoryRow& entry : categoryTable)
        for (const QString& extension : words(entry.extensions))
            index.insert(extension, entry.category);
    for (const QString& extension : words(rawPictures))
        index.insert(extension, FileCategory::image);
    return index;
}

} // namespace

QString rawValue(FileCategory category) {
    return row(category).rawValue;
}

QString iconName(FileCategory category) {
    return row(category).iconName;
}

FileCategory fileCategoryForExtension(QStringView extension) {
    static const QHash<QString, FileCategory> index = extensionIndex();
    return index.value(extension.toString(), FileCategory::other);
}

bool isRawPicture(QStringView extension) {
    static const QStringList extensions = words(rawPictures);
    return extensions.contains(extension);
}

} // namespace tessary
