#pragma once

#include "phone/PhoneFileSystem.h"

#include <QImage>

#include <mutex>
#include <optional>

namespace tessary {

/// Thumbnails on the local disk, in the folder "TessaryThumbnails" of the user's caches: one PNG
/// each, named by a hash of connection, path, size and date, so that a file that changed is another
/// one. Together they stay below a number of bytes; the oldest go first. Thread-safe; all but key()
/// blocks.
class ThumbnailCache {
public:
    static constexpr qint64 defaultMaxBytes = 200'000'000;

    /// The one of this user.
    [[nodiscard]] static ThumbnailCache& shared();

    /// `folder` is made when it is needed; every PNG in it belongs to the cache.
    explicit ThumbnailCache(QString folder, qint64 maxBytes = defaultMaxBytes);

    /// What stands for a file in this state. Pure.
    [[nodiscard]] static QString key(const PhoneFileSystem& files, const FileItem& item);

    /// Nothing when there is none, or none that can be read.
    [[nodiscard]] std::optional<QImage> load(const QString& key) const;
    /// Does nothing where it cannot write: a thumbnail can be made again.
    void store(const QString& key, const QImage& image);

private:
    [[nodiscard]] QString pathOf(const QString& key) const;
    void makeRoom();

    const QString folder_;
    const qint64 maxBytes_;
    std::mutex mutex_;
    qint64 storedSinceCount_ = 0; ///< guarded by mutex_
    bool isCounted_ = false;      ///< guarded by mutex_
};

} // namespace tessary
