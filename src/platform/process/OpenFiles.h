#pragma once

#include <QByteArray>
#include <QStringList>

namespace tessary {

/// The other processes that have the file `path` open, as "name (N)" with the process's number, in
/// order of it. Of other users' processes only root sees the files.
[[nodiscard]] QStringList programsWithOpenFile(const QByteArray& path);

} // namespace tessary
