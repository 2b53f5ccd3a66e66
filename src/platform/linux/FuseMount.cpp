#include "core/DiagnosticsLogger.h"
#include "core/ThreadName.h"
#include "platform/FileMount.h"

#include <QFile>

#define FUSE_USE_VERSION 35
#include <fuse.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstring>
#include <map>
#include <mutex>
#include <system_error>
#include <thread>

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
    facts.st_mode = entry.isFolder ? S_IFDIR | S_IRUSR | S_IXUSR : S_IFREG | S_IRUSR;
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

struct FuseDeleter {
    void operator()(fuse* session) const {
        fuse_destroy(session);
    }
};

class FuseMount final : public FileMount {
public:
    FuseMount(std::unique_ptr<Shown> shown, std::unique_ptr<fuse, FuseDeleter> session,
              const QString& folder)
        : shown_(std::move(shown)),
          session_(std::move(session)),
          folder_(QFile::encodeName(folder)),
          loop_([this] {
              nameCurrentThread("tessary-mount");
              fuse_loop_config config{};
              config.max_idle_threads = 4;
              fuse_loop_mt(session_.get(), &config);
          }) {}
    FuseMount(const FuseMount&) = delete;
    FuseMount& operator=(const FuseMount&) = delete;

    ~FuseMount() override {
        fuse_exit(session_.get());
        // The loop sleeps until somebody asks it something. Its end can leave this question
        // unanswered, until the unmounting answers it.
        std::thread question([this] { (void)access((folder_ + "/wake").constData(), F_OK); });
        loop_.join();
        fuse_unmount(session_.get());
        question.join();
    }

private:
    const std::unique_ptr<Shown> shown_;
    const std::unique_ptr<fuse, FuseDeleter> session_;
    const QByteArray folder_;
    std::thread loop_;
};

void logRefusal(fuse_log_level, const char* format, va_list values) {
    std::array<char, 512> line{};
    std::vsnprintf(line.data(), line.size(), format, values);
    DiagnosticsLogger::shared().ui.standard("Mount notice: %s",
                                            {QString::fromLocal8Bit(line.data()).trimmed()});
}

} // namespace

std::unique_ptr<FileMount> mountFiles(MountedFiles& files, const QString& folder) {
    fuse_set_log_func(logRefusal);
    const fuse_operations calls = operations();
    std::array arguments{const_cast<char*>("tessary"),
                         const_cast<char*>("-oro,auto_unmount,fsname=tessary,subtype=tessary")};
    fuse_args args = FUSE_ARGS_INIT(static_cast<int>(arguments.size()), arguments.data());
    auto shown = std::make_unique<Shown>(files);
    std::unique_ptr<fuse, FuseDeleter> session(fuse_new(&args, &calls, sizeof calls, shown.get()));
    fuse_opt_free_args(&args);
    if (!session || fuse_mount(session.get(), QFile::encodeName(folder).constData()) != 0)
        return nullptr;
    return std::make_unique<FuseMount>(std::move(shown), std::move(session), folder);
}

} // namespace tessary
