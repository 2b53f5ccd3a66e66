#include "transfer/import/CameraFolders.h"

#include "base/text/PathNames.h"
#include "base/threads/CancellationError.h"
#include "phone/TreeLimits.h"

namespace tessary {

namespace {

class Lister {
public:
    Lister(PhoneFileSystem& files, const std::function<void(std::size_t)>& found, const Call& call)
        : files_(files), found_(found), call_(call) {}

    void listBelow(const QString& folder, int depth) {
        throwIfStopped(call_.stop);
        Listing listing;
        try {
            if (depth >= deepestFolder)
                throw Error(PhoneError::insideItself, {folder});
            if (count_ > mostWalkedEntries)
                throw Error(PhoneError::listingBroken, {folder});
            listing = listAll(files_, folder, call_);
            count_ += static_cast<qint64>(listing.items.size());
        } catch (const Error& error) {
            if (endsEverything(error))
                throw;
            if (depth > 0 || !error.is(PhoneError::notFound))
                all_.unreadable.push_back({folder, error});
            return;
        }
        for (UnreadableEntry& entry : listing.unreadable)
            if (!lastComponent(entry.path).startsWith(u'.'))
                all_.unreadable.push_back(std::move(entry));
        QStringList below;
        for (FileItem& item : listing.items) {
            if (item.name.startsWith(u'.'))
                continue;
            if (item.isDirectory)
                below << item.path;
            else
                all_.files.push_back(std::move(item));
        }
        if (found_)
            found_(all_.files.size());
        for (const QString& path : below)
            listBelow(path, depth + 1);
    }

    [[nodiscard]] CameraFiles take() {
        return std::move(all_);
    }

private:
    PhoneFileSystem& files_;
    const std::function<void(std::size_t)>& found_;
    const Call& call_;
    CameraFiles all_;
    qint64 count_ = 0; ///< entries seen
};

} // namespace

QStringList cameraFoldersOf(const DeviceInfo& device) {
    const QString folder = QStringLiteral("DCIM");
    if (device.platform == DevicePlatform::iOS)
        return {joinPath(QStringLiteral("/"), folder)};
    QStringList folders{joinPath(QStringLiteral("/sdcard"), folder)};
    for (std::size_t i = 1; i < device.volumes.size(); ++i)
        folders << joinPath(QStringLiteral("/storage/") + device.volumes[i].id, folder);
    return folders;
}

CameraFiles listCameraFiles(PhoneFileSystem& files, const QStringList& folders,
                            const std::function<void(std::size_t)>& found, const Call& call) {
    Lister lister(files, found, call);
    for (const QString& folder : folders)
        lister.listBelow(folder, 0);
    return lister.take();
}

} // namespace tessary
