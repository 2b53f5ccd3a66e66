#include "base/local/LocalTree.h"

#include "base/values/TessaryError.h"

#include <QDir>
#include <QDirIterator>
#include <QFileInfo>

#include <algorithm>

namespace tessary {

namespace {

void addEntry(LocalTree& tree, const QDir& root, const QFileInfo& info) {
    const QString relative = root.relativeFilePath(info.filePath());
    if (info.isDir() && info.isSymLink()) {
        tree.skipped.push_back({relative, QStringLiteral("a link to a folder")});
    } else if (info.isDir()) {
        if (!info.isReadable() || !info.isExecutable())
            tree.skipped.push_back({relative, QStringLiteral("the folder cannot be read")});
        tree.entries.push_back({relative, true, 0});
    } else if (!info.exists()) {
        tree.skipped.push_back({relative, QStringLiteral("a link that leads nowhere")});
    } else if (!info.isFile()) {
        // Reading a pipe or a device would never end.
        tree.skipped.push_back({relative, QStringLiteral("not a regular file")});
    } else {
        tree.entries.push_back({relative, false, info.size()});
        ++tree.fileCount;
        tree.byteCount += info.size();
    }
}

} // namespace

LocalTree collectLocalFiles(const QString& folder) {
    const QFileInfo rootInfo(folder);
    if (!rootInfo.isDir() || !rootInfo.isReadable() || !rootInfo.isExecutable())
        throw TessaryError::fileIOError(QStringLiteral("Cannot enumerate ") + folder);
    const QDir root(folder);
    LocalTree tree;
    QDirIterator walk(folder, QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot,
                      QDirIterator::Subdirectories);
    while (walk.hasNext()) {
        walk.next();
        addEntry(tree, root, walk.fileInfo());
    }
    std::stable_sort(
        tree.entries.begin(), tree.entries.end(),
        [](const LocalEntry& a, const LocalEntry& b) { return a.relativePath < b.relativePath; });
    return tree;
}

LocalDirectoryStats calculateLocalDirectoryStats(const QString& at) {
    LocalDirectoryStats stats;
    QDirIterator walk(at, QDir::Files | QDir::Hidden | QDir::NoDotAndDotDot,
                      QDirIterator::Subdirectories);
    while (walk.hasNext()) {
        walk.next();
        ++stats.totalFiles;
        stats.totalBytes += walk.fileInfo().size();
    }
    return stats;
}

} // namespace tessary
