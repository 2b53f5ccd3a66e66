#pragma once

#include <QString>

#include <functional>

namespace tessary {

/// "a.txt", "a (2).txt": the first that `isTaken` does not hold for.
[[nodiscard]] QString freeCopyName(const QString& name, bool isFolder,
                                   const std::function<bool(const QString&)>& isTaken);

} // namespace tessary
