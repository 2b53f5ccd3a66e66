#pragma once

#include "base/local/FileHandle.h"
#include "base/values/Bytes.h"
#include "simulator/adbd/ADBDCommands.h"

#include <cstdint>
#include <limits>
#include <optional>
#include <string>
#include <vector>

namespace tessary {

/// The command of a virtual phone that moves the content of files, as the host sends or takes it:
/// `dd of=FILE bs=BYTES seek=BLOCKS conv=notrunc` and `dd if=FILE bs=BYTES skip=BLOCKS
/// [count=BLOCKS]`. What it has written stays when it is ended.
class ADBDBlocks {
public:
    /// No value for any other command.
    [[nodiscard]] static std::optional<ADBDBlocks> of(ADBDState& state,
                                                      const std::vector<std::string>& words);

    /// Whether it prints a file; else it writes what the host sends into one.
    [[nodiscard]] bool isPrinting() const {
        return isPrinting_;
    }
    void take(ByteView bytes);
    /// The next bytes of the file, at most `most`; empty at the end.
    [[nodiscard]] std::string next(std::size_t most);
    /// Whether it has ended by itself, before its input has.
    [[nodiscard]] bool hasFailed() const {
        return result_.status != 0;
    }
    /// What it came to, but for what it printed, once it has ended.
    [[nodiscard]] const ADBDShellResult& result() const {
        return result_;
    }

private:
    ADBDBlocks(ADBDState& state, bool isPrinting) : state_(&state), isPrinting_(isPrinting) {}
    void fail(int error);
    void slowDown(std::size_t bytes) const;

    ADBDState* state_;
    bool isPrinting_;
    std::string path_;
    FileHandle file_;
    std::uint64_t at_ = 0;
    std::uint64_t left_ = std::numeric_limits<std::uint64_t>::max(); ///< to be printed
    ADBDShellResult result_{{}, "0+0 records in\n0+0 records out\n", 0};
};

} // namespace tessary
