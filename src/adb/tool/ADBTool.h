#pragma once

#include <QString>
#include <QStringList>

#include <optional>

namespace tessary {

/// The adb executable of this machine: the first of these paths that is an executable file. Without
/// any, the usual places are looked at. Thread-safe and blocking.
[[nodiscard]] std::optional<QString> findADBTool(const std::optional<QStringList>& paths = {});

} // namespace tessary
