#pragma once

#include <QString>

namespace tessary {

/// A path as a person or Android writes it, as a storage-relative one that begins with "/": blanks
/// around it are dropped, "", "/sdcard" and "/storage/emulated/0" are "/", and those two prefixes
/// are taken off. The result may end in "/".
[[nodiscard]] QString normalizePath(const QString& path);

/// The same without dropping blanks: names on a phone may begin and end with them.
[[nodiscard]] QString storageRelativePath(const QString& path);

/// `folder` and `name` with exactly one "/" between them.
[[nodiscard]] QString joinPath(const QString& folder, const QString& name);

/// Everything before the last component, "/" for what lies at the root.
[[nodiscard]] QString parentPath(const QString& path);

/// The last component; empty for the root.
[[nodiscard]] QString lastComponent(const QString& path);

/// Whether a name from a device may become one component of a local path: not empty, not "." or
/// "..", and without "/" and NUL.
[[nodiscard]] bool isSafeName(const QString& name);

} // namespace tessary
