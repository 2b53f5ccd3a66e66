#pragma once

#include "phone/records/FileItem.h"

namespace tessary {

/// How a file can be shown before it is copied.
enum class PreviewKind {
    facts, ///< by its icon, name, size and date alone
    picture,
    document, ///< page by page
    text,
    film, ///< by its first picture
};

/// By the file's extension; `facts` for folders. Pure.
[[nodiscard]] PreviewKind previewKindOf(const FileItem& item);

/// The largest file that is fetched whole for a preview, in bytes; 0 where none is.
[[nodiscard]] qint64 previewLimit(PreviewKind kind);

/// Files above this many bytes get no thumbnail, unless a part of them is enough: fetching them
/// would take the phone for too long.
inline constexpr qint64 thumbnailLimit = 12'000'000;

/// Whether a file gets a thumbnail.
[[nodiscard]] bool hasThumbnail(const FileItem& item);

} // namespace tessary
