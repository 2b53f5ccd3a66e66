#include "simulator/adbd/ADBDInput.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <string_view>
#include <thread>

namespace tessary {

namespace {

/// The value of "NAME=value".
std::optional<std::string> operand(const std::string& word, std::string_view name) {
    if (!word.starts_with(name))
        return std::nullopt;
    return word.substr(name.size());
}

} // namespace

std::optional<ADBDInput> ADBDInput::of(ADBDState& state, const std::vector<std::string>& words) {
    if (words.size() != 5 || words[0] != "dd" || words[4] != "conv=notrunc" ||
        state.config.missingCommands.contains("dd"))
        return std::nullopt;
    const auto path = operand(words[1], "of=");
    const auto block = operand(words[2], "bs=");
    const auto seek = operand(words[3], "seek=");
    if (!path || !block || !seek)
        return std::nullopt;
    ADBDInput input(state);
    input.path_ = *path;
    input.at_ =
        std::strtoull(block->c_str(), nullptr, 10) * std::strtoull(seek->c_str(), nullptr, 10);
    const auto local = ADBDFiles(state.config).resolve(*path);
    if (state.hooks->isReadOnly() || !local) {
        input.fail(EROFS);
        return input;
    }
    input.file_ = FileHandle(::open(local->c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, 0644));
    if (!input.file_.isOpen())
        input.fail(errno);
    return input;
}

void ADBDInput::take(ByteView bytes) {
    if (const double speed = state_->hooks->megabytesPerSecond(); speed > 0)
        std::this_thread::sleep_for(
            std::chrono::duration<double>(static_cast<double>(bytes.size()) / (speed * 1e6)));
    while (!bytes.empty() && !hasFailed()) {
        const std::size_t room = state_->hooks->roomFor(at_, bytes.size());
        const ssize_t count = ::pwrite(file_.get(), bytes.data(), room, static_cast<off_t>(at_));
        if (count <= 0)
            return fail(count < 0 ? errno : ENOSPC);
        at_ += static_cast<std::uint64_t>(count);
        bytes = bytes.subspan(static_cast<std::size_t>(count));
    }
}

void ADBDInput::fail(int error) {
    // NOLINTNEXTLINE(concurrency-mt-unsafe): glibc's is safe for known codes
    result_.errors = "dd: " + path_ + ": " + std::strerror(error) + '\n' + result_.errors;
    result_.status = 1;
    file_.close();
}

} // namespace tessary
