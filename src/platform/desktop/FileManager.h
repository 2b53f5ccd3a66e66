#pragma once

#include <QString>

#include <functional>

namespace tessary {

/// Has the desktop's file manager show a local file in its folder, selected. `otherwise` is called
/// on this thread, maybe later, when none answers. Main thread; returns at once.
void showInFileManager(const QString& path, std::function<void()> otherwise);
/// The same for a folder: what is in it is shown.
void showFolderInFileManager(const QString& path, std::function<void()> otherwise);

} // namespace tessary
