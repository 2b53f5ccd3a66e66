#pragma once

#include <QString>

namespace tessary {

/// Removes the folders in `folder` that were not changed for a day: copies for other programs that
/// an earlier run could not remove itself. Blocking; never fails.
void removeOldCopies(const QString& folder);

} // namespace tessary
