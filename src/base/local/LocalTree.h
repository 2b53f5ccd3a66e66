#pragma once

#include <QDateTime>
#include <QString>

#include <vector>

namespace tessary {

/// One entry below a local folder.
struct LocalEntry {
    QString relativePath; ///< with "/" between components
    bool isDirectory = false;
    qint64 size = 0; ///< bytes
};

/// What an upload leaves out, and why.
struct SkippedItem {
    QString path;
    QString reason;

    bool operator==(const SkippedItem&) const = default;
};

struct LocalTree {
    std::vector<LocalEntry> entries; ///< a folder comes before its contents
    std::vector<SkippedItem> skipped;
    qint64 fileCount = 0;
    qint64 byteCount = 0;
};

/// Everything below a local folder, hidden files included, sorted by path. Links to files count as
/// the files; links to folders and what is neither file nor folder are skipped. Throws
/// TessaryError::fileIOError "Cannot enumerate <path>" when the folder cannot be read.
[[nodiscard]] LocalTree collectLocalFiles(const QString& folder);

struct LocalDirectoryStats {
    qint64 totalFiles = 0;
    qint64 totalBytes = 0;
};

/// Files and bytes below a local folder; zeros when it cannot be read.
[[nodiscard]] LocalDirectoryStats calculateLocalDirectoryStats(const QString& at);

} // namespace tessary
