#pragma once

#include "base/values/Error.h"

#include <QDateTime>
#include <QString>

#include <algorithm>
#include <chrono>
#include <map>
#include <optional>
#include <set>

namespace tessary {

/// A file as a listing shows it.
struct SyncFile {
    qint64 size = 0;     ///< bytes
    QDateTime date;      ///< UTC, see syncDate()
    bool isDated = true; ///< false: the side gives no date, and `date` is 1970

    bool operator==(const SyncFile&) const = default;
};

/// A date as the sync compares and stores it: UTC, in the years 1 to 9999; none is 1970.
[[nodiscard]] QDateTime syncDate(const std::optional<QDateTime>& date);

/// A date as it is stored: without what lies below the second.
[[nodiscard]] QDateTime wholeSeconds(const QDateTime& date);

/// What the checked listings of one side found. Paths are relative: components joined by "/", none
/// in front.
struct SyncTree {
    std::map<QString, SyncFile> files;
    std::set<QString> folders; ///< the root itself aside
    /// What is there and could not be looked at, or cannot be synced. Neither a file nor the lack
    /// of one: nothing is known of the path and of anything below it.
    std::map<QString, Error> unknown;
    /// The steps in which dates are listed.
    std::chrono::milliseconds dateStep{1000};

    /// Whether anything has the path.
    [[nodiscard]] bool contains(const QString& path) const {
        return files.contains(path) || folders.contains(path) || unknown.contains(path);
    }
};

/// Everything of a relative path before its last component; empty for what lies at the root.
[[nodiscard]] inline QString folderOf(const QString& relativePath) {
    return relativePath.left(std::max<qsizetype>(0, relativePath.lastIndexOf(u'/')));
}

} // namespace tessary
