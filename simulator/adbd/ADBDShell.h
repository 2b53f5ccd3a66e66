#pragma once

#include "simulator/adbd/ADBDBlocks.h"
#include "simulator/adbd/ADBDCommands.h"
#include "simulator/adbd/ADBDService.h"
#include "simulator/adbd/VirtualADBD.h"

#include <optional>
#include <string>
#include <vector>

namespace tessary {

/// The simple commands of a line, each a list of words, with whether a command runs only after the
/// one before it went well. No value for a line that a shell would take for anything more than
/// plain words, "&&" and ";": every special character has to be quoted.
struct ADBDShellCommand {
    std::vector<std::string> words;
    bool onlyAfterSuccess = false;
    bool mixesErrors = false; ///< "2>&1" stands behind it
};
[[nodiscard]] std::optional<std::vector<ADBDShellCommand>>
parseADBDCommandLine(const std::string& line);

/// Runs a command line on a virtual phone, by runADBDCommand(). A line that is not understood whole
/// is refused and the hooks told. `mixesAll`: in the output, in their order.
[[nodiscard]] ADBDShellResult runADBDCommandLine(ADBDState& state, const std::string& line,
                                                 bool mixesAll);

/// The shell service: a command line whose output goes to the host, in version 2 as packets (u8
/// kind, u32 length, bytes) with the exit status at the end. Without a line, version 2 runs those
/// that the host sends; ADBDBlocks works as it sends or takes.
class ADBDShell : public ADBDService {
public:
    ADBDShell(ADBDState& state, const std::string& line, bool isVersion2);

    void receive(ByteView bytes) override;
    [[nodiscard]] Bytes produce(std::size_t most) override;
    [[nodiscard]] bool isOver() const override;

private:
    [[nodiscard]] int runLine(const std::string& line);
    void appendResult(const ADBDShellResult& result);
    void takeInput(std::byte kind, ByteView content);
    void endBlocks();
    [[nodiscard]] bool isPrinting() const {
        return blocks_ && blocks_->isPrinting() && !isOver_;
    }
    void appendStatus(int status);

    ADBDState& state_;
    const bool isVersion2_;
    const bool isInteractive_;         ///< lines come from the host
    std::optional<ADBDBlocks> blocks_; ///< the command that moves content
    Bytes in_;                         ///< a packet that is not complete
    std::string line_;                 ///< one that is not
    int lastStatus_ = 0;
    bool isOver_ = false;
    Bytes output_;
    std::size_t sent_ = 0;
};

} // namespace tessary
