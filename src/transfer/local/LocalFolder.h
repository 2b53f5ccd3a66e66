#pragma once

#include "base/local/FileHandle.h"
#include "base/local/LocalError.h"

#include <QByteArray>
#include <QString>

#include <optional>

namespace tessary {

/// What a failed system call means for a path: the error for `reason` (an errno), or `otherwise`
/// with the system's own text where there is no better one.
[[nodiscard]] Error localFailure(LocalError otherwise, const QString& path, int reason);

/// Makes a folder of any path and those above it, unless it is there. LocalError::notAFolder,
/// ::cannotMakeFolder and what else localFailure() says.
void makeFolders(const QString& path);

/// A name as this computer's file systems take it. LocalError::nameNotUsable for what can be no
/// single component of a path.
[[nodiscard]] QByteArray localName(const QString& name);

/// The name that bytes on the disk stand for; no value when they are not valid UTF-8.
[[nodiscard]] std::optional<QString> nameFromDisk(const QByteArray& bytes);

/// A folder below which no link is followed. Its own path is reached as the user wrote it, links
/// and all; what is below is reached one descriptor after the other, so that nobody who swaps a
/// folder for a link leads a call elsewhere. Thread-safe.
class LocalFolder {
public:
    explicit LocalFolder(const QString& path);

    [[nodiscard]] const QString& path() const {
        return path_;
    }
    /// A folder at or below this one; usable for paths only, not for reading. LocalError::link
    /// when a link is on the way, ::leavesFolder for a path that is elsewhere.
    [[nodiscard]] FileHandle open(const QString& folder) const;
    /// Whether what is open lies at or below this folder, whichever way it was opened.
    [[nodiscard]] bool contains(const FileHandle& file) const;

private:
    const QString path_; ///< absolute and clean
};

} // namespace tessary
