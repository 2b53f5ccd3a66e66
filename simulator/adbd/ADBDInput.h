#pragma once

#include "base/local/FileHandle.h"
#include "base/values/Bytes.h"
#include "simulator/adbd/ADBDCommands.h"

#include <optional>
#include <string>
#include <vector>

namespace tessary {

/// The one command of a virtual phone that reads what the host sends it:
/// `dd of=FILE bs=BYTES seek=BLOCKS conv=notrunc`. What it has taken stays when it is ended.
class ADBDInput {
public:
    /// No value for any other command.
    [[nodiscard]] static std::optional<ADBDInput> of(ADBDState& state,
                                                     const std::vector<std::string>& words);

    void take(ByteView bytes);
    /// Whether it has ended by itself, before its input has.
    [[nodiscard]] bool hasFailed() const {
        return result_.status != 0;
    }
    /// What it came to, once its input has ended or it has failed.
    [[nodiscard]] const ADBDShellResult& result() const {
        return result_;
    }

private:
    explicit ADBDInput(ADBDState& state) : state_(&state) {}
    void fail(int error);

    ADBDState* state_;
    std::string path_;
    FileHandle file_;
    std::uint64_t at_ = 0;
    ADBDShellResult result_{{}, "0+0 records in\n0+0 records out\n", 0};
};

} // namespace tessary
