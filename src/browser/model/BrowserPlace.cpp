#include "browser/model/BrowserPlace.h"

#include "base/text/PathNames.h"

namespace tessary {

BrowserPlace BrowserPlace::of(const PhoneFileSystem& files, const std::optional<DeviceInfo>& device,
                              const QString& path) {
    FileTreeRoot root = files.rootOf(path);
    if (device)
        for (const StorageVolume& volume : device->volumes)
            if (root.path == QStringLiteral("/storage/") + volume.id && !volume.name.isEmpty())
                root.name = volume.name;
    BrowserPlace place{path, root.path, {{root.name, root.path}}};
    QString soFar = root.path;
    for (const QString& name :
         path.mid(root.path.size()).split(QLatin1Char('/'), Qt::SkipEmptyParts)) {
        soFar = joinPath(soFar, name);
        place.components.push_back({name, soFar});
    }
    return place;
}

} // namespace tessary
