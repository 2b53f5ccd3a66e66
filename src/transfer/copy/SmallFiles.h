#pragma once

#include "phone/PhoneFileSystem.h"

#include <functional>
#include <optional>
#include <vector>

namespace tessary {

/// Small files on their way into one folder, gathered until there are enough of them to be sent
/// together.
class SmallFiles {
public:
    static constexpr qint64 largestFile = 128 * 1024; ///< bytes
    static constexpr qint64 mostBytes = 1024 * 1024;  ///< of all
    static constexpr std::size_t mostFiles = 64;

    struct One {
        FileItem file;
        QString name; ///< is free at the target
    };

    [[nodiscard]] static bool takes(const FileItem& file) {
        return !file.isDirectory && file.size >= 0 && file.size <= largestFile;
    }
    void add(One one) {
        bytes_ += one.file.size;
        files_.push_back(std::move(one));
    }
    [[nodiscard]] bool isFull() const {
        return files_.size() >= mostFiles || bytes_ >= mostBytes;
    }
    [[nodiscard]] const std::vector<One>& all() const {
        return files_;
    }

    /// One of them has its name; `n` is its place in all().
    using Made = std::function<void(std::size_t n, const FileItem& file)>;

    /// Copies all of them and tells `made` of each as soon as that is so, whatever comes after it.
    /// One that it is not told of is to be copied alone, which says why it cannot. A source that is
    /// not what was seen gets no name, as with copyFile(), when `checksSource`. `progress` counts
    /// the bytes that are across of files without a name. Throws CancellationError, what the
    /// callbacks throw, and Error that endsEverything().
    void copy(PhoneFileSystem& from, PhoneFileSystem& to, const QString& folder, bool checksSource,
              const Made& made, const ByteProgress& progress, const Call& call) const;

private:
    [[nodiscard]] std::vector<std::optional<QByteArray>> contents(PhoneFileSystem& from,
                                                                  const Call& call) const;
    [[nodiscard]] static std::optional<FileItem> put(PhoneFileSystem& to, const QString& folder,
                                                     const SmallFile& file, const Call& call);

    std::vector<One> files_;
    qint64 bytes_ = 0;
};

} // namespace tessary
