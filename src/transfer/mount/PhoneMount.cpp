#include "transfer/mount/PhoneMount.h"

#include "base/local/PrivateFolder.h"
#include "base/log/DiagnosticsLogger.h"
#include "base/text/PathNames.h"

#include <algorithm>
#include <cerrno>
#include <system_error>

namespace tessary {

namespace {

/// A phone's and a storage's name is their own; one that hid the folder would show nobody anything.
QString usableName(const QString& name) {
    const bool isUsable =
        isSafeName(name) && name.isValidUtf16() && !isTooLongName(name) && !name.startsWith(u'.');
    return isUsable ? name : QStringLiteral("phone");
}

} // namespace

std::unique_ptr<PhoneMount> PhoneMount::mount(const std::shared_ptr<PhoneFileSystem>& files,
                                              const std::vector<FileTreeRoot>& trees,
                                              const QString& mountPoint,
                                              const MountedFile::Failed& failed) {
    std::unique_ptr<PhoneMount> made(new PhoneMount(files, trees, failed));
    return made->mountAt(mountPoint) ? std::move(made) : nullptr;
}

std::unique_ptr<PhoneMount> PhoneMount::mountByName(const std::shared_ptr<PhoneFileSystem>& files,
                                                    const std::vector<FileTreeRoot>& trees,
                                                    const QString& name,
                                                    const MountedFile::Failed& failed) {
    std::unique_ptr<PhoneMount> made(new PhoneMount(files, trees, failed));
    try {
        made->ownFolder_.emplace(
            PrivateFolder(PrivateFolder::Place::runtime, QStringLiteral("mounts")));
        const PrivateFolder mountPoint(made->ownFolder_->path(), usableName(name));
        return made->mountAt(mountPoint.path()) ? std::move(made) : nullptr;
    } catch (const Error& error) {
        DiagnosticsLogger::shared().ui.standard("No folder to mount a phone in: %s",
                                                {error.logText()});
        return nullptr;
    }
}

bool PhoneMount::mountAt(const QString& mountPoint) {
    path_ = mountPoint;
    mount_ = mountFiles(*this, mountPoint);
    return mount_ != nullptr;
}

PhoneMount::PhoneMount(const std::shared_ptr<PhoneFileSystem>& files,
                       const std::vector<FileTreeRoot>& trees, const MountedFile::Failed& failed) {
    const auto isTaken = [this](const QString& name) {
        return std::any_of(trees_.begin(), trees_.end(),
                           [&name](const auto& tree) { return tree->top().name == name; });
    };
    for (const FileTreeRoot& tree : trees) {
        const QString name = freeNameUnder({}, usableName(tree.name), true, isTaken);
        trees_.push_back(
            std::make_unique<PhoneFolder>(files, FileItem(name, tree.path, true, 0, {}),
                                          PhoneFolder::Listings::keptForSeconds, failed));
    }
}

PhoneMount::~PhoneMount() {
    for (const auto& tree : trees_)
        tree->stop();
    mount_.reset();
}

QString PhoneMount::localPath(const QString& folder) const {
    for (const auto& tree : trees_) {
        const QString& top = tree->top().path;
        const QString shown = trees_.size() == 1 ? path_ : joinPath(path_, tree->top().name);
        if (isAtOrBelow(folder, top))
            return folder == top ? shown : joinPath(shown, folder.mid(joinPath(top, {}).size()));
    }
    return path_;
}

std::vector<FileTreeRoot> mountedTrees(const PhoneFileSystem& files,
                                       const std::vector<StorageVolume>& volumes) {
    if (volumes.size() < 2)
        return {files.rootOf(QStringLiteral("/"))};
    std::vector<FileTreeRoot> trees;
    for (const StorageVolume& volume : volumes)
        trees.push_back(
            {files.canonicalPath(QStringLiteral("/storage/") + volume.id), volume.name});
    return trees;
}

PhoneMount::Place PhoneMount::placeOf(const QString& path) {
    QStringList names = path.split(QLatin1Char('/'), Qt::SkipEmptyParts);
    if (trees_.size() == 1)
        return {trees_.front().get(), std::move(names)};
    if (names.isEmpty())
        return {};
    const QString first = names.takeFirst();
    for (const auto& tree : trees_)
        if (tree->top().name == first)
            return {tree.get(), std::move(names)};
    throw std::system_error(ENOENT, std::generic_category());
}

MountedFiles::Entry PhoneMount::entry(const QString& path) {
    const Place place = placeOf(path);
    if (place.tree == nullptr)
        return {{}, true, 0, {}};
    return place.tree->entry(place.names);
}

std::vector<MountedFiles::Entry> PhoneMount::list(const QString& path) {
    const Place place = placeOf(path);
    if (place.tree != nullptr)
        return place.tree->list(place.names);
    std::vector<Entry> entries;
    for (const auto& tree : trees_)
        entries.push_back({tree->top().name, true, 0, {}});
    return entries;
}

std::unique_ptr<MountedFiles::Reader> PhoneMount::open(const QString& path) {
    const Place place = placeOf(path);
    if (place.tree == nullptr)
        throw std::system_error(EISDIR, std::generic_category());
    return open_.add(place.tree->open(place.names));
}

} // namespace tessary
