#pragma once

#include <QString>

namespace tessary::words {

// What several views say alike, in the language of the interface. For the main thread.

/// An iPhone's apps: their page, and the way to it.
[[nodiscard]] QString apps();
/// The command that shows a phone, or a folder of it, outside of the window.
[[nodiscard]] QString openInFileManager();
/// What a folder is asked for, or named.
[[nodiscard]] QString folderOnThisComputer();

} // namespace tessary::words
