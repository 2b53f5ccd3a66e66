#pragma once

#include "phone/NameRules.h"
#include "support/TemporaryFolder.h"

#include <QProcess>

#define FUSE_USE_VERSION 35
#include <dirent.h>
#include <fcntl.h>
#include <fuse.h>
#include <sys/stat.h>
#include <sys/statvfs.h>
#include <unistd.h>

#include <cerrno>
#include <functional>
#include <mutex>
#include <thread>

namespace tessary {

/// A disk that is stricter than those of this machine, or fuller, or tells of each change: mounted
/// by FUSE over a plain folder. One at a time in a process.
class StrangeDisk {
public:
    struct Options {
        NameRules rules{};
        qint64 capacity = 0;  ///< bytes; 0: no limit
        qint64 saysFree = -1; ///< instead of the truth
        int flushError = 0;   ///< what closing a file ends with
        QString at{};         ///< the folder that it is mounted on; empty: one of its own
        /// Called after each change, on the disk's thread, before whoever made it is answered.
        std::function<void()> changed{};
        /// Called before each piece of a file is read, on the disk's thread.
        std::function<void()> reading{};
    };

    explicit StrangeDisk(Options options) : options_(std::move(options)) {
        behind_.makeFolder(QStringLiteral("files"));
        shown_.makeFolder(QStringLiteral("disk"));
        instance() = this;
        const fuse_operations calls = operations();
        std::array arguments{const_cast<char*>("strange"), const_cast<char*>("-ofsname=strange")};
        fuse_args args = FUSE_ARGS_INIT(static_cast<int>(arguments.size()), arguments.data());
        fuse_ = fuse_new(&args, &calls, sizeof calls, nullptr);
        fuse_opt_free_args(&args);
        isMounted_ = fuse_ != nullptr && fuse_mount(fuse_, path().toUtf8().constData()) == 0;
        if (isMounted_)
            thread_ = std::jthread([this] { fuse_loop(fuse_); });
    }
    ~StrangeDisk() {
        if (isMounted_)
            QProcess::execute(QStringLiteral("fusermount3"),
                              {QStringLiteral("-u"), QStringLiteral("-z"), path()});
        if (thread_.joinable())
            thread_.join();
        if (isMounted_)
            fuse_unmount(fuse_); // what is left of it
        if (fuse_ != nullptr)
            fuse_destroy(fuse_);
    }
    StrangeDisk(const StrangeDisk&) = delete;
    StrangeDisk& operator=(const StrangeDisk&) = delete;

    /// False where this machine mounts nothing for its users.
    [[nodiscard]] bool isMounted() const {
        return isMounted_;
    }
    [[nodiscard]] QString path() const {
        return options_.at.isEmpty() ? shown_.path(QStringLiteral("disk")) : options_.at;
    }
    /// The n-th request from now on (the next is 1) fails with this errno; 0: none does.
    void failRequest(int n, int error) {
        const std::scoped_lock lock(mutex_);
        failing_ = n;
        error_ = error;
        requests_ = 0;
    }
    /// Requests since then.
    [[nodiscard]] int requests() const {
        const std::scoped_lock lock(mutex_);
        return requests_;
    }
    /// What is on it, past its own rules.
    [[nodiscard]] QStringList names(const QString& folder = {}) const {
        return behind_.names(QStringLiteral("files/") + folder);
    }

private:
    static StrangeDisk*& instance() {
        static StrangeDisk* one = nullptr;
        return one;
    }

    /// Where a path lies behind the disk, by the disk's rules about names.
    [[nodiscard]] QByteArray at(const char* path) const {
        QString reached = behind_.path(QStringLiteral("files"));
        if (!options_.rules.ignoresCase && !options_.rules.ignoresUnicodeForm)
            return reached.toUtf8() + path;
        for (const QString& name :
             QString::fromUtf8(path).split(QLatin1Char('/'), Qt::SkipEmptyParts)) {
            QString found = name;
            for (const QString& there :
                 QDir(reached).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot))
                if (options_.rules.key(there) == options_.rules.key(name))
                    found = there;
            reached += QLatin1Char('/') + found;
        }
        return reached.toUtf8();
    }
    /// Carries a request out, unless it is the one that fails.
    template <auto work, typename... Arguments>
    static int orFails(Arguments... arguments) {
        StrangeDisk& disk = *instance();
        {
            const std::scoped_lock lock(disk.mutex_);
            if (++disk.requests_ == disk.failing_)
                return -disk.error_;
        }
        return work(arguments...);
    }
    /// 0, or what is against a new entry of this path.
    [[nodiscard]] int refusalOf(const char* path) const {
        const QString name = QString::fromUtf8(path).section(QLatin1Char('/'), -1);
        return options_.rules.accepts(name) ? 0 : -EINVAL;
    }
    [[nodiscard]] qint64 used() const {
        qint64 bytes = 0;
        for (const QString& name : names())
            bytes += QFileInfo(behind_.path(QStringLiteral("files/") + name)).size();
        return bytes;
    }
    [[nodiscard]] bool hasRoomFor(std::size_t more) const {
        return options_.capacity == 0 || used() + static_cast<qint64>(more) <= options_.capacity;
    }
    static int answer(int result) {
        return result < 0 ? -errno : 0;
    }
    /// The same of what changes the disk.
    static int changed(int result) {
        const int answered = answer(result);
        if (result >= 0 && instance()->options_.changed)
            instance()->options_.changed();
        return answered;
    }

    static fuse_operations operations() {
        fuse_operations calls{};
        calls.init = [](fuse_conn_info*, fuse_config* config) -> void* {
            config->hard_remove = 1; // what is removed while it is open is gone
            config->nullpath_ok = 1; // and then has no path
            return nullptr;
        };
        calls.getattr = orFails<[](const char* path, struct stat* facts, fuse_file_info* info) {
            return answer(path != nullptr ? ::lstat(instance()->at(path), facts)
                                          : ::fstat(static_cast<int>(info->fh), facts));
        }>;
        calls.opendir = [](const char* path, fuse_file_info* info) {
            const int folder = ::open(instance()->at(path), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
            info->fh = static_cast<std::uint64_t>(folder);
            return answer(folder);
        };
        calls.releasedir = [](const char*, fuse_file_info* info) {
            return answer(::close(static_cast<int>(info->fh)));
        };
        calls.readdir = orFails<[](const char*, void* buffer, fuse_fill_dir_t fill, off_t,
                                   fuse_file_info* info, fuse_readdir_flags) {
            DIR* const folder = ::fdopendir(::dup(static_cast<int>(info->fh)));
            if (folder == nullptr)
                return -errno;
            ::rewinddir(folder);
            while (const dirent* entry = ::readdir(folder))
                fill(buffer, entry->d_name, nullptr, 0, {});
            ::closedir(folder);
            return 0;
        }>;
        calls.open = orFails<[](const char* path, fuse_file_info* info) {
            const int file = ::open(instance()->at(path), info->flags & O_ACCMODE);
            info->fh = static_cast<std::uint64_t>(file);
            return answer(file);
        }>;
        calls.create = orFails<[](const char* path, mode_t mode, fuse_file_info* info) {
            if (const int refusal = instance()->refusalOf(path); refusal != 0)
                return refusal;
            const int file = ::open(instance()->at(path), O_CREAT | O_EXCL | O_RDWR, mode);
            info->fh = static_cast<std::uint64_t>(file);
            return changed(file);
        }>;
        calls.read = orFails<[](const char*, char* into, std::size_t size, off_t offset,
                                fuse_file_info* info) {
            if (instance()->options_.reading)
                instance()->options_.reading();
            return static_cast<int>(::pread(static_cast<int>(info->fh), into, size, offset));
        }>;
        calls.write = orFails<[](const char*, const char* bytes, std::size_t size, off_t offset,
                                 fuse_file_info* info) {
            if (!instance()->hasRoomFor(size))
                return -ENOSPC;
            const auto done = ::pwrite(static_cast<int>(info->fh), bytes, size, offset);
            const int failure = changed(static_cast<int>(done));
            return failure != 0 ? failure : static_cast<int>(done);
        }>;
        calls.truncate = [](const char* path, off_t size, fuse_file_info* info) {
            return changed(path != nullptr ? ::truncate(instance()->at(path), size)
                                           : ::ftruncate(static_cast<int>(info->fh), size));
        };
        calls.flush =
            orFails<[](const char*, fuse_file_info*) { return -instance()->options_.flushError; }>;
        calls.fsync = orFails<[](const char*, int, fuse_file_info*) { return 0; }>;
        calls.release = [](const char*, fuse_file_info* info) {
            return answer(::close(static_cast<int>(info->fh)));
        };
        calls.mkdir = orFails<[](const char* path, mode_t mode) {
            if (const int refusal = instance()->refusalOf(path); refusal != 0)
                return refusal;
            return changed(::mkdir(instance()->at(path), mode));
        }>;
        calls.unlink =
            orFails<[](const char* path) { return changed(::unlink(instance()->at(path))); }>;
        calls.rmdir =
            orFails<[](const char* path) { return changed(::rmdir(instance()->at(path))); }>;
        calls.rename = orFails<[](const char* from, const char* to, unsigned flags) {
            if (flags != 0)
                return -EINVAL; // as many do not know them
            if (const int refusal = instance()->refusalOf(to); refusal != 0)
                return refusal;
            return changed(::rename(instance()->at(from), instance()->at(to)));
        }>;
        calls.utimens =
            orFails<[](const char* path, const timespec times[2], fuse_file_info* info) {
                return changed(path != nullptr ? ::utimensat(AT_FDCWD, instance()->at(path), times,
                                                             AT_SYMLINK_NOFOLLOW)
                                               : ::futimens(static_cast<int>(info->fh), times));
            }>;
        calls.statfs = orFails<[](const char*, struct statvfs* facts) {
            constexpr unsigned long block = 512;
            const Options& options = instance()->options_;
            facts->f_bsize = facts->f_frsize = block;
            facts->f_namemax = 255;
            facts->f_blocks = 1'000'000;
            const qint64 free = options.saysFree >= 0   ? options.saysFree
                                : options.capacity == 0 ? qint64{400'000'000}
                                                        : options.capacity - instance()->used();
            facts->f_bfree = facts->f_bavail = static_cast<fsblkcnt_t>(free) / block;
            return 0;
        }>;
        return calls;
    }

    const Options options_;
    mutable std::mutex mutex_; ///< guards the three below
    int failing_ = 0;
    int error_ = 0;
    int requests_ = 0;
    const TemporaryFolder behind_;
    const TemporaryFolder shown_;
    fuse* fuse_ = nullptr;
    bool isMounted_ = false;
    std::jthread thread_;
};

} // namespace tessary
