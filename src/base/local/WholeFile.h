#pragma once

#include <QByteArray>
#include <QString>

namespace tessary {

/// Writes a file that is there whole or not at all, and on the disk by then, as far as the disk
/// says, its name too: until it is, the old one of the name stays. Made for this user alone; an old
/// one's permissions are kept. Through a link to what it names. Error(LocalError::cannotWrite).
/// Blocking; thread-safe.
void writeWholeFile(const QString& path, const QByteArray& content);

} // namespace tessary
