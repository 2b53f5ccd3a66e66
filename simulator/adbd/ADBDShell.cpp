#include "simulator/adbd/ADBDShell.h"

#include "base/values/LittleEndian.h"

#include <algorithm>
#include <string_view>

namespace tessary {

namespace {

using Words = std::vector<std::string>;

constexpr std::uint8_t standardOutput = 1; ///< a packet's kind
constexpr std::size_t largestPacket = 32768;

constexpr std::string_view special = "$`*?|<>()#~!{}[]\"\n\r&;";

/// Puts a command's errors among its output.
constexpr std::string_view mixesErrors = "2>&1";

/// Stands for "$?" in a word.
constexpr std::string_view statusMark = "\x01status\x01";

/// The word that begins at `at`, which is moved behind it; no value when it isn't a plain one.
std::optional<std::string> takeWord(const std::string& line, std::size_t& at) {
    std::string word;
    while (at < line.size() && line[at] != ' ' && line[at] != '\t' && line[at] != ';') {
        const char c = line[at];
        if (c == '\'') {
            const std::size_t end = line.find('\'', at + 1);
            if (end == std::string::npos)
                return std::nullopt;
            word += line.substr(at + 1, end - at - 1);
            at = end + 1;
        } else if (c == '\\' && at + 1 < line.size() && line[at + 1] != '\n') {
            word += line[at + 1];
            at += 2;
        } else if (line.compare(at, 2, "$?") == 0) {
            word += statusMark;
            at += 2;
        } else if (special.find(c) != std::string_view::npos || c == '\\') {
            return std::nullopt;
        } else {
            word += c;
            ++at;
        }
    }
    return word;
}

void appendPacket(Bytes& bytes, std::uint8_t kind, std::string_view content) {
    bytes.push_back(std::byte{kind});
    appendLittleEndian(bytes, static_cast<std::uint32_t>(content.size()));
    const auto* data = reinterpret_cast<const std::byte*>(content.data());
    bytes.insert(bytes.end(), data, data + content.size());
}

/// Where the first line ends, whose line breaks in quotes belong to it; npos while it has not.
std::size_t endOfLine(const std::string& text) {
    bool isQuoted = false;
    for (std::size_t at = 0; at < text.size(); ++at) {
        if (text[at] == '\'')
            isQuoted = !isQuoted;
        else if (text[at] == '\\' && !isQuoted)
            ++at;
        else if (text[at] == '\n' && !isQuoted)
            return at;
    }
    return std::string::npos;
}

} // namespace

std::optional<std::vector<ADBDShellCommand>> parseADBDCommandLine(const std::string& line) {
    std::vector<ADBDShellCommand> commands(1);
    for (std::size_t at = 0; at < line.size();) {
        if (line[at] == ' ' || line[at] == '\t') {
            ++at;
            continue;
        }
        const bool isAnd = line.compare(at, 3, "&& ") == 0;
        if (isAnd || line.compare(at, 2, "; ") == 0) {
            if (commands.back().words.empty())
                return std::nullopt;
            commands.push_back({{}, isAnd});
            at += 2;
            continue;
        }
        if (line.compare(at, mixesErrors.size(), mixesErrors) == 0) {
            commands.back().mixesErrors = true;
            at += mixesErrors.size();
            continue;
        }
        auto word = takeWord(line, at);
        if (!word)
            return std::nullopt;
        commands.back().words.push_back(*std::move(word));
    }
    if (commands.back().words.empty())
        return std::nullopt;
    return commands;
}

ADBDShellResult runADBDCommandLine(ADBDState& state, const std::string& line, bool mixesAll) {
    const auto refuse = [&] {
        state.hooks->lineRefused(QByteArray::fromStdString(line));
        return ADBDShellResult{{}, "/system/bin/sh: syntax error: unexpected\n", 2};
    };
    const auto commands = parseADBDCommandLine(line);
    if (!commands)
        return refuse();
    ADBDShellResult all;
    for (const ADBDShellCommand& command : *commands) {
        if (command.onlyAfterSuccess && all.status != 0)
            continue;
        Words words = command.words;
        if (const std::size_t at = words.back().find(statusMark); at != std::string::npos)
            words.back().replace(at, statusMark.size(), std::to_string(all.status));
        const auto one = runADBDCommand(state, words);
        if (!one)
            return refuse();
        all.output += one->output;
        (mixesAll || command.mixesErrors ? all.output : all.errors) += one->errors;
        all.status = one->status;
    }
    return all;
}

ADBDShell::ADBDShell(ADBDState& state, const std::string& line, bool isVersion2)
    : state_(state), isVersion2_(isVersion2), isInteractive_(line.empty()) {
    if (isInteractive_)
        return;
    const int status = runLine(line);
    if (isVersion2 && !blocks_)
        appendStatus(status);
}

/// Runs a line and keeps its output, or begins the command that reads.
int ADBDShell::runLine(const std::string& line) {
    const QByteArray command = QByteArray::fromStdString(line);
    state_.hooks->requestAsked(command);
    ADBDShellResult result;
    if (const auto rewritten = state_.hooks->rewrite(command)) {
        result.output = rewritten->toStdString();
    } else {
        const auto commands = parseADBDCommandLine(line);
        if (commands && commands->size() == 1 && isVersion2_ && !isInteractive_)
            blocks_ = ADBDBlocks::of(state_, commands->front().words);
        if (blocks_) {
            if (blocks_->hasFailed())
                endBlocks();
            return 0;
        }
        result = runADBDCommandLine(state_, line, !isVersion2_);
    }
    appendResult(result);
    return result.status;
}

void ADBDShell::appendResult(const ADBDShellResult& result) {
    if (!isVersion2_) {
        const std::string text = result.output + result.errors;
        const auto* data = reinterpret_cast<const std::byte*>(text.data());
        output_.insert(output_.end(), data, data + text.size());
        return;
    }
    constexpr std::uint8_t standardError = 2;
    for (std::size_t at = 0; at < result.output.size(); at += largestPacket)
        appendPacket(output_, standardOutput,
                     std::string_view(result.output).substr(at, largestPacket));
    if (!result.errors.empty())
        appendPacket(output_, standardError, result.errors);
}

void ADBDShell::appendStatus(int status) {
    constexpr std::uint8_t exitStatus = 3;
    const char byte = static_cast<char>(status);
    appendPacket(output_, exitStatus, {&byte, 1});
}

/// Packets of the host: its standard input (0), or the end of that (4).
void ADBDShell::receive(ByteView bytes) {
    constexpr std::size_t frontSize = 5;
    constexpr std::size_t longestLine = 64 * 1024;
    if ((!isInteractive_ && !blocks_) || isPrinting() || isOver_)
        return;
    in_.insert(in_.end(), bytes.begin(), bytes.end());
    std::size_t taken = 0;
    while (in_.size() - taken >= frontSize) {
        const std::size_t length = readLittleEndian<std::uint32_t>(in_, taken + 1);
        if (in_.size() - taken < frontSize + length)
            break;
        takeInput(in_[taken], ByteView(in_).subspan(taken + frontSize, length));
        taken += frontSize + length;
    }
    in_.erase(in_.begin(), in_.begin() + static_cast<std::ptrdiff_t>(taken));
    if (!isInteractive_)
        return;
    for (std::size_t end = 0; (end = endOfLine(line_)) != std::string::npos;) {
        lastStatus_ = runLine(line_.substr(0, end));
        line_.erase(0, end + 1);
    }
    isOver_ = isOver_ || line_.size() > longestLine;
    if (isOver_)
        appendStatus(lastStatus_);
}

void ADBDShell::takeInput(std::byte kind, ByteView content) {
    constexpr std::byte standardInput{0};
    constexpr std::byte endOfInput{4};
    if (isOver_ || (kind != standardInput && kind != endOfInput))
        return;
    const bool isEnd = kind == endOfInput;
    if (blocks_) {
        if (!isEnd)
            blocks_->take(content);
        if (isEnd || blocks_->hasFailed())
            endBlocks();
    } else if (isEnd) {
        isOver_ = true;
    } else {
        line_.append(reinterpret_cast<const char*>(content.data()), content.size());
    }
}

void ADBDShell::endBlocks() {
    appendResult(blocks_->result());
    appendStatus(blocks_->result().status);
    isOver_ = true;
}

Bytes ADBDShell::produce(std::size_t most) {
    while (isPrinting() &&
           (output_.empty() || (sent_ == 0 && output_.size() + largestPacket <= most))) {
        const std::string piece = blocks_->next(largestPacket);
        if (piece.empty())
            endBlocks();
        else
            appendPacket(output_, standardOutput, piece);
    }
    const std::size_t count = std::min(most, output_.size() - sent_);
    const auto begin = output_.begin() + static_cast<std::ptrdiff_t>(sent_);
    Bytes bytes(begin, begin + static_cast<std::ptrdiff_t>(count));
    sent_ += count;
    if (sent_ == output_.size()) {
        output_.clear();
        sent_ = 0;
    }
    return bytes;
}

bool ADBDShell::isOver() const {
    return output_.empty() && ((!isInteractive_ && !blocks_) || isOver_);
}

} // namespace tessary
