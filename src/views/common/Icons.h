#pragma once

#include <QIcon>
#include <QString>

namespace tessary {

/// The icon of a symbol name that records carry ("folder.fill", "smartphone"), or of an icon theme
/// name ("go-up"), from the desktop's icon theme.
[[nodiscard]] QIcon icon(const QString& name);
[[nodiscard]] QIcon icon(const char* name);

/// This program's own.
[[nodiscard]] QIcon programIcon();
/// A theme's icon as an outline at every size and scale: themes draw large ones in colour.
[[nodiscard]] QIcon lineIcon(const QString& name);

/// The icon of a file's symbol name, in colour at every size: themes draw small ones as outlines.
[[nodiscard]] QIcon fileIcon(const QString& symbol);

/// Sets the icons that stand in where the desktop's theme has none, to suit a light or dark
/// palette. Once at start and when the palette changes.
void setUpIconTheme();

} // namespace tessary
