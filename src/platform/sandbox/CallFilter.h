#pragma once

#include "platform/sandbox/Sandbox.h"

namespace tessary {

/// From now on the kernel carries out for this process only the calls that computing and using
/// open descriptors take, opening streams when `rules` say so, and opening files for reading when
/// `opensFiles`; another call fails with EPERM. std::system_error when the kernel cannot do it.
void filterCalls(const SandboxRules& rules, bool opensFiles);

} // namespace tessary
