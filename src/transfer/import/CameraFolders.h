#pragma once

#include "phone/PhoneFileSystem.h"
#include "phone/records/DeviceInfo.h"

#include <QStringList>

#include <functional>
#include <vector>

namespace tessary {

/// Where a phone keeps what its cameras take: of an iPhone in its media folder, of an Android phone
/// on each of its storages that are known.
[[nodiscard]] QStringList cameraFoldersOf(const DeviceInfo& device);

/// All files below the camera folders, as far as they could be listed.
struct CameraFiles {
    std::vector<FileItem> files;
    std::vector<UnreadableEntry> unreadable; ///< folders that could not be listed among them
};

/// Lists them: one listing a folder, and nothing a file. Hidden folders and files, which phones
/// keep their own thumbnails and deleted pictures in, are passed over; so are parts of ours. A
/// folder that is missing holds nothing. `found` is called with the number so far. What
/// endsEverything() is thrown, and CancellationError.
[[nodiscard]] CameraFiles listCameraFiles(PhoneFileSystem& files, const QStringList& folders,
                                          const std::function<void(std::size_t found)>& found,
                                          const Call& call);

} // namespace tessary
