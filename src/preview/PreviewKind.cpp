#include "preview/PreviewKind.h"

#include <array>

namespace tessary {

namespace {

using View = QLatin1StringView;

struct Row {
    PreviewKind kind;
    View extensions; ///< separated by blanks, and between blanks
};

constexpr std::array rows{
    Row{PreviewKind::picture, View(" jpg jpeg jpe png webp gif bmp heic heif ")},
    Row{PreviewKind::document, View(" pdf ")},
    Row{PreviewKind::film, View(" mp4 mov m4v 3gp 3g2 mkv webm ")},
    Row{PreviewKind::text,
        View(" txt text md markdown log csv tsv json xml html htm css js ts swift kt java py c cpp "
             "cc h hpp sh ini conf cfg yaml yml toml properties srt vtt vcf ics sql tex gpx rtf ")},
};

} // namespace

PreviewKind previewKindOf(const FileItem& item) {
    const QString extension = item.fileExtension();
    if (item.isDirectory || extension.isEmpty() || extension.contains(QLatin1Char(' ')))
        return PreviewKind::facts;
    for (const Row& row : rows)
        if (row.extensions.contains(QLatin1Char(' ') + extension + QLatin1Char(' ')))
            return row.kind;
    return PreviewKind::facts;
}

qint64 previewLimit(PreviewKind kind) {
    switch (kind) {
    case PreviewKind::picture:
    case PreviewKind::document:
        return 300'000'000;
    case PreviewKind::text:
        return 50'000'000;
    case PreviewKind::film:
    case PreviewKind::facts:
        break;
    }
    return 0;
}

bool hasThumbnail(const FileItem& item) {
    const PreviewKind kind = previewKindOf(item);
    if (kind == PreviewKind::film)
        return item.size > 0;
    return (kind == PreviewKind::picture || kind == PreviewKind::document) && item.size > 0 &&
           item.size <= thumbnailLimit;
}

} // namespace tessary
