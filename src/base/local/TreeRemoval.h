#pragma once

#include <QByteArray>

namespace tessary {

/// Removes the entry `name` of an open folder and, when it is a folder, all that is below it,
/// whatever the names are. Works on descriptors from folder to folder: nothing that is swapped for
/// a link on the way leads elsewhere. Other file systems that are mounted below are left alone. 0
/// when nothing of it is left, otherwise the first `errno`; the rest is removed all the same.
[[nodiscard]] int removeTreeAt(int folder, const QByteArray& name);

} // namespace tessary
