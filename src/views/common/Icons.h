#pragma once

#include <QIcon>
#include <QString>

namespace tessary {

/// An icon by its name in icon themes ("go-up", "folder"), the desktop's or the one that stands in.
[[nodiscard]] QIcon icon(const QString& name);
[[nodiscard]] QIcon icon(const char* name);

/// A theme's icon as an outline at every size and scale: themes draw large ones in colour.
[[nodiscard]] QIcon lineIcon(const QString& name);

/// The icon of a file, in colour at every size: themes draw small ones as outlines.
[[nodiscard]] QIcon fileIcon(const QString& name);

/// Sets the icons that stand in where the desktop's theme has none, to suit a light or dark
/// palette. Once at start and when the palette changes.
void setUpIconTheme();

} // namespace tessary
