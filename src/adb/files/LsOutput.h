#pragma once

#include "base/local/LocalTree.h"
#include "phone/records/FileItem.h"

#include <QByteArray>
#include <QString>

#include <optional>
#include <vector>

namespace tessary {

/// One line of `ls -la`.
struct LsEntry {
    QString name;
    char type = '-'; ///< first letter of the permissions: '-', 'd', 'l', 'c', 'b', 'p' or 's'
    qint64 size = 0; ///< bytes; 0 for folders, and where the line gives none
    std::optional<QDateTime> modified; ///< in the phone's zone, taken as this machine's
    bool isReadable = true;            ///< false when the phone shows "?" for its facts

    bool operator==(const LsEntry&) const = default;
};

/// The entry of a line without its line break; no value for one that is none. The name is what
/// stands behind the date and one blank: it keeps all its own blanks. A link's target is cut off. A
/// "name" with a slash is none.
[[nodiscard]] std::optional<LsEntry> parseLsLine(QByteArrayView line);

/// The entries that can be read out of `ls -la` output, without "." and "..". Folders and links
/// count as folders. Lines that are no entries are left out.
[[nodiscard]] std::vector<FileItem> parseLsOutput(const QByteArray& output,
                                                  const QString& parentPath);

/// A folder of which every entry is known.
struct CheckedListing {
    std::vector<FileItem> items;      ///< files and folders
    std::vector<SkippedItem> skipped; ///< links and special files
};

/// The same for `ls -la` output that ends with the line `endMarker`: no value when the marker is
/// missing, when a line is no entry, or when an entry's facts are unreadable.
[[nodiscard]] std::optional<CheckedListing>
parseCheckedLsOutput(const QByteArray& output, const QString& parentPath, QByteArrayView endMarker);

} // namespace tessary
