#pragma once

#include "platform/sandbox/Sandbox.h"

namespace tessary {

/// From now on this thread and those that it starts open files below `rules.readable` only, for
/// reading, and, where the kernel knows how, neither connect nor signal out of the sandbox. False
/// where the kernel has no such wall; std::system_error when it has one that cannot be built. The
/// process must have given up new privileges before.
[[nodiscard]] bool buildFileWall(const SandboxRules& rules);

} // namespace tessary
