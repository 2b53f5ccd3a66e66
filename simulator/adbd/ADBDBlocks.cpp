#include "simulator/adbd/ADBDBlocks.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <cstdlib>
#include <cstring>
#include <string_view>
#include <thread>

namespace tessary {

namespace {

/// The value of an operand: of "if=FILE" for the name "if=".
std::optional<std::string> operand(const std::string& word, std::string_view name) {
    if (!word.starts_with(name))
        return std::nullopt;
    return word.substr(name.size());
}

std::optional<std::uint64_t> number(const std::string& word, std::string_view name) {
    const auto value = operand(word, name);
    if (!value || value->empty() || value->find_first_not_of("0123456789") != std::string::npos)
        return std::nullopt;
    return std::strtoull(value->c_str(), nullptr, 10);
}

} // namespace

std::optional<ADBDBlocks> ADBDBlocks::of(ADBDState& state, const std::vector<std::string>& words) {
    if (words.size() < 4 || words.size() > 5 || words[0] != "dd" ||
        state.config.missingCommands.contains("dd"))
        return std::nullopt;
    const bool isPrinting = words[1].starts_with("if=");
    const auto path = operand(words[1], isPrinting ? "if=" : "of=");
    const auto block = number(words[2], "bs=");
    const auto begin = number(words[3], isPrinting ? "skip=" : "seek=");
    if (!path || !block || !begin)
        return std::nullopt;
    ADBDBlocks blocks(state, isPrinting);
    blocks.path_ = *path;
    blocks.at_ = *block * *begin;
    const auto count = words.size() > 4 ? number(words[4], "count=") : std::nullopt;
    if (isPrinting ? words.size() > 4 && !count : words.back() != "conv=notrunc")
        return std::nullopt;
    if (count)
        blocks.left_ = *block * *count;
    const auto local = ADBDFiles(state.config).resolve(*path);
    if (!local || (!isPrinting && state.hooks->isReadOnly())) {
        blocks.fail(isPrinting ? ENOENT : EROFS);
        return blocks;
    }
    blocks.file_ = FileHandle(
        ::open(local->c_str(), (isPrinting ? O_RDONLY : O_WRONLY | O_CREAT) | O_CLOEXEC, 0644));
    struct stat facts {};
    if (!blocks.file_.isOpen())
        blocks.fail(errno);
    else if (::fstat(blocks.file_.get(), &facts) != 0 || S_ISDIR(facts.st_mode))
        blocks.fail(EISDIR);
    return blocks;
}

void ADBDBlocks::take(ByteView bytes) {
    slowDown(bytes.size());
    while (!bytes.empty() && !hasFailed()) {
        const std::size_t room = state_->hooks->roomFor(at_, bytes.size());
        const ssize_t count = ::pwrite(file_.get(), bytes.data(), room, static_cast<off_t>(at_));
        if (count <= 0)
            return fail(count < 0 ? errno : ENOSPC);
        at_ += static_cast<std::uint64_t>(count);
        bytes = bytes.subspan(static_cast<std::size_t>(count));
    }
}

std::string ADBDBlocks::next(std::size_t most) {
    if (hasFailed())
        return {};
    std::string bytes(static_cast<std::size_t>(std::min<std::uint64_t>(most, left_)), '\0');
    const ssize_t count = ::pread(file_.get(), bytes.data(), bytes.size(), static_cast<off_t>(at_));
    if (count < 0)
        fail(errno);
    bytes.resize(static_cast<std::size_t>(std::max<ssize_t>(count, 0)));
    at_ += bytes.size();
    left_ -= bytes.size();
    slowDown(bytes.size());
    return bytes;
}

void ADBDBlocks::fail(int error) {
    // NOLINTNEXTLINE(concurrency-mt-unsafe): glibc's is safe for known codes
    result_.errors = "dd: " + path_ + ": " + std::strerror(error) + '\n' + result_.errors;
    result_.status = 1;
    file_.close();
}

void ADBDBlocks::slowDown(std::size_t bytes) const {
    if (const double speed = state_->hooks->megabytesPerSecond(); speed > 0)
        std::this_thread::sleep_for(
            std::chrono::duration<double>(static_cast<double>(bytes) / (speed * 1e6)));
}

} // namespace tessary
