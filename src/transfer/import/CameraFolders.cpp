#include "transfer/import/CameraFolders.h"

#include "base/text/PathNames.h"
#include "base/threads/CancellationError.h"

namespace tessary {

namespace {

/// Cameras nest their folders one or two deep; what goes on below is a phone's mistake.
constexpr int maxDepth = 8;

class Lister {
public:
    Lister(PhoneFileSystem& files, const std::function<void(std::size_t)>& found, const Call& call)
        : files_(files), found_(found), call_(call) {}

    void listBelow(const QString& folder, int depth) {
        throwIfStopped(call_.stop);
        Listing listing;
        try {
            listing = listAll(files_, folder, call_);
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
        for (const QString& path : below) {
            if (depth < maxDepth)
                listBelow(path, depth + 1);
            else
                all_.unreadable.push_back({path, Error(PhoneError::insideItself, {path})});
        }
    }

    [[nodiscard]] CameraFiles take() {
        return std::move(all_);
    }

private:
    PhoneFileSystem& files_;
    const std::function<void(std::size_t)>& found_;
    const Call& call_;
    CameraFiles all_;
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
