#include "transfer/import/Import.h"

#include "transfer/import/CameraFolders.h"
#include "transfer/import/ImportRecorder.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace tessary {

std::vector<Photo> FoundPhotos::newOnes() const {
    std::vector<Photo> left;
    std::copy_if(photos.begin(), photos.end(), std::back_inserter(left),
                 [this](const Photo& photo) { return !isFetched(photo, *ledger); });
    return left;
}

FoundPhotos findPhotos(PhoneFileSystem& from, DeviceInfo device, const QString& ledgers,
                       const std::function<void(std::size_t)>& found, const Call& call) {
    FoundPhotos result;
    result.ledger = std::make_shared<ImportLedger>(ledgers, device.udid);
    if (device.platform == DevicePlatform::android && device.volumes.empty())
        if (auto live = from.liveInfo(call.stop))
            device.volumes = std::move(live->volumes);
    CameraFiles all = listCameraFiles(from, cameraFoldersOf(device), found, call);
    result.photos = photosOf(all.files);
    result.unreadable = std::move(all.unreadable);
    return result;
}

TreeCopyRequest importRequest(std::shared_ptr<PhoneFileSystem> from,
                              std::shared_ptr<LocalFileSystem> to, ImportPlan plan,
                              std::shared_ptr<ImportLedger> ledger) {
    TreeCopyRequest request{.from = std::move(from), .to = to, .folder = to->folder()};
    request.items = std::move(plan.items);
    // Their names are free, or were when the plan was made.
    request.skipsSame = true;
    request.verifies = true;
    request.witness = std::make_shared<ImportRecorder>(std::move(ledger), std::move(to));
    return request;
}

} // namespace tessary
