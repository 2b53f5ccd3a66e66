#include "sync/old/plan/SyncTreeWalk.h"

#include "base/local/PartFile.h"
#include "base/text/PathNames.h"
#include "base/values/TessaryError.h"

#include <QFile>
#include <QSet>

namespace tessary {

namespace {

/// Paths of a real tree are far shorter.
constexpr int maxDepth = 128;

void walk(SyncScan& scan, const QString& folder, const QString& prefix, const SyncListing& list,
          int depth) {
    if (depth > maxDepth)
        throw TessaryError::fileIOError(
            QStringLiteral("The device lists %1 inside itself.").arg(folder));
    std::vector<SkippedItem> skipped;
    const std::vector<FileItem> items = list(folder, skipped);
    addListing(scan, items, prefix);
    for (const SkippedItem& one : skipped)
        scan.unusable[prefix + lastComponent(one.path)] = one.reason;
    for (const FileItem& item : items) {
        const QString path = prefix + item.name;
        if (item.isDirectory && scan.folders.contains(path))
            walk(scan, joinPath(folder, item.name), path + QLatin1Char('/'), list, depth + 1);
    }
}

} // namespace

void addListing(SyncScan& scan, const std::vector<FileItem>& items, const QString& prefix) {
    QSet<QString> taken;
    for (const FileItem& item : items) {
        const QString path = prefix + item.name;
        if (item.name == SyncManifest::fileName) {
            scan.hasManifest |= prefix.isEmpty() && !item.isDirectory;
        } else if (!isSafeName(item.name)) {
            scan.unusable[path] = QStringLiteral("its name cannot be part of a path");
        } else if (taken.contains(item.name)) {
            scan.files.erase(path);
            scan.folders.erase(path);
            scan.unusable[path] = QStringLiteral("the device has several entries of this name");
        } else if (item.isDirectory) {
            scan.folders.insert(path);
        } else if (item.name.startsWith(PartFile::namePrefix)) {
            scan.leftovers.insert_or_assign(path, syncDate(item.modifiedDate));
        } else if (item.size < 0) {
            scan.unusable[path] = QStringLiteral("the device does not tell its size");
        } else {
            scan.files.insert_or_assign(
                path, SyncFileEntry{item.size, syncDate(item.modifiedDate), {}, {}});
        }
        taken.insert(item.name);
    }
}

SyncScan scanTree(const QString& root, const SyncListing& list) {
    SyncScan scan;
    walk(scan, root, {}, list, 0);
    return scan;
}

std::optional<QByteArray> localSample(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return std::nullopt;
    const QByteArray sample = file.read(syncSampleSize);
    return file.error() == QFileDevice::NoError ? std::optional(sample) : std::nullopt;
}

} // namespace tessary
