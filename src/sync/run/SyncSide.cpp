#include "sync/run/SyncSide.h"

#include "base/local/LocalError.h"
#include "base/text/PathNames.h"
#include "base/threads/CancellationError.h"
#include "phone/TreeLimits.h"
#include "sync/plan/SyncError.h"
#include "transfer/copy/CopyErrors.h"
#include "transfer/copy/Leftovers.h"

#include <QSet>

namespace tessary {

namespace {

QString below(const QString& folder, const QString& name) {
    return folder.isEmpty() ? name : folder + QLatin1Char('/') + name;
}

/// Whether a folder that could not be listed is skipped, and not the end of the scan.
bool leavesRest(const Error& error) {
    return error.code().layer() == ErrorLayer::local ||
           (concernsOneItem(error) && !error.is(PhoneError::listingBroken));
}

/// The names that files of a folder are known by.
QStringList namesIn(const SyncFiles& known, const QString& folder) {
    QStringList names;
    const QString prefix = folder.isEmpty() ? QString() : folder + QLatin1Char('/');
    for (auto it = known.lower_bound(prefix); it != known.end() && it->first.startsWith(prefix);
         ++it)
        if (const QString name = it->first.mid(prefix.size()); !name.contains(u'/'))
            names.append(name);
    return names;
}

} // namespace

SyncFile syncFileOf(const FileItem& item) {
    return {item.size, syncDate(item.modifiedDate), item.modifiedDate.has_value()};
}

SyncSide::SyncSide(PhoneFileSystem& files, const QString& root)
    : files_(files), root_(files.canonicalPath(root)) {}

QString SyncSide::pathOf(const QString& relativePath) const {
    return relativePath.isEmpty() ? root_ : joinPath(root_, relativePath);
}

FileItem SyncSide::itemOf(const QString& relativePath, const SyncFile& seen) const {
    return {lastComponent(relativePath), pathOf(relativePath), false, seen.size,
            seen.isDated ? std::optional(seen.date) : std::nullopt};
}

bool SyncSide::exists(const Call& call) {
    std::optional<FileItem> found;
    try {
        found = files_.find(root_, call);
    } catch (const Error& error) {
        if (!error.is(LocalError::notFound) && !error.is(PhoneError::notFound))
            throw;
    }
    if (found && !found->isDirectory)
        throw Error(SyncError::sourceIsNoFolder, {root_});
    if (!found && files_.queue()) // of this computer's disk there is no doubt
        requireAbsent(call);
    return found.has_value();
}

/// An entry that the phone keeps to itself may be the folder, and the paths of a storage that is
/// not in lead into another one.
void SyncSide::requireAbsent(const Call& call) {
    const QString top = files_.rootOf(root_).path;
    for (QString path = root_; path.size() > 1; path = parentPath(path)) {
        if (path == top)
            throw Error(PhoneError::noStorage);
        const QString above = parentPath(path);
        if (!files_.find(above, call))
            continue;
        for (const UnreadableEntry& entry : listAll(files_, above, call).unreadable)
            if (!entry.isNamed || entry.path == path)
                throw Error(SyncError::notListed, {path}, entry.error);
        return;
    }
}

std::optional<FileItem> SyncSide::findFile(const QString& relativePath, const Call& call) {
    auto found = files_.find(pathOf(relativePath), call);
    return found && !found->isDirectory ? std::move(found) : std::nullopt;
}

SyncTree SyncSide::scan(const SyncPatterns& patterns, Leftovers leftovers, const SyncFiles& known,
                        const Call& call) {
    SyncTree tree;
    tree.dateStep = files_.capabilities(call).dateStep;
    std::vector<Folder> waiting{{}};
    while (!waiting.empty()) {
        throwIfStopped(call.stop);
        const Folder folder = std::move(waiting.back());
        waiting.pop_back();
        if (static_cast<qint64>(tree.files.size() + tree.unknown.size() + tree.folders.size()) >
            mostWalkedEntries)
            throw Error(PhoneError::listingBroken, {pathOf(folder.relativePath)});
        try {
            scanFolder(tree, folder, waiting, patterns, leftovers, known, call);
        } catch (const Error& error) {
            if (folder.relativePath.isEmpty() || !leavesRest(error))
                throw;
            tree.unknown.insert_or_assign(folder.relativePath, error);
        }
    }
    made_ = tree.folders;
    made_.insert(QString());
    return tree;
}

void SyncSide::scanFolder(SyncTree& tree, const Folder& folder, std::vector<Folder>& waiting,
                          const SyncPatterns& patterns, Leftovers leftovers, const SyncFiles& known,
                          const Call& call) {
    Listing listing = listAll(files_, pathOf(folder.relativePath), call);
    for (UnreadableEntry& entry : listing.unreadable)
        if (const QString path = below(folder.relativePath, lastComponent(entry.path));
            !patterns.excludes(path, false) && !patterns.excludes(path, true))
            tree.unknown.insert_or_assign(path, std::move(entry.error));
    QSet<QString> taken;
    for (const FileItem& item : withoutLeftovers(std::move(listing.items), leftovers,
                                                 namesIn(known, folder.relativePath), call)) {
        const QString path = below(folder.relativePath, item.name);
        if (item.name == SyncManifest::fileName || patterns.excludes(path, item.isDirectory))
            continue;
        if (!isSafeName(item.name)) {
            tree.unknown.insert_or_assign(path, Error(PhoneError::nameNotAllowed, {item.name}));
        } else if (taken.contains(item.name)) {
            tree.files.erase(path);
            tree.unknown.insert_or_assign(path, Error(SyncError::twice, {path}));
        } else if (item.isDirectory) {
            tree.folders.insert(path);
            if (folder.depth < deepestFolder)
                waiting.push_back({path, folder.depth + 1});
            else
                tree.unknown.insert_or_assign(path, Error(SyncError::tooDeep, {path}));
        } else if (item.size < 0) {
            tree.unknown.insert_or_assign(path, Error(SyncError::sizeUnknown, {path}));
        } else {
            tree.files.insert_or_assign(path, syncFileOf(item));
        }
        taken.insert(item.name);
    }
}

std::vector<FileItem> SyncSide::withoutLeftovers(std::vector<FileItem> items, Leftovers leftovers,
                                                 const QStringList& awaited, const Call& call) {
    if (leftovers == Leftovers::finished)
        return tidied(files_, std::move(items), files_.nameRules(root_, call), awaited, call);
    QSet<QString> names;
    for (const FileItem& item : items)
        names.insert(item.name);
    std::vector<FileItem> shown;
    for (FileItem& item : items) {
        if (isPartName(item.name)) {
            const auto part = partNameOf(item.name, awaited);
            if (!part || !part->awaited || names.contains(*part->awaited))
                continue;
            item.name = *part->awaited;
        }
        shown.push_back(std::move(item));
    }
    return shown;
}

std::map<QString, SyncFile> SyncSide::filesIn(const QString& relativeFolder, const Call& call) {
    std::map<QString, SyncFile> found;
    try {
        for (const FileItem& item : listAll(files_, pathOf(relativeFolder), call).items)
            if (!item.isDirectory)
                found.insert_or_assign(item.name, syncFileOf(item));
    } catch (const Error& error) {
        if (!leavesRest(error))
            throw;
    }
    return found;
}

QString SyncSide::makeFoldersAbove(const QString& relativePath, const Call& call) {
    const QString folder = folderOf(relativePath);
    if (made_.contains(folder))
        return pathOf(folder);
    const auto make = [&](const QString& path) {
        const auto found = files_.find(path, call);
        if (!found)
            (void)files_.makeFolder(parentPath(path), lastComponent(path), call);
        else if (!found->isDirectory)
            throw Error(SyncError::kindsDiffer, {path});
    };
    if (folder.isEmpty()) {
        // The pair's own folder may be missing as well, with those above it.
        QStringList missing;
        for (QString path = root_; lastComponent(path) != QString() && !files_.find(path, call);
             path = parentPath(path))
            missing.prepend(path);
        for (const QString& path : missing)
            make(path);
    } else {
        (void)makeFoldersAbove(folder, call);
        make(pathOf(folder));
    }
    made_.insert(folder);
    return pathOf(folder);
}

void SyncSide::removeEmptyFolders(QString relativeFolder, const Call& call) {
    for (; !relativeFolder.isEmpty(); relativeFolder = folderOf(relativeFolder)) {
        try {
            const auto found = files_.find(pathOf(relativeFolder), call);
            if (!found || !found->isDirectory)
                return;
            files_.remove(*found, call);
            made_.erase(relativeFolder);
        } catch (const Error& error) {
            if (endsCopy(error))
                throw;
            return; // it is not empty
        }
    }
}

} // namespace tessary
