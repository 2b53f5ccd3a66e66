#pragma once

#include <QDateTime>

#include <optional>

namespace tessary {

/// What a device tells of one path.
struct AFCFileInfo {
    bool isDirectory = false;
    bool isLink = false;
    bool isFile = false; ///< none of the three: it is something else, or the device does not tell
    std::optional<qint64> size; ///< bytes; no value when it is missing or no number
    std::optional<QDateTime> modifiedDate;

    bool operator==(const AFCFileInfo&) const = default;
};

/// Reads a file information answer: texts that are keys and values by turns, with a null pointer
/// at the end. "st_ifmt" is "S_IFDIR" for a folder, "S_IFREG" for a file, "S_IFLNK" for a link,
/// "st_size" a decimal number of bytes, "st_mtime" one of nanoseconds since 1970; other keys are
/// ignored, of a doubled one the last counts, and one without a value counts as missing. Pure.
[[nodiscard]] AFCFileInfo parseFileInfo(const char* const* texts);

} // namespace tessary
