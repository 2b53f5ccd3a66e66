#include "base/local/FileHandle.h"
#include "base/log/DiagnosticsLogger.h"
#include "base/threads/ThreadName.h"
#include "base/values/Bytes.h"
#include "base/values/FreeWith.h"
#include "platform/mount/FileMount.h"

#include <QFile>

#define FUSE_USE_VERSION 35
#include <fcntl.h>
#include <fuse.h>
#include <fuse_lowlevel.h>
#include <linux/close_range.h>
#include <poll.h>
#include <sys/eventfd.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <condition_variable>
#include <cstdlib>
#include <cstring>
#include <deque>
#include <map>
#include <mutex>
#include <system_error>
#include <thread>
#include <vector>

namespace tessary {

namespace {

/// What a mount shows and what is open in it. Thread-safe.
class Shown {
public:
    explicit Shown(MountedFiles& files) : files_(files) {}

    [[nodiscard]] MountedFiles& files() const {
        return files_;
    }
    /// The number of the open file.
    std::uint64_t open(const QString& path) {
        std::unique_ptr<MountedFiles::Reader> reader = files_.open(path);
        const std::scoped_lock lock(mutex_);
        readers_[++last_] = std::move(reader);
        return last_;
    }
    /// Of a file that is open.
    [[nodiscard]] MountedFiles::Reader& reader(std::uint64_t number) {
        const std::scoped_lock lock(mutex_);
        return *readers_.at(number);
    }
    void close(std::uint64_t number) {
        std::unique_lock lock(mutex_);
        const auto closed = readers_.extract(number);
        lock.unlock(); // its end may wait for a phone
    }

private:
    MountedFiles& files_;
    std::mutex mutex_;
    /// The system does not close what is still open when the mount ends.
    std::map<std::uint64_t, std::unique_ptr<MountedFiles::Reader>> readers_;
    std::uint64_t last_ = 0;
};

Shown& shown() {
    return *static_cast<Shown*>(fuse_get_context()->private_data);
}

/// What `work` returns, or its failure as the kernel wants it: a negative errno.
template <typename Work>
int answer(const Work& work) noexcept {
    try {
        return work();
    } catch (const std::system_error& error) {
        return error.code().value() > 0 ? -error.code().value() : -EIO;
    } catch (...) {
        return -EIO;
    }
}

struct stat statOf(const MountedFiles::Entry& entry) {
    constexpr qint64 blockSize = 512; // the unit of st_blocks, whatever the file system's own is
    struct stat facts {};
    // Whoever copies them copies their mode: their copies are to be like any other new file.
    constexpr mode_t newFile = S_IRUSR | S_IWUSR | S_IRGRP | S_IROTH;
    constexpr mode_t newFolder = newFile | S_IXUSR | S_IXGRP | S_IXOTH;
    facts.st_mode = entry.isFolder ? S_IFDIR | newFolder : S_IFREG | newFile;
    facts.st_nlink = entry.isFolder ? 2 : 1;
    facts.st_uid = getuid();
    facts.st_gid = getgid();
    facts.st_size = entry.isFolder ? 0 : entry.size;
    facts.st_blocks = (facts.st_size + blockSize - 1) / blockSize;
    if (entry.modified)
        facts.st_mtim.tv_sec = entry.modified->toSecsSinceEpoch();
    facts.st_atim = facts.st_ctim = facts.st_mtim;
    return facts;
}

fuse_operations operations() {
    fuse_operations calls{};
    calls.getattr = [](const char* path, struct stat* facts, fuse_file_info*) {
        return answer([&] {
            *facts = statOf(shown().files().entry(QFile::decodeName(path)));
            return 0;
        });
    };
    calls.readdir = [](const char* path, void* buffer, fuse_fill_dir_t fill, off_t, fuse_file_info*,
                       fuse_readdir_flags) {
        return answer([&] {
            const std::vector<MountedFiles::Entry> entries =
                shown().files().list(QFile::decodeName(path));
            for (const char* self : {".", ".."})
                fill(buffer, self, nullptr, 0, {});
            for (const MountedFiles::Entry& entry : entries) {
                const struct stat facts = statOf(entry);
                fill(buffer, QFile::encodeName(entry.name).constData(), &facts, 0, {});
            }
            return 0;
        });
    };
    calls.open = [](const char* path, fuse_file_info* info) {
        return answer([&] {
            if ((info->flags & O_ACCMODE) != O_RDONLY)
                return -EROFS;
            info->fh = shown().open(QFile::decodeName(path));
            // Else every opening would drop what is cached of the file, and wait for what others
            // read of it at the time, even once killed. What has another size or date is dropped.
            info->keep_cache = 1;
            return 0;
        });
    };
    calls.read = [](const char*, char* into, std::size_t size, off_t offset, fuse_file_info* info) {
        return answer([&] {
            // A program that is killed while it waits for a phone must be able to end.
            return static_cast<int>(
                shown().reader(info->fh).read(offset, std::as_writable_bytes(std::span(into, size)),
                                              [] { return fuse_interrupted() != 0; }));
        });
    };
    calls.release = [](const char*, fuse_file_info* info) {
        return answer([&] {
            shown().close(info->fh);
            return 0;
        });
    };
    return calls;
}

using FuseHandle = std::unique_ptr<fuse, FreeWith<fuse_destroy>>;

/// Answers on threads of its own, so that its end needs no request to wake them: one that this
/// program sent to itself would keep it from ending when it is killed meanwhile. One thread takes
/// requests in, whatever the others wait for: the word that a reader was killed is one of them.
class FuseMount final : public FileMount {
public:
    /// `fuse` is mounted; `end` is an event descriptor.
    FuseMount(std::unique_ptr<Shown> shown, FuseHandle fuse, FileHandle end)
        : shown_(std::move(shown)),
          fuse_(std::move(fuse)),
          session_(fuse_get_session(fuse_.get())),
          requests_(fuse_session_fd(session_)),
          end_(std::move(end)) {
        // A request that was announced may be taken back before it is read.
        fcntl(requests_, F_SETFL, fcntl(requests_, F_GETFL) | O_NONBLOCK);
        receiver_ = std::jthread([this] { receive(); });
    }
    FuseMount(const FuseMount&) = delete;
    FuseMount& operator=(const FuseMount&) = delete;

    ~FuseMount() override {
        eventfd_write(end_.get(), 1);
        receiver_.join();
        for (std::jthread& thread : threads_)
            thread.request_stop();
        threads_.clear();
        fuse_unmount(fuse_.get());
    }

private:
    /// As many requests can wait for phones before others have to wait for them.
    static constexpr std::size_t mostThreads = 32;
    static constexpr std::uint32_t interruptRequest = 36; ///< in the kernel's protocol

    void receive() {
        nameCurrentThread("tessary-mount");
        fuse_buf request{};
        while (isAnnounced()) {
            const int received = fuse_session_receive_buf(session_, &request);
            if (received == -EAGAIN || received == -EINTR)
                continue;
            if (received <= 0)
                break; // somebody else unmounted it
            if ((request.flags & FUSE_BUF_IS_FD) != 0 || isInterrupt(request))
                fuse_session_process_buf(session_, &request);
            else
                handOut(request);
        }
        std::free(request.mem);
    }
    /// Waits for a request; false at the end.
    [[nodiscard]] bool isAnnounced() const {
        std::array sources{pollfd{requests_, POLLIN, 0}, pollfd{end_.get(), POLLIN, 0}};
        while (poll(sources.data(), sources.size(), -1) < 0)
            if (errno != EINTR)
                return false;
        return sources[1].revents == 0;
    }
    [[nodiscard]] static bool isInterrupt(const fuse_buf& request) {
        std::array<std::uint32_t, 2> lengthAndKind{};
        if (request.size < sizeof lengthAndKind)
            return false;
        std::memcpy(lengthAndKind.data(), request.mem, sizeof lengthAndKind);
        return lengthAndKind[1] == interruptRequest;
    }

    void handOut(const fuse_buf& request) {
        const auto* const bytes = static_cast<const std::byte*>(request.mem);
        const std::scoped_lock lock(mutex_);
        waiting_.emplace_back(bytes, bytes + request.size);
        if (idle_ < waiting_.size() && threads_.size() < mostThreads)
            addThread();
        changed_.notify_one();
    }
    void addThread() {
        try {
            threads_.emplace_back([this](const std::stop_token& stop) { serve(stop); });
        } catch (const std::system_error&) {
            // Those that there are do it all, if more slowly.
        }
    }
    void serve(const std::stop_token& stop) {
        nameCurrentThread("tessary-mount");
        std::unique_lock lock(mutex_);
        while (true) {
            ++idle_;
            const bool isAsked = changed_.wait(lock, stop, [this] { return !waiting_.empty(); });
            --idle_;
            if (!isAsked || stop.stop_requested())
                return;
            Bytes bytes = std::move(waiting_.front());
            waiting_.pop_front();
            lock.unlock();
            fuse_buf request{};
            request.size = bytes.size();
            request.mem = bytes.data();
            fuse_session_process_buf(session_, &request);
            lock.lock();
        }
    }

    const std::unique_ptr<Shown> shown_;
    const FuseHandle fuse_;
    fuse_session* const session_; ///< of fuse_
    const int requests_;          ///< the descriptor that they come from, of fuse_
    const FileHandle end_;        ///< can be read once the threads are to end
    std::mutex mutex_;            ///< guards the three below
    std::condition_variable_any changed_;
    std::deque<Bytes> waiting_;
    std::size_t idle_ = 0;
    std::vector<std::jthread> threads_; ///< the receiver's, until it has ended
    std::jthread receiver_;
};

void logRefusal(fuse_log_level, const char* format, va_list values) {
    std::array<char, 512> line{};
    std::vsnprintf(line.data(), line.size(), format, values);
    DiagnosticsLogger::shared().ui.standard("Mount notice: %s",
                                            {QString::fromLocal8Bit(line.data()).trimmed()});
}

} // namespace

std::unique_ptr<FileMount> mountFiles(MountedFiles& files, const QString& folder) {
    constexpr unsigned int firstOfOurs = 3; // after standard input, output and error
    fuse_set_log_func(logRefusal);
    const fuse_operations calls = operations();
    std::array arguments{const_cast<char*>("tessary"),
                         const_cast<char*>("-oro,auto_unmount,fsname=tessary,subtype=tessary")};
    fuse_args args = FUSE_ARGS_INIT(static_cast<int>(arguments.size()), arguments.data());
    auto shown = std::make_unique<Shown>(files);
    FileHandle end(eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK));
    FuseHandle handle(fuse_new(&args, &calls, sizeof calls, shown.get()));
    fuse_opt_free_args(&args);
    if (!handle || !end.isOpen() ||
        fuse_mount(handle.get(), QFile::encodeName(folder).constData()) != 0)
        return nullptr;
    // By a socket of the library's the program that unmounts hears that this one has died: where a
    // program that is started later held it as well, a dead mount stayed.
    (void)::close_range(firstOfOurs, ~0U, CLOSE_RANGE_CLOEXEC);
    return std::make_unique<FuseMount>(std::move(shown), std::move(handle), std::move(end));
}

} // namespace tessary
