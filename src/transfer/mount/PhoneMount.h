#pragma once

#include "base/local/ScratchFolder.h"
#include "phone/records/DeviceInfo.h"
#include "platform/mount/FileMount.h"
#include "transfer/mount/OpenMountedFiles.h"
#include "transfer/mount/PhoneFolder.h"

#include <memory>
#include <optional>
#include <vector>

namespace tessary {

/// A phone (an app's documents, the photos) as a folder of this computer, for reading only: every
/// program can look around in it, and what a file holds comes across as it is read.
class PhoneMount final : private MountedFiles {
public:
    /// Shows the trees in `mountPoint`, an empty folder; one alone is the folder itself, several
    /// lie in it by their names. Null where this system cannot do it. Blocks for some milliseconds;
    /// asks the phone nothing. `failed` is told of what could not be had.
    [[nodiscard]] static std::unique_ptr<PhoneMount>
    mount(const std::shared_ptr<PhoneFileSystem>& files, const std::vector<FileTreeRoot>& trees,
          const QString& mountPoint, const MountedFile::Failed& failed);
    /// The same in a folder of its own, which is called `name` as far as that can be and goes with
    /// the mount: for a phone that is opened in the desktop's file manager.
    [[nodiscard]] static std::unique_ptr<PhoneMount>
    mountByName(const std::shared_ptr<PhoneFileSystem>& files,
                const std::vector<FileTreeRoot>& trees, const QString& name,
                const MountedFile::Failed& failed);
    /// Lets all readers go and takes the folder away.
    ~PhoneMount() override;

    /// Where it is mounted.
    [[nodiscard]] const QString& path() const {
        return path_;
    }
    /// Where a folder of the phone, by its canonical path, is shown; path() for one that is in none
    /// of the trees.
    [[nodiscard]] QString localPath(const QString& folder) const;
    [[nodiscard]] bool isBeingRead() const {
        return open_.areAny();
    }

private:
    struct Place {
        PhoneFolder* tree = nullptr; ///< null at the top of several
        QStringList names;           ///< below the tree
    };

    PhoneMount(const std::shared_ptr<PhoneFileSystem>& files,
               const std::vector<FileTreeRoot>& trees, const MountedFile::Failed& failed);
    [[nodiscard]] Place placeOf(const QString& path);

    Entry entry(const QString& path) override;
    std::vector<Entry> list(const QString& path) override;
    std::unique_ptr<Reader> open(const QString& path) override;

    bool mountAt(const QString& mountPoint);

    std::optional<ScratchFolder> ownFolder_; ///< around a mount point of our own
    QString path_;
    std::vector<std::unique_ptr<PhoneFolder>> trees_;
    OpenMountedFiles open_;
    std::unique_ptr<FileMount> mount_; ///< last: it asks for all of the above until it ends
};

/// What a mount of a whole phone shows: a tree for each of several storages, else the one that the
/// phone begins with.
[[nodiscard]] std::vector<FileTreeRoot> mountedTrees(const PhoneFileSystem& files,
                                                     const std::vector<StorageVolume>& volumes);

} // namespace tessary
