#include "transfer/import/Import.h"

#include "base/threads/CancellationError.h"
#include "transfer/import/CameraFolders.h"
#include "transfer/import/ImportRecorder.h"

#include <algorithm>
#include <chrono>
#include <iterator>
#include <thread>
#include <utility>

namespace tessary {

namespace {

/// A phone says what storages it has while nobody else uses it: asked for some seconds.
bool askVolumes(PhoneFileSystem& from, DeviceInfo& device, const std::stop_token& stop) {
    using namespace std::chrono_literals;
    constexpr int tries = 20;
    for (int n = 0; n < tries; ++n) {
        throwIfStopped(stop);
        const auto queue = from.queue();
        const bool isFree = !queue || queue->tryTake().has_value();
        auto live = from.liveInfo(stop);
        if (live)
            device.volumes = std::move(live->volumes);
        if (live || isFree) // a phone that nobody uses has no more to tell
            return true;
        std::this_thread::sleep_for(250ms);
    }
    return false;
}

} // namespace

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
    const bool isCardUnknown = device.platform == DevicePlatform::android &&
                               device.volumes.empty() && !askVolumes(from, device, call.stop);
    CameraFiles all = listCameraFiles(from, cameraFoldersOf(device), found, call);
    result.photos = photosOf(all.files);
    result.unreadable = std::move(all.unreadable);
    if (isCardUnknown)
        result.unreadable.push_back({QStringLiteral("/storage"), Error(PhoneError::busy)});
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
