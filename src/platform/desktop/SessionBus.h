#pragma once

#include <QDBusConnection>

#include <optional>

namespace tessary {

/// The desktop's bus, joined with the first call; no value where none runs: looking for one starts
/// none.
[[nodiscard]] std::optional<QDBusConnection> sessionBus();

} // namespace tessary
