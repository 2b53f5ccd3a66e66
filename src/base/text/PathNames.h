#pragma once

#include <QString>
#include <QStringView>

namespace tessary {

// Paths with "/" between components, on a device or here. Pure.

/// `folder` and `name` with exactly one "/" between them.
[[nodiscard]] QString joinPath(const QString& folder, const QString& name);

/// Everything before the last component, "/" for what lies at the root.
[[nodiscard]] QString parentPath(const QString& path);

/// The last component; empty for the root.
[[nodiscard]] QString lastComponent(const QString& path);

/// Whether a path is that of a folder or of something in it, however deep. Nothing is in "".
[[nodiscard]] bool isAtOrBelow(QStringView path, QStringView folder);

/// Whether a name from a device may become one component of a local path: not empty, not "." or
/// "..", and without "/" and NUL.
[[nodiscard]] bool isSafeName(const QString& name);

/// Whether a name has more bytes than the file systems of this machine hold in one component.
[[nodiscard]] bool isTooLongName(const QString& name);

} // namespace tessary
