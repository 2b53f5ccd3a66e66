#pragma once

#include "transfer/copy/CopyTypes.h"

#include <QString>

#include <vector>

namespace tessary {

/// "2 of 200 items were not copied: a.txt (it is a link; links are not followed), b.txt (…)": what
/// a copy left out, the first few by name, in the language of the interface. Empty without any.
/// For the main thread.
[[nodiscard]] QString leftOutText(const std::vector<LeftOut>& leftOut, qint64 copiedFiles);

} // namespace tessary
