#pragma once

#include "simulator/adbd/ADBDFiles.h"
#include "simulator/adbd/VirtualADBD.h"

#include <optional>
#include <string>
#include <vector>

namespace tessary {

/// What one command of a shell came to.
struct ADBDShellResult {
    std::string output;
    std::string errors;
    int status = 0;
};

/// Runs one command of a virtual phone, by its words: ls, stat, mkdir, rm, rmdir, mv, find,
/// sha256sum, touch, sm, dumpsys battery, getprop and echo, each exactly in the forms that are
/// asked of real phones. No value for any other. Starts no program. See ADBDBlocks, too.
[[nodiscard]] std::optional<ADBDShellResult> runADBDCommand(ADBDState& state,
                                                            const std::vector<std::string>& words);

} // namespace tessary
