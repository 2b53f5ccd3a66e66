#include "simulator/adbd/ADBDSync.h"

#include "base/values/LittleEndian.h"
#include "simulator/wire/Garbling.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <chrono>
#include <cstring>
#include <string_view>
#include <system_error>
#include <thread>
#include <utility>

namespace tessary {

namespace {

using enum ADBSyncCommand;

constexpr std::size_t recordHeader = 8;   // word and length
constexpr std::size_t longestPath = 1024; // bytes, as adbd has it
constexpr std::size_t largestChunk = 65536;

void appendWord(Bytes& bytes, ADBSyncCommand word) {
    appendLittleEndian(bytes, static_cast<std::uint32_t>(word));
}

void appendText(Bytes& bytes, std::string_view text) {
    const auto* data = reinterpret_cast<const std::byte*>(text.data());
    bytes.insert(bytes.end(), data, data + text.size());
}

template <typename T>
std::uint32_t low32(T value) {
    return static_cast<std::uint32_t>(value);
}

} // namespace

ADBDSync::ADBDSync(ADBDState& state) : state_(state), files_(state.config) {}

ADBDSync::~ADBDSync() {
    pushed_.close();
    if (!pushedPath_.empty())
        ::unlink(pushedPath_.c_str());
}

void ADBDSync::receive(ByteView bytes) {
    if (isAnswering())
        waiting_.insert(waiting_.end(), bytes.begin(), bytes.end());
    else
        take(bytes);
}

void ADBDSync::take(ByteView bytes) {
    while (!bytes.empty() && !isOver_) {
        if (isAnswering()) {
            waiting_.assign(bytes.begin(), bytes.end());
            return;
        }
        if (chunkLeft_ > 0) {
            const std::size_t count = std::min(chunkLeft_, bytes.size());
            writePushed(bytes.first(count));
            chunkLeft_ -= count;
            bytes = bytes.subspan(count);
            continue;
        }
        // Requests are small: they are put together in a buffer.
        std::size_t wanted = recordHeader;
        if (in_.size() >= recordHeader && !isPushing_)
            wanted += readLittleEndian<std::uint32_t>(in_, 4);
        if (wanted > recordHeader + longestPath) {
            fail("path too long");
            isOver_ = true;
            return;
        }
        const std::size_t count = std::min(wanted - std::min(wanted, in_.size()), bytes.size());
        in_.insert(in_.end(), bytes.begin(), bytes.begin() + static_cast<std::ptrdiff_t>(count));
        bytes = bytes.subspan(count);
        if (in_.size() < recordHeader)
            return;
        if (isPushing_) {
            takePushRecord(in_);
            in_.clear();
            continue;
        }
        const std::size_t length = readLittleEndian<std::uint32_t>(in_, 4);
        if (length > longestPath || in_.size() < recordHeader + length)
            continue;
        const ADBSyncCommand command{readLittleEndian<std::uint32_t>(in_, 0)};
        const std::string path(reinterpret_cast<const char*>(in_.data()) + recordHeader, length);
        in_.clear();
        const bool isUnknown = (!state_.config.hasStatV2 && (command == sta2 || command == lst2)) ||
                               (!state_.config.hasLsV2 && command == lis2);
        if (isUnknown) {
            fail("unknown command");
            isOver_ = true;
            return;
        }
        serve(command, path);
    }
}

void ADBDSync::serve(ADBSyncCommand command, const std::string& path) {
    state_.hooks->requestAsked(QByteArray::fromStdString(path));
    switch (command) {
    case stat:
    case sta2:
    case lst2:
        return answerStat(command, path);
    case list:
    case lis2:
        return beginList(path, command == lis2);
    case recv:
        return beginPull(path);
    case send:
        return beginPush(path);
    case quit:
        isOver_ = true;
        return;
    default:
        fail("unexpected record");
        isOver_ = true;
    }
}

/// STAT: word, u32 mode, size, mtime. STA2 and LST2: word, u32 error, u64 device, u64 inode, u32
/// mode, links, user, group, u64 size, times of access, change of content, change of status.
void ADBDSync::answerStat(ADBSyncCommand command, const std::string& path) {
    struct stat status = {};
    const int code = files_.status(path, command == sta2, status);
    const auto size = code == 0 ? status.st_size + state_.hooks->sizeLie() : 0;
    if (code != 0)
        status = {};
    appendWord(out_, command);
    if (command == stat) {
        appendLittleEndian(out_, low32(status.st_mode));
        appendLittleEndian(out_, low32(size));
        appendLittleEndian(out_, low32(status.st_mtim.tv_sec));
        return;
    }
    appendLittleEndian(out_, low32(code));
    appendFacts(status, static_cast<std::uint64_t>(size));
}

/// What the second version of the records tells after the error.
void ADBDSync::appendFacts(const struct stat& status, std::uint64_t size) {
    appendLittleEndian(out_, static_cast<std::uint64_t>(status.st_dev));
    appendLittleEndian(out_, static_cast<std::uint64_t>(status.st_ino));
    appendLittleEndian(out_, low32(status.st_mode));
    appendLittleEndian(out_, low32(status.st_nlink));
    appendLittleEndian(out_, low32(status.st_uid));
    appendLittleEndian(out_, low32(status.st_gid));
    appendLittleEndian(out_, size);
    appendLittleEndian(out_, static_cast<std::uint64_t>(status.st_atim.tv_sec));
    appendLittleEndian(out_, static_cast<std::uint64_t>(status.st_mtim.tv_sec));
    appendLittleEndian(out_, static_cast<std::uint64_t>(status.st_ctim.tv_sec));
}

void ADBDSync::beginList(const std::string& path, bool isNew) {
    listsNew_ = isNew;
    listed_.emplace();
    (void)files_.openFolder(path, *listed_); // what cannot be read has no entries
    for (const QByteArray& name : state_.hooks->extraNames()) {
        ADBDEntry extra{name.toStdString(), {}, {}};
        extra.status.st_mode = S_IFREG | 0644;
        extra.status.st_size = 4;
        appendEntry(extra);
    }
}

void ADBDSync::appendEntry(const ADBDEntry& entry) {
    const auto size = entry.status.st_size + state_.hooks->sizeLie();
    if (listsNew_) {
        appendWord(out_, dnt2);
        appendLittleEndian(out_, std::uint32_t{0});
        appendFacts(entry.status, static_cast<std::uint64_t>(size));
    } else {
        appendWord(out_, dent);
        appendLittleEndian(out_, low32(entry.status.st_mode));
        appendLittleEndian(out_, low32(size));
        appendLittleEndian(out_, low32(entry.status.st_mtim.tv_sec));
    }
    appendLittleEndian(out_, low32(entry.name.size()));
    appendText(out_, entry.name);
}

/// Entries go out as they are read: the host looks at the first ones meanwhile.
bool ADBDSync::workAhead() {
    constexpr std::size_t most = std::size_t{256} << 10;
    if (!listed_ || out_.size() >= most)
        return false;
    appendEntries(out_.size() + largestChunk / 8);
    return true;
}

/// Until `most` bytes are ready.
void ADBDSync::appendEntries(std::size_t most) {
    while (out_.size() < most) {
        const auto entry = listed_->next();
        if (entry) {
            appendEntry(*entry);
            continue;
        }
        listed_.reset();
        appendWord(out_, done);
        out_.insert(out_.end(),
                    (listsNew_ ? ADBSyncCodec::newEntrySize : ADBSyncCodec::oldEntrySize) -
                        ADBSyncCodec::wordSize,
                    std::byte{0});
        return;
    }
}

void ADBDSync::beginPull(const std::string& path) {
    for (const QByteArray& name : state_.hooks->extraNames()) {
        if (!path.ends_with('/' + name.toStdString()))
            continue;
        constexpr std::string_view content = "made up";
        appendWord(out_, data);
        appendLittleEndian(out_, low32(content.size()));
        appendText(out_, content);
        appendWord(out_, done);
        appendLittleEndian(out_, std::uint32_t{0});
        return;
    }
    const auto local = files_.resolve(path);
    pulled_ = FileHandle(local ? ::open(local->c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK) : -1);
    struct stat status = {};
    if (!pulled_.isOpen() || ::fstat(pulled_.get(), &status) != 0 || S_ISDIR(status.st_mode)) {
        pulled_.close();
        fail("open failed: No such file or directory");
        isOver_ = true; // as adbd does after each refused transfer
    }
}

Bytes ADBDSync::produce(std::size_t most) {
    constexpr std::size_t enough = 32 * 1024; // of a listing, to be sent
    while (isAnswering() || !waiting_.empty()) {
        if (!isAnswering())
            take(std::exchange(waiting_, {}));
        else if (out_.size() + 2 * recordHeader >= most || (listed_ && out_.size() >= enough))
            break;
        else if (listed_)
            appendEntries(enough);
        else
            appendContent(most);
    }
    if (out_.size() <= most)
        return std::exchange(out_, {});
    const auto end = out_.begin() + static_cast<std::ptrdiff_t>(most);
    Bytes bytes(out_.begin(), end);
    out_.erase(out_.begin(), end);
    return bytes;
}

/// DATA records up to the room that there is, and DONE together with the last one.
void ADBDSync::appendContent(std::size_t most) {
    const std::size_t before = out_.size();
    while (out_.size() + 2 * recordHeader < most) {
        const std::size_t at = out_.size();
        const std::size_t room = std::min(largestChunk, most - at - 2 * recordHeader);
        out_.resize(at + recordHeader + room);
        const ssize_t got = ::read(pulled_.get(), out_.data() + at + recordHeader, room);
        if (got < 0) {
            pulled_.close();
            out_.resize(at);
            fail("read failed");
            break;
        }
        if (got > 0 && state_.hooks->garbles())
            garble(std::span(out_).subspan(at + recordHeader));
        Bytes header;
        appendWord(header, got == 0 ? done : data);
        appendLittleEndian(header, low32(got));
        std::copy(header.begin(), header.end(), out_.begin() + static_cast<std::ptrdiff_t>(at));
        out_.resize(at + recordHeader + static_cast<std::size_t>(got));
        if (got == 0) {
            pulled_.close();
            break;
        }
    }
    slowDown(out_.size() - before);
}

void ADBDSync::beginPush(const std::string& pathAndMode) {
    isPushing_ = true;
    const std::string path = pathAndMode.substr(0, pathAndMode.rfind(','));
    const auto local = files_.resolve(path);
    if (state_.hooks->isReadOnly() || !local)
        return fail("couldn't create file: Read-only file system");
    std::error_code failure;
    std::filesystem::create_directories(local->parent_path(), failure);
    ::unlink(local->c_str());
    pushed_ = FileHandle(::open(local->c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0644));
    if (!pushed_.isOpen())
        return fail(std::string("couldn't create file: ") + std::strerror(errno));
    pushedPath_ = *local;
    pushedBytes_ = 0;
}

/// DATA with a length, whose bytes follow, or DONE with the time.
void ADBDSync::takePushRecord(ByteView bytes) {
    const ADBSyncCommand command{readLittleEndian<std::uint32_t>(bytes, 0)};
    const auto value = readLittleEndian<std::uint32_t>(bytes, 4);
    if (command == data && value <= largestChunk) {
        chunkLeft_ = value;
    } else if (command == done) {
        endPush(value);
    } else {
        fail("invalid data message");
        isOver_ = true;
    }
}

void ADBDSync::writePushed(ByteView bytes) {
    slowDown(bytes.size());
    Bytes garbled;
    if (state_.hooks->garbles())
        bytes = garbledCopy(bytes, garbled);
    while (pushed_.isOpen() && !bytes.empty()) {
        const std::size_t room = state_.hooks->roomFor(pushedBytes_, bytes.size());
        const ssize_t count = ::write(pushed_.get(), bytes.data(), room);
        if (count <= 0) {
            pushed_.close();
            return fail("write failed: No space left on device");
        }
        pushedBytes_ += static_cast<std::uint64_t>(count);
        bytes = bytes.subspan(static_cast<std::size_t>(count));
    }
}

void ADBDSync::endPush(std::uint32_t mtime) {
    isPushing_ = false;
    if (!pushed_.isOpen()) {
        isOver_ = true; // the failure was told, and the rest has been taken
        return;
    }
    const std::array<timespec, 2> times{timespec{0, UTIME_OMIT},
                                        timespec{static_cast<std::time_t>(mtime), 0}};
    (void)::futimens(pushed_.get(), times.data());
    pushed_.close();
    pushedPath_.clear();
    appendWord(out_, okay);
    appendLittleEndian(out_, std::uint32_t{0});
}

void ADBDSync::fail(const std::string& message) {
    appendWord(out_, ADBSyncCommand::fail);
    appendLittleEndian(out_, low32(message.size()));
    appendText(out_, message);
}

void ADBDSync::slowDown(std::size_t bytes) const {
    const double speed = state_.hooks->megabytesPerSecond();
    if (speed > 0)
        std::this_thread::sleep_for(
            std::chrono::duration<double>(static_cast<double>(bytes) / (speed * 1e6)));
}

} // namespace tessary
