#pragma once

#include "base/local/FileHandle.h"

#include <QByteArray>
#include <QString>

#include <stop_token>

namespace tessary {

/// Removes an entry of an open folder and all below it, whatever the names are and never through a
/// link: one descriptor after the other, so that no folder that is swapped for a link on the way
/// leads elsewhere. `path` is what errors name. Up to the first failure: LocalError::cannotDelete
/// and what localFailure() makes of it, PhoneError::insideItself for a tree without end.
void removeLocalTree(const FileHandle& folder, const QByteArray& name, const QString& path,
                     const std::stop_token& stop);

} // namespace tessary
