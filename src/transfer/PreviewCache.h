#pragma once

#include "phone/FileAccess.h"

#include <QString>

#include <mutex>
#include <optional>
#include <stop_token>

namespace tessary {

/// Local copies of device files for previews, in the folder "TessaryCache" of the user's caches.
/// Each lies in a folder of its own that stands for connection, path, size and date: a file that
/// changed is another file. Copies are reused; together they stay below a number of bytes, the
/// ones not used for longest go first. Thread-safe and blocking.
class PreviewCache {
public:
    static constexpr qint64 defaultMaxBytes = qint64{2} * 1000 * 1000 * 1000;

    /// The one of this user.
    [[nodiscard]] static PreviewCache& shared();

    /// `folder` is made when it is needed; everything in it belongs to the cache.
    explicit PreviewCache(QString folder, qint64 maxBytes = defaultMaxBytes);

    /// The copy of a file, when there is one.
    [[nodiscard]] std::optional<QString> find(const FileAccess& files, const FileItem& item) const;

    /// The copy of a file, made first when there is none. TessaryError::fileIOError for a folder
    /// and for a file that is larger than half of the cache.
    [[nodiscard]] QString fetch(FileAccess& files, const FileItem& item,
                                const FileProgressCallback& progress, const std::stop_token& stop);

    /// Where the copy of a file lies once there is one.
    [[nodiscard]] QString pathOf(const FileAccess& files, const FileItem& item) const;

private:
    void makeRoom(const QString& keep);

    const QString folder_;
    const qint64 maxBytes_;
    std::mutex mutex_; ///< held while copies are counted and removed
};

} // namespace tessary
