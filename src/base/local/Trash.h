#pragma once

#include <QString>

namespace tessary {

/// Puts a file or folder into the desktop's trash. False, and it stays where it is, when there is
/// no trash and none can be made. Thread-safe.
[[nodiscard]] bool moveToTrash(const QString& path);

} // namespace tessary
