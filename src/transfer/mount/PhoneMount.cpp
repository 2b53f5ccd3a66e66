#include "transfer/mount/PhoneMount.h"

#include "base/text/PathNames.h"

#include <cerrno>
#include <system_error>

namespace tessary {

std::unique_ptr<PhoneMount> PhoneMount::mount(const std::shared_ptr<PhoneFileSystem>& files,
                                              const std::vector<FileTreeRoot>& trees,
                                              const QString& mountPoint,
                                              const MountedFile::Failed& failed) {
    std::unique_ptr<PhoneMount> made(new PhoneMount(files, trees, failed));
    made->mount_ = mountFiles(*made, mountPoint);
    return made->mount_ ? std::move(made) : nullptr;
}

PhoneMount::PhoneMount(const std::shared_ptr<PhoneFileSystem>& files,
                       const std::vector<FileTreeRoot>& trees, const MountedFile::Failed& failed) {
    const auto isTaken = [this](const QString& name) {
        return std::any_of(trees_.begin(), trees_.end(),
                           [&name](const auto& tree) { return tree->top().name == name; });
    };
    for (const FileTreeRoot& tree : trees) {
        // A storage's name is the phone's own.
        const QString wanted = isSafeName(tree.name) && !isTooLongName(tree.name)
                                   ? tree.name
                                   : QStringLiteral("phone");
        const QString name = freeNameUnder({}, wanted, true, isTaken);
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
