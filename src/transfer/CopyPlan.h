#pragma once

#include "phone/FileAccess.h"
#include "phone/records/FileItem.h"

#include <QDateTime>
#include <QHash>
#include <QString>
#include <QStringList>

#include <memory>
#include <optional>
#include <stop_token>
#include <vector>

namespace tessary {

/// What becomes of an entry whose name is taken where it is to be copied.
enum class NameClash {
    keepBoth, ///< the copy gets a number: "a (2).txt"
    replace,  ///< a file is replaced, a folder merged
    skip,
};

/// One of two entries that share a name.
struct CopySide {
    qint64 size = 0; ///< bytes
    std::optional<QDateTime> date;
};

/// Something that is to be copied.
struct CopyCandidate {
    QString key; ///< FileItem::id() for a download, the local path for an upload
    QString name;
    QString freeName; ///< what "keep both" calls the copy: `name` where that is not taken
    bool isFolder = false;
    CopySide coming;
    std::optional<CopySide> existing; ///< what has the name already
    qint64 bytes = 0;                 ///< to be moved
};

using CopyChoices = QHash<QString, NameClash>; ///< by key; keepBoth for what is not in it

/// What a copy will meet, found out before anything is moved.
struct CopyPlan {
    std::vector<CopyCandidate> candidates;
    QString target;     ///< the folder
    QString targetName; ///< as the user knows it, or its device
    /// Bytes at the target less what waits in the queue for them; no value when nobody knows.
    std::optional<qint64> freeBytes;
    /// Not everything could be counted: the bytes are the least that will be moved.
    bool isPartial = false;

    bool isUpload = false;
    std::shared_ptr<FileAccess> files; ///< the other side
    std::vector<FileItem> items;       ///< of a download, one for each candidate

    /// What the copy takes for itself at its worst moment: an older file goes when the new one is
    /// there.
    [[nodiscard]] qint64 neededBytes(const CopyChoices& choices) const;
};

/// A copy in the queue that has not ended.
struct QueuedDownload {
    QString folder; ///< local
    qint64 bytes = 0;
};

/// What is known beforehand.
struct DownloadPlan {
    std::vector<FileItem> items;
    QString target;
    std::vector<QueuedDownload> queued;
    /// No folder of the phone holds more; without a value folders are counted.
    std::optional<qint64> mostBytes;
};

struct UploadPlan {
    QStringList paths;
    QString target;
    /// What is in the target; without a value it is listed.
    std::optional<std::vector<FileItem>> entries;
    std::optional<qint64> freeBytes;
};

/// Blocking; throws CancellationError alone. Once `stopCounting` asks for it, folders that have not
/// been counted are left out. Names that are no safe ones have no free name.
[[nodiscard]] CopyPlan surveyDownload(const std::shared_ptr<FileAccess>& files, DownloadPlan plan,
                                      const std::stop_token& stopCounting,
                                      const std::stop_token& stop);
/// The same. A target that cannot be listed counts as empty: the copy says why.
[[nodiscard]] CopyPlan surveyUpload(const std::shared_ptr<FileAccess>& files, UploadPlan plan,
                                    const std::stop_token& stopCounting,
                                    const std::stop_token& stop);

} // namespace tessary
