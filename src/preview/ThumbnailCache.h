#pragma once

#include "base/local/PrivateFolder.h"

#include <QImage>

#include <memory>
#include <mutex>
#include <optional>

namespace tessary {

/// Thumbnails on the local disk, in a folder of this user's cache that nobody else can reach: one
/// PNG each, named by fileKey(), so that a file that changed is another one. Together they stay
/// below a number of bytes; the oldest go first. Thread-safe and blocking.
class ThumbnailCache {
public:
    static constexpr qint64 defaultMaxBytes = 200'000'000;

    /// The one of this user.
    [[nodiscard]] static ThumbnailCache& shared();

    /// `name` is the folder's in the cache, made when it is needed; everything in it belongs to the
    /// thumbnails.
    explicit ThumbnailCache(QString name, qint64 maxBytes = defaultMaxBytes);

    /// Nothing when there is none, or none that can be read.
    [[nodiscard]] std::optional<QImage> load(const QString& key) const;
    /// Does nothing where it cannot write: a thumbnail can be made again.
    void store(const QString& key, const QImage& image);

private:
    [[nodiscard]] int folder() const;
    void makeRoom();

    const QString name_;
    const qint64 maxBytes_;
    mutable std::mutex mutex_;
    mutable std::unique_ptr<PrivateFolder> folder_; ///< null until it is needed; guarded
    qint64 storedSinceCount_ = 0;                   ///< guarded
    bool isCounted_ = false;                        ///< guarded
};

} // namespace tessary
