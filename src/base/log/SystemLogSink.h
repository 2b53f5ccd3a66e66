#pragma once

#include "base/log/DiagnosticsLogger.h"

namespace tessary {

/// The journal when one runs, else standard error.
[[nodiscard]] LogSink makeSystemLogSink();

/// A sink that writes "<subsystem> <category> <level>: <message>" lines to standard error, from
/// `minimum` on.
[[nodiscard]] LogSink makeStandardErrorSink(LogLevel minimum);

} // namespace tessary
